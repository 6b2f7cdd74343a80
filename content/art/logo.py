#!/usr/bin/python3
"""LogoPic.gif: the wordmark with its emblem, 195x46 on black. Only the left
192 columns are shown, so the drawing is centred on x = 96."""
import numpy as np

import pack
from scenery_noise import blur, shrink, smooth
from words_letters import layout, raster
from words_metal import COOL, place

W, H, SS = 195, 46, 6
CX = 96.0


def build():
    y, x = np.mgrid[0:H * 4, 0:W * 4]
    X, Y = (x + .5) / 4, (y + .5) / 4
    dx = X - CX
    out = np.zeros((H * 4, W * 4, 3))
    # a thin horizon under the word and the rift that crosses it
    fade = smooth(92, 12, np.abs(dx))
    bow = 40.0 + (dx / 92.0) ** 2 * 2.6
    out += (np.exp(-((Y - bow) / .75) ** 2) * fade * (.35 + .9 * np.exp(-np.abs(dx) / 30)))[..., None] * np.array((150, 226, 240.))
    out += (np.where(Y > bow, np.exp(-(Y - bow) / 1.6), np.exp(-(bow - Y) / 3.0)) * fade * .32)[..., None] * np.array((40, 110, 150.))
    wid = .5 + 1.1 * smooth(0, 24, np.minimum(Y - 1, 45 - Y))
    rift = np.exp(-(dx / wid) ** 2) * smooth(1, 10, Y) * smooth(45, 40, Y)
    out += rift[..., None] * np.array((190, 240, 250.))
    out += (np.exp(-np.abs(dx) / 5.0) * smooth(2, 16, Y) * smooth(45, 40, Y) * .25)[..., None] * np.array((50, 130, 170.))
    out = shrink(np.clip(out, 0, 255), 4)
    y0, hh = 5, 30
    for text, xa, wd in (('TARN', 3, None), ('VEIL', 100, dict(V=104, E=92, I=26, L=86))):
        tw, ops = layout(text, 15, 128.0, 22.0, wd)
        m = raster(ops, W, H, xa, y0, 89.0 / tw, hh / 128.0, SS)
        a = shrink(m.astype(float), SS)
        out *= (1 - np.clip(blur(a, 1.0) * 2, 0, 1))[..., None]
        out = np.maximum(out, place(m, W, H, SS, 2.1, y0, y0 + hh, COOL, ((40, 120, 190), 1.6, .5)))
    out[out.max(-1) < 10] = 0
    out[:, 192:] = 0
    out[0], out[-1], out[:, 0] = 0, 0, 0
    return np.clip(np.rint(out), 0, 255).astype(np.uint8)


if __name__ == '__main__':
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    pack.save_gif(pack.PICTURES / 'LogoPic.gif', build())
    print('LogoPic.gif')
