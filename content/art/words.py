#!/usr/bin/python3
"""300.bmp: STAGE, SCORE ATTACK, digits, GAME OVER and STAGE CLEAR on black."""
import numpy as np

import pack
from scenery_noise import clean_for_or
from words_letters import layout, raster
from words_metal import COOL, WARM, place

W, H, SS = 272, 392, 6


def fit(text, x, y, w, h, env=COOL, bevel=2.2, letter_h=100.0, cellw=None, halo=((40, 120, 190), 1.6, 0.55), t=22.0):
    """Text fitted into w x h at (x, y); keeps the letters' own proportions
    unless they must be squeezed, and centres them in the box."""
    cw, ch = (cellw or w), h
    tw, ops = layout(text, H=letter_h, t=t)
    sy = h / letter_h
    sx = min(sy, w / tw)
    ox = x + (w - tw * sx) / 2
    m = raster(ops, W, H, ox, y, sx, sy, SS)
    return place(m, W, H, SS, bevel, y, y + h, env, halo)


def clip(a, x, y, w, h):
    """Keep only what lies inside a region."""
    o = np.zeros_like(a)
    o[y:y + h, x:x + w] = a[y:y + h, x:x + w]
    return o


def build():
    # The game shows these strips at fixed places; the words lie in them so that they stand in the middle of the screen.
    out = np.zeros((H, W, 3))
    add = lambda a: np.maximum(out, a, out=out)
    add(clip(fit('STAGE', 3, 7, 154, 35, letter_h=104), 0, 0, 172, 48))
    add(clip(fit('SCORE ATTACK', 3, 102, 244, 35, WARM, letter_h=150, t=26, halo=((190, 90, 30), 1.6, 0.5)), 0, 96, 272, 48))
    for i, d in enumerate('12345'):
        add(clip(fit(d, i * 48 + 3, 151, 24, 35, letter_h=104), i * 48, 144, 48, 48))
    add(clip(fit('GAME', 3, 205, 144, 37, WARM, letter_h=104, halo=((190, 80, 30), 1.6, 0.5)), 0, 200, 180, 45))
    add(clip(fit('OVER', 3, 249, 144, 37, WARM, letter_h=104, halo=((190, 80, 30), 1.6, 0.5)), 0, 245, 180, 45))
    add(clip(fit('STAGE CLEAR', 3, 304, 234, 38, letter_h=150, t=26), 0, 293, 272, 60))
    return clean_for_or(out, 26)


if __name__ == '__main__':
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    pack.save_bmp(pack.PICTURES / '300.bmp', build())
    print('300.bmp')
