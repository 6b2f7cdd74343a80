#!/usr/bin/python3
"""103.bmp: the information screen, 320x480 on black, painted with OR over the
moving background: how to play, controls, both shot modes, energy, bosses."""
import numpy as np
from PIL import Image, ImageDraw, ImageFont

import pack
from scenery_noise import shrink
from words_letters import layout, raster
from words_metal import COOL, place

W, H = 320, 480
SANS = '/usr/share/fonts/opentype/noto/NotoSansCJK-Bold.ttc'      # face 0 = JP
TEXT = (224, 240, 255)
DIM = (150, 190, 216)
KEY = (112, 226, 250)
WARMC = (255, 190, 92)
LINE = (60, 130, 170)


class Page:
    def __init__(self):
        self.px = np.zeros((H, W, 3))

    def _mask(self, im, col):
        a = np.asarray(im, float) / 255.0
        self.px = np.maximum(self.px, a[..., None] * np.array(col, float))

    def text(self, x, y, s, col=TEXT, size=13, anchor='ls', gain=1.25, track=.25):
        """Text with evenly spaced letters: every glyph is set on its own, at a
        quarter pixel, hinted only vertically by the size chosen. x is the
        left end (ls) or the middle (ms), y the baseline. Gives the width."""
        k = 4
        f = ImageFont.truetype(SANS, size * k, index=0)
        adv = [f.getlength(c) / k + track for c in s]
        w = sum(adv) - track
        if anchor[0] == 'm':
            x = x - w / 2
        im = Image.new('L', (W * k, 40 * k), 0)
        d = ImageDraw.Draw(im)
        px = x
        for c, a in zip(s, adv):
            d.text((round(px * k), 28 * k), c, fill=255, font=f, anchor='ls')
            px += a
        y = int(round(y))
        full = Image.new('L', (W, H), 0)
        full.paste(im.resize((W, 40), Image.Resampling.BOX), (0, y - 28))
        self._mask(full.point(lambda v: min(255, int(v * gain))), col)
        return w

    def poly(self, pts, col, ss=6):
        im = Image.new('L', (W * ss, H * ss), 0)
        ImageDraw.Draw(im).polygon([(x * ss - .5, y * ss - .5) for x, y in pts], fill=255)
        self._mask(im.resize((W, H), Image.Resampling.BOX), col)

    def rect(self, x, y, w, h, col):
        self.px[y:y + h, x:x + w] = np.maximum(self.px[y:y + h, x:x + w], np.array(col, float))

    def frame(self, x, y, w, h, col, cut=3):
        """Outline with cut corners."""
        self.rect(x + cut, y, w - 2 * cut, 1, col)
        self.rect(x + cut, y + h - 1, w - 2 * cut, 1, col)
        self.rect(x, y + cut, 1, h - 2 * cut, col)
        self.rect(x + w - 1, y + cut, 1, h - 2 * cut, col)
        for i in range(1, cut):
            for px, py in ((x + i, y + cut - i), (x + w - 1 - i, y + cut - i), (x + i, y + h - 1 - cut + i), (x + w - 1 - i, y + h - 1 - cut + i)):
                self.rect(px, py, 1, 1, col)

    def letters(self, x, y, s, h, col=None, t=20.0, gap=22.0, env=None, centre=False, squeeze=1.0):
        tw, ops = layout(s, gap, 100.0, t)
        k = h / 100.0
        ox = x - tw * k * squeeze / 2 if centre else x
        m = raster(ops, W, H, ox, y, k * squeeze, k, 6)
        if env is not None:
            self.px = np.maximum(self.px, place(m, W, H, 6, 1.7, y, y + h, env, ((40, 120, 190), 1.4, .5)))
        else:
            self._mask(Image.fromarray(np.clip(shrink(m.astype(float), 6) * 300, 0, 255).astype(np.uint8)), col)
        return tw * k * squeeze

    def heading(self, y, jp, en):
        """Section heading with its baseline at y and a rule under it."""
        w = self.text(16, y, jp, KEY, 14)
        self.letters(24 + w, y - 9, en, 9, DIM, 21, 26)
        self.rect(16, y + 5, 288, 1, LINE)
        self.rect(16, y + 5, 34, 2, KEY)

    def key(self, x, y, s, w=None):
        """A key cap, 17 px high, its top at y; gives its width."""
        w = w or 40
        self.frame(x, y, w, 17, KEY)
        self.rect(x + 3, y + 15, w - 6, 1, LINE)
        self.text(x + w / 2, y + 12.5, s, TEXT, 12, 'ms')
        return w

    def arrow(self, x, y, d):
        self.frame(x, y, 17, 17, KEY)
        self.rect(x + 3, y + 15, 11, 1, LINE)
        c = {'u': ((8.5, 4), (13, 11), (4, 11)), 'd': ((8.5, 12.5), (13, 5.5), (4, 5.5)),
             'l': ((4.5, 8.5), (11.5, 4), (11.5, 13)), 'r': ((12.5, 8.5), (5.5, 4), (5.5, 13))}[d]
        self.poly([(x + a, y + b) for a, b in c], TEXT)

    def ship(self, x, y):
        """The player's ship in small, its nose at (x, y)."""
        im = pack.downsample(pack.render_raw('ship.pov', 44 * 6, 44 * 6, W=64, H=64, F=0), 6)
        px = pack.over_black(im).astype(float)
        x0, y0 = int(x) - 22, int(y) - 1
        self.px[y0:y0 + 44, x0:x0 + 44] = np.maximum(self.px[y0:y0 + 44, x0:x0 + 44], px)

    def bolt(self, x, y, dx, dy, L, w, col):
        n = (dx * dx + dy * dy) ** .5
        ux, uy = dx / n, dy / n
        self.poly([(x, y), (x + ux * L * .3 - uy * w, y + uy * L * .3 + ux * w), (x + ux * L, y + uy * L),
                   (x + ux * L * .3 + uy * w, y + uy * L * .3 - ux * w)], col)


def build():
    p = Page()
    p.letters(160, 15, 'HOW TO PLAY', 20, env=COOL, t=23, gap=24, centre=True)

    p.heading(62, '操作', 'CONTROLS')
    y = 74
    for i, d in enumerate('ludr'):
        p.arrow(16 + i * 19, y, d)
    p.text(104, y + 13, 'Move the ship')
    p.key(16, y + 21, 'X', 36)
    p.text(60, y + 34, 'Fire')
    p.key(104, y + 21, 'Z', 36)
    p.text(148, y + 34, 'Switch the shot mode')
    p.key(16, y + 42, 'Space', 50)
    p.text(74, y + 55, 'Start')
    p.key(136, y + 42, 'Esc', 36)
    p.text(180, y + 55, 'Back to the title')
    p.text(16, y + 78, 'Joystick', KEY)
    p.key(80, y + 65, '1', 20)
    p.text(106, y + 78, 'Switch shot')
    p.key(192, y + 65, '2', 20)
    p.text(218, y + 78, 'Fire / Start')

    p.heading(176, 'ショット', 'SHOT MODES')
    for k, x in enumerate((16, 164)):
        p.frame(x, 188, 140, 127, LINE, 5)
        cx = x + 70
        p.ship(cx, 236)
        if k == 0:
            for yy in (193, 209, 225):
                for s in (-1, 1):
                    p.bolt(cx + s * 6, yy + 13, 0, -1, 13, 2.4, (132, 186, 255))
            p.text(cx, 293, 'Twin forward', TEXT, 13, 'ms')
            p.text(cx, 308, 'strong', WARMC, 13, 'ms')
        else:
            for a in (-36, -12, 12, 36):
                dx, dy = np.sin(np.radians(a)), -np.cos(np.radians(a))
                for d in (12, 28, 44):
                    p.bolt(cx + dx * d * 1.1, 246 + dy * d, dx, dy, 10, 1.9, (132, 186, 255))
            p.text(cx, 293, 'Four-way spread', TEXT, 13, 'ms')
            p.text(cx, 308, 'wide, but weaker', KEY, 13, 'ms')

    p.heading(343, 'エネルギー', 'ENERGY')
    p.rect(16, 356, 150, 6, (30, 70, 255))
    p.rect(16, 356, 150, 1, (120, 160, 255))
    p.rect(166, 356, 138, 6, (26, 30, 60))
    p.text(16, 382, 'One ship, no lives: every hit drains the bar.')
    p.text(16, 398, 'When it turns red you are nearly gone.')

    p.heading(427, 'ボス', 'BOSS')
    p.text(16, 447, 'One waits at the end of every stage.')
    p.letters(160, 461, 'PRESS SPACE', 10, TEXT, 20, 32, centre=True)
    out = p.px
    out[out.max(-1) < 12] = 0
    return np.clip(np.rint(out), 0, 255).astype(np.uint8)


if __name__ == '__main__':
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    pack.save_bmp(pack.PICTURES / '103.bmp', build())
    print('103.bmp')
