#!/usr/bin/python3
"""102.bmp: the title picture, 320x480.

It is shown as two halves that slide in from the sides and meet at x = 160:
TARN stands in the left half, VEIL in the right one, and the rift of light in
the torn veil lies exactly on the joint.
"""
import sys

import numpy as np

import pack
from scenery_noise import blur, fbm, mix, perlin, ramp, shrink, smooth
from words_letters import layout, raster
from words_metal import COOL, metal

W, H, SS = 320, 480, 2
CX = 160.0


def sky():
    y, x = np.mgrid[0:H * SS, 0:W * SS]
    X, Y = (x + .5) / SS, (y + .5) / SS
    dx = X - CX
    ax = np.abs(dx)
    # the veil: two curtains, mirrored in the large, different in the small
    u = ax / 64.0
    v = Y / 230.0
    asym = .16 * fbm(X / 60.0 + 9, Y / 60.0, 64, 64, 5, 3)
    w1 = fbm(u * .9, v * 1.7 + 2, 64, 64, 31, 4)
    w2 = fbm(u * .8 + 5, v * 1.5, 64, 64, 47, 4)
    fold = fbm(u * 1.9 + 1.3 * w1 + asym, v * .9 + .55 * w2, 64, 64, 63, 5, .55, True)
    fine = fbm(u * 6 + 3.2 * w1 + 3 * asym, v * 1.6 + 1.4 * w2, 64, 64, 77, 4, .55, True)
    bank = smooth(-.5, .6, fbm(u * .7 + .7 * w2, v * 1.2 + .6 * w1, 64, 64, 89, 3))
    edge = 15 + 20 * w1 + 26 * np.clip((Y - 235) / 240, -1, 1) ** 2
    opened = smooth(edge - 9, edge + 26, ax)                      # the veil is torn open along the joint
    dens = np.clip((.10 + .80 * fold ** 1.7 + .45 * fine * fold) * (.35 + .9 * bank), 0, 1.2) * opened
    near = np.exp(-ax / 62.0)
    light = .42 + 1.9 * near
    top = smooth(-30, 150, Y)
    col = mix(np.array((52, 34, 104.)), np.array((18, 104, 132.)), np.clip(near * 1.5 + .35 * w2, 0, 1))
    col = mix(col, np.array((120, 214, 226.)), np.clip(near * 1.25 - .42, 0, 1) ** 1.3)
    veil = col * (dens * light * (.35 + .65 * top))[..., None]
    # the rift
    shaft = np.exp(-(dx / 3.0) ** 2) * 1.0 + .50 * np.exp(-ax / 9.0) + .22 * np.exp(-ax / 34.0)
    vert = smooth(40, 250, Y) * (1 - .35 * smooth(330, 420, Y))
    rift = np.array((150, 226, 240.)) * (shaft * vert * (1 - .72 * opened * dens))[..., None]
    base = ramp(Y / H, [(0, (3, 4, 12)), (.5, (6, 10, 26)), (1, (8, 16, 34))])
    rgb = base + veil + rift * .85
    return X, Y, rgb, opened * dens


def stars(rgb, cover):
    r = np.random.RandomState(12)
    h, w = rgb.shape[:2]
    for _ in range(330):
        x, y, b = r.uniform(0, W), r.uniform(0, 350), r.uniform(.12, 1) ** 3
        px, py = int(x * SS), int(y * SS)
        k = max(0.0, 1 - 1.3 * cover[py, px])
        tint = np.array((1, .86, .72)) if r.uniform() < .2 else np.array((.82, .92, 1.0))
        rgb[py:py + SS, px:px + SS] += 250 * b * k * tint
        if b > .55:
            for o in (-1, 1):
                if 0 < px + o * SS < w - SS:
                    rgb[py:py + SS, px + o * SS:px + o * SS + SS] += 60 * b * k * tint
                rgb[max(0, py + o * SS):py + o * SS + SS, px:px + SS] += 60 * b * k * tint
    return rgb


def limb(X, Y, rgb):
    """The planet's night side rising from below, its rim lit by the rift."""
    R, cy = 560.0, 352.0 + 560.0
    d = np.hypot(X - CX, Y - cy)
    inside = smooth(R + .6, R - .6, d)
    depth = (R - d)
    # relief of highlands and dark tarns seen at a slant
    u = (X - CX) / 46.0
    v = 5.2 * np.sqrt(np.clip(depth, 0, None) / 46.0)
    wq = fbm(u + 8, v + 3, 64, 64, 7, 4)
    hgt = fbm(u + 8 + .6 * wq, v + .6 * wq, 64, 64, 17, 6, .52) + .5 * fbm(u + 2 + .8 * wq, v, 64, 64, 29, 5, .5, True)
    gy, gx = np.gradient(hgt * 15.0 * SS)
    side = -np.sign(X - CX) * np.clip(np.abs(X - CX) / 60, 0, 1)
    lamb = np.clip(.34 - gx * (-.55) * .5 + gx * side * -.25 + gy * .55, 0, 1.4)
    tarn = smooth(.02, -.14, hgt - .34)
    glow = np.exp(-np.abs(X - CX) / 58.0) * np.exp(-depth / 80.0)
    land = mix((6, 10, 22), (44, 84, 106), np.clip(lamb * (.30 + 1.2 * glow), 0, 1))
    lake = mix((3, 6, 14), (90, 180, 206), np.clip(glow * 1.15 - .12, 0, 1))
    surf = mix(land, lake, tarn)
    # reflection of the rift on the water
    ref = np.exp(-((X - CX) / (3.5 + depth * .13)) ** 2) * np.exp(-depth / 95.0)
    rip = .55 + .45 * perlin(u * 2.2 + 3, v * 7, 128, 256, 3)
    surf = surf + np.array((120, 205, 222.)) * (ref * (.25 + .75 * tarn) * rip)[..., None]
    surf = surf * smooth(-20, 10, depth)[..., None]
    warmp = smooth(.10, .42, fbm(u * 1.5 + 1, v * 2.5, 64, 256, 113, 3)) * (1 - tarn) * np.exp(-((np.abs(X - CX) - 95) / 60) ** 2)
    r = np.random.RandomState(8)
    lamp = np.repeat(np.repeat(r.uniform(0, 1, (H, W)) > .93, SS, 0), SS, 1)
    surf = surf + np.array((230, 128, 48.)) * (warmp * lamp * np.exp(-depth / 60.0))[..., None]
    # air: bright thin line at the rim, haze above and below it
    k = np.exp(-np.abs(X - CX) / 120.0)
    hz = np.where(d > R, np.exp(-(d - R) / 9.0), np.exp(-(R - d) / 16.0)) * (.28 + .9 * k)
    line = np.exp(-((d - R) / 1.5) ** 2) * (.35 + .9 * k)
    out = mix(rgb * 1.0, surf, inside)
    out = out + np.array((58, 140, 176.)) * hz[..., None] * .62 + np.array((176, 240, 250.)) * line[..., None] * .8
    return out


def wordmark(rgb):
    """TARN | VEIL over the rift, with a blade of light between them."""
    ss = 6
    y0, hh, x0, x1 = 104, 68, 10, 156.5
    wid = dict(V=104, E=92, I=26, L=86)
    for text, xa, wd in (('TARN', x0, None), ('VEIL', W - x1 + .5, wid)):
        tw, ops = layout(text, 15, 152.0, 22.0, wd)
        m = raster(ops, W, 100, xa, y0 - 90, (x1 - x0) / tw, hh / 152.0, ss)
        a = shrink(m.astype(float), ss)
        # shadow and cool halo on the sky
        sl = slice(90, 190)
        sh = np.roll(np.roll(blur(a, 2.2), 3, 0), 2, 1)
        rgb[sl] *= (1 - .75 * np.clip(sh * 1.3, 0, 1))[..., None]
        hl = blur(a, 5.0)
        rgb[sl] += (hl * .42)[..., None] * np.array((30, 112, 160.))
        rim = np.clip(blur(a, .9) * 2.2, 0, 1)
        rgb[sl] *= (1 - .85 * rim)[..., None]
        col = metal(m, ss, 3.0, y0 - 90, y0 - 90 + hh, COOL)
        c = shrink(np.where(m[..., None], col, 0) ** 2.0, ss) ** .5
        rgb[sl] = rgb[sl] * (1 - a[..., None]) + c
    return rgb


def press(rgb):
    ss = 6
    text = 'PRESS SPACE'
    tw, ops = layout(text, 30, 100.0, 20.0)
    w, h = 132.0, 12.0
    m = raster(ops, W, 40, (W - w) / 2, 14, w / tw, h / 100.0, ss)
    a = shrink(m.astype(float), ss)
    sl = slice(428, 468)
    rgb[sl] *= (1 - .8 * np.clip(blur(a, 3.0) * 2.2, 0, 1))[..., None]
    a = np.clip(a * 1.35, 0, 1)[..., None]
    rgb[sl] = rgb[sl] * (1 - a) + np.array((236, 250, 255.)) * a
    return rgb


def ship(rgb):
    """The player's ship, climbing along the rift."""
    try:                                                     # half as large again as in the game
        im = pack.downsample(pack.render_raw('ship.pov', 96 * 4, 96 * 4, W=64, H=64, F=0), 4)
    except RuntimeError as e:
        sys.exit('title: ship.pov cannot be rendered: %s' % e)
    h, w = im.shape[:2]
    y0, x0 = 232, int(CX) - w // 2
    a = im[..., 3:4]
    sh = blur(np.pad(im[..., 3], 16), 5.0)
    sl = (slice(y0 - 16, y0 + h + 16), slice(x0 - 16, x0 + w + 16))
    rgb[sl] *= (1 - .5 * np.clip(sh, 0, 1))[..., None]
    sl = (slice(y0, y0 + h), slice(x0, x0 + w))
    rgb[sl] = rgb[sl] * (1 - a) + im[..., :3] * a
    return rgb


def build(with_ship=True):
    X, Y, rgb, cover = sky()
    rgb = stars(rgb, cover)
    rgb = limb(X, Y, rgb)
    rgb = 255 * (1 - np.exp(-np.clip(rgb, 0, None) / 190.0)) * 1.16
    rgb = shrink(np.clip(rgb, 0, 255), SS)
    if with_ship:
        rgb = ship(rgb)
    rgb = wordmark(rgb)
    rgb = press(rgb)
    r = np.random.RandomState(4)
    return np.clip(np.rint(rgb + r.uniform(-.8, .8, rgb.shape[:2] + (1,))), 0, 255).astype(np.uint8)


if __name__ == '__main__':
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    pack.save_bmp(pack.PICTURES / '102.bmp', build())
    print('102.bmp')
