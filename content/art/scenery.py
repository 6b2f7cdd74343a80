#!/usr/bin/python3
"""101.bmp: the background of two stages, 320x480, endless in y.

A highland of dark tarns under drifting veils of mist, seen from high above and
lit from the upper left: slow large banks, fine curls, a few warm lights on the
shores, and the wrecks of an older battle (rendered by scenery_wreck.pov).
"""
import numpy as np

import pack
from scenery_noise import blur, fbm, mix, perlin, ramp, shrink, smooth

W, H, SS = 320, 480, 2
LIGHT = np.array([-.58, -.58, .57])


def grids():
    y, x = np.mgrid[0:H * SS, 0:W * SS]
    return (x + .5) / SS, (y + .5) / SS


def relief(h, k):
    """Lambert shading of a height field (periodic in y), light upper left."""
    p = np.vstack([h[-1:], h, h[:1]])
    gy = (p[2:] - p[:-2]) * .5 * k
    gx = np.gradient(h, axis=1) * k
    n = 1 / np.sqrt(gx * gx + gy * gy + 1)
    return (-gx * LIGHT[0] - gy * LIGHT[1] + LIGHT[2]) * n


WRECKS = [  # kind, middle x, y, tile, turn (quarter), light, sunk
    (0, 82, 306, 160, 0, .50, .85),
    (1, 236, 128, 90, 0, .46, .55),
    (2, 122, 92, 90, 1, .46, .25),
    (3, 262, 432, 90, 1, .46, .25),
    (0, 268, 262, 160, 2, .34, .80),
    (3, 36, 462, 90, 0, .40, .3)]


def wrecks(rgb, cov, hh):
    """Lay the wrecks down: shadow to the lower right, mud and mist over them."""
    n = fbm(*(np.mgrid[0:W, 0:H].transpose(0, 2, 1) / 40.0), 8, 12, 211, 4)
    for kind, cx, cy, size, turn, light, sunk in WRECKS:
        im = np.rot90(pack.render('scenery_wreck.pov', size, size, ss=3, KIND=kind), 0)
        if turn == 1:
            im = im[:, ::-1]
        elif turn == 2:
            k = size // 2                                   # smaller, seen deeper down
            im = im[:k * 2, :k * 2]
            a = im[..., 3:4]
            pre = shrink(im[..., :3] * a, 2)
            a = shrink(a, 2)
            im = np.concatenate([pre / np.maximum(a, 1e-3), a], 2)[:, ::-1]
        elif turn == 3:
            im = im[:, ::-1]
        s = im.shape[0]
        ys, xs = (np.arange(s) + cy - s // 2) % H, np.arange(s) + cx - s // 2
        keep = (xs >= 0) & (xs < W)
        im, xs = im[:, keep], xs[keep]
        sl = np.ix_(ys, xs)
        a = im[..., 3]
        buried = smooth(.15, -.12, n[sl] + .5 * (.5 - sunk))     # parts under mud or water
        a = a * (1 - sunk * buried)
        sh = np.roll(np.roll(blur(a, 1.4), 4, 0), 4, 1)
        base = rgb[sl] * (1 - .62 * np.clip(sh * 1.1, 0, 1))[..., None]
        piece = (.72 * im[..., :3] + .28 * im[..., :3].mean(-1, keepdims=True)) * light * np.array((.74, .86, .96))
        rgb[sl] = base * (1 - a[..., None]) + piece * a[..., None]
    return rgb


def lights(rgb, cov, warm):
    """A few small warm lights where people still live on the shores."""
    r = np.random.RandomState(9)
    shore = cov * (1 - cov) * 4
    groups = 0
    while groups < 7:
        x, y = r.randint(14, W - 14), r.randint(0, H)
        if shore[y, x] < .55:
            continue
        groups += 1
        for _ in range(r.randint(4, 9)):
            px, py = int(x + r.normal(0, 7)), int(y + r.normal(0, 5)) % H
            if 1 <= px < W - 1:
                b = r.uniform(.4, 1)
                rgb[py, px] += np.array((74, 42, 14)) * b
                for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
                    rgb[(py + dy) % H, px + dx] += np.array((18, 8, 2)) * b
    return rgb


def build():
    X, Y = grids()
    c = 80.0                                   # first octave cell; 4 x 6 cells
    u, v = X / c, Y / c
    wx = fbm(u, v, 4, 6, 11, 4)
    wy = fbm(u, v, 4, 6, 23, 4)
    big = fbm(u * .5 + .55 * wx, v * .5 + .55 * wy, 2, 3, 5, 3)           # large banks
    a = fbm(u + .75 * wx, v + .75 * wy, 4, 6, 37, 6, .52)
    rid = fbm(u + .9 * wy, v + .9 * wx, 4, 6, 53, 6, .5, True)            # curls
    fine = fbm(u * 4 + 1.6 * a, v * 4 + 1.6 * wx, 16, 24, 71, 4, .55)
    h = .9 * big + .55 * a + .42 * rid + .07 * fine
    h = (h - h.mean()) / h.std()
    cover = smooth(-1.0, .55, h)               # how much veil lies over the deep
    shade = relief(blur(h, 1.0, True), 7.6 * SS)
    lit = np.clip(shade, 0, 1.3)
    # the deep: dark water with a teal sheen
    sheen = smooth(.15, .75, fbm(u * 1.0 - .4 * wy, v + .3 * wx, 4, 6, 91, 4))
    deep = mix((5, 8, 19), (9, 42, 52), sheen)
    rip = perlin(u * 6 + wx, v * 18 + 2 * wy, 24, 108, 3)
    deep = deep * (1 + .18 * rip * sheen)[..., None]
    # warm lights under the veil
    warm = smooth(.16, .66, fbm(u * .5 + .2 * wy, v * .5, 2, 3, 139, 3) + .25 * wx)
    # the veil
    tone = np.clip(.16 + .60 * lit * (0.35 + .65 * smooth(-1.2, 1.8, h)) + .05 * fine, 0, 1)
    veil = ramp(tone, [(0, (5, 9, 20)), (.25, (13, 25, 43)), (.5, (26, 48, 68)), (.75, (46, 76, 92)), (1, (76, 102, 110))])
    violet = smooth(-.1, .6, wy - wx)
    veil = mix(veil, veil * np.array((1.12, .86, 1.12)), violet * .6)
    veil = mix(veil, veil * np.array((1.75, .98, .62)) + np.array((7, 2, 0)), warm * .75)
    rgb = mix(deep, veil, cover * .92)
    under = warm * (1 - cover) ** 1.4
    rgb = rgb + under[..., None] * np.array((40, 17, 6)) * (.6 + .5 * rid)[..., None]
    # light caught by the water along the far shore of every tarn
    ch = blur(cover, 2.0, True)
    p = np.vstack([ch[-1:], ch, ch[:1]])
    shore = np.clip(-(p[2:] - p[:-2]) * .5 * LIGHT[1] * -1 - np.gradient(ch, axis=1) * LIGHT[0] * -1, 0, None) * SS
    rgb = rgb + (np.clip(shore * 7, 0, 1) * (1 - cover) * (.35 + .65 * sheen))[..., None] * np.array((26, 62, 70))
    rgb = shrink(np.clip(rgb, 0, 255) ** 2.2, SS) ** (1 / 2.2)
    cov, hh, X, Y, wx, wy, warm = (shrink(q, SS) for q in (cover, h, X, Y, wx, wy, warm))
    rgb = wrecks(rgb, cov, hh)
    rgb = lights(rgb, cov, warm)
    # drifting mist above everything
    m1 = fbm(X / 80 * 1 + .5 * wx, Y / 80 * 2 + .9 * wy + 1, 4, 12, 171, 5, .55)
    m2 = fbm(X / 80 * .5 + .3 * wy, Y / 80 * .5 + .2 * wx, 2, 3, 191, 3)
    mist = smooth(.10, .80, m1 + .8 * m2) * .62
    mlit = np.clip(.55 + 2.2 * (m1 - np.roll(np.roll(m1, 3, 0), 3, 1)), .25, 1.2)
    rgb = mix(rgb, np.array((44, 74, 92)) * mlit[..., None], mist)
    lum = rgb @ np.array((.299, .587, .114))
    rgb = 255 * (rgb / 255 * (30.0 / lum.mean())) ** 1.12
    grey = (rgb @ np.array((.299, .587, .114)))[..., None]
    rgb = (.86 * rgb + .14 * grey) * np.array((1.0, 1.05, .93))
    rgb = rgb * (33.0 / (rgb @ np.array((.299, .587, .114))).mean())
    # nothing brighter than about a third
    top = rgb @ np.array((.299, .587, .114))
    lim = np.where(top > 62, 62 + 22 * (1 - np.exp(-(top - 62) / 22)), top)
    rgb = rgb * (lim / np.maximum(top, 1e-3))[..., None]
    r = np.random.RandomState(4)
    dither = r.uniform(-.5, .5, (H, W, 1))
    return np.clip(np.rint(rgb + dither), 0, 255).astype(np.uint8)


if __name__ == '__main__':
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    px = build()
    pack.save_bmp(pack.PICTURES / '101.bmp', px)
    l = px @ np.array((.299, .587, .114))
    print('101.bmp mean %.1f%% max %.1f%%' % (l.mean() / 2.55, l.max() / 2.55))
