#!/usr/bin/python3
"""BomPic.gif, BomPic64.gif, 150.bmp: six-frame explosions for OR painting.

A turbulent ball of burning gas is marched ray by ray through 3-D noise
(emission, absorption, soot lit from the upper left). Dark is transparent when
OR-painted, so the blast dies by getting dark and breaking up.
"""
import numpy as np

import pack
from scenery_noise import Volume, blur, clean_for_or, mix, ramp, shrink, smooth

FIRE = [(0.0, (0, 0, 0)), (.10, (18, 3, 4)), (.24, (96, 30, 8)), (.40, (208, 86, 12)), (.56, (255, 146, 26)),
        (.72, (255, 200, 74)), (.86, (255, 242, 168)), (1.0, (255, 255, 250))]

#          radius heat  core  erosion soot bump
FRAMES = [(.32, 1.60, 1.00, .00, .00, .30),
          (.45, .92, .42, .10, .10, .46),
          (.56, .74, .20, .26, .45, .52),
          (.63, .56, .00, .52, .85, .55),
          (.67, .40, -.16, .80, 1.0, .56),
          (.70, .26, -.30, 1.02, .80, .56)]


def ball(f, n, vol, detail, steps):
    """RGB (n, n, 3), 1.0 = full, of the burning ball in frame f."""
    R, heat, core, erode, soot, bump = FRAMES[f]
    t = f / 5.0
    c = (np.arange(n) + .5) / n * 2 - 1
    X, Y = np.meshgrid(c, c)
    col = np.zeros((n, n, 3))
    trans = np.ones((n, n))
    dz = 2.0 / steps
    # the gas flows outwards: noise is looked up at positions scaled by the radius
    q = detail / (.30 + R)
    for k in range(steps):
        z = 1 - (k + .5) * dz
        r = np.sqrt(X * X + Y * Y + z * z) + 1e-6
        if z > R * 1.4 or z < -R * .8:
            continue
        w = vol(X * q * .7 + 2 + t, Y * q * .7 + 6, z * q * .7 + 4)
        px, py, pz = X * q + 11 + .45 * w, Y * q + 5 - .45 * w, z * q + 17 + t * .9
        lump = 0.0                               # cauliflower: folded noise, round outside, creased inside
        amp, tot = 1.0, 0.0
        for o in range(4):
            lump = lump + amp * np.abs(vol(px * 2 ** o + 7 * o, py * 2 ** o + 3 * o, pz * 2 ** o + 5 * o))
            tot += amp
            amp *= .56
        lump = np.clip(lump / tot * 2.1, 0, 1.3)
        toward = np.abs(vol(px - .30, py - .34, pz + .26))
        side = np.abs(vol(px, py, pz)) - toward
        fine = vol.fbm(X * q * 3.1 + 3, Y * q * 3.1 + 8, z * q * 3.1 + 2 + t * 2, 2)
        rr = r / R - bump * (lump - .42) + .12 * w
        dens = smooth(1.0, .84, rr)
        dens = dens * smooth(erode - .62, erode - .30, .18 + .55 * (lump - .4) + .55 * fine - .30 * t * (1 - rr) + .3 * w)
        sun = (-.55 * X - .62 * Y + .45 * z) / np.maximum(r, .05)
        T = heat * (.48 + .75 * (lump - .40) + .32 * side + .26 * sun - .20 * rr + .16 * fine) + core * np.clip(1 - rr * .85, 0, 1)
        T = np.clip(T, 0, 1)
        em = ramp(T, FIRE) / 255.0 * 1.25
        lit = np.clip(.30 + .55 * sun + .5 * side + .35 * (lump - .4), 0, 1)
        sm = (np.array((70, 64, 72)) / 255.0) * (lit * soot * smooth(.50, .12, T) * .62)[..., None]
        ab = 1 - np.exp(-dens * dz * (17.0, 17.0, 15.0, 11.0, 8.0, 6.0)[f])
        col += (trans * ab)[..., None] * (em + sm)
        trans *= 1 - ab
    return col


def sparks(f, n, rng_seed, count):
    """Streaks of burning fragments flying off."""
    out = np.zeros((n, n, 3))
    r = np.random.RandomState(rng_seed)
    c = (np.arange(n) + .5) / n * 2 - 1
    X, Y = np.meshgrid(c, c)
    far = [.30, .62, .78, .87, .91, .92][f]
    heat = [1.0, .95, .85, .66, .46, .30][f]
    for _ in range(count):
        a, s, w, br = r.uniform(0, 2 * np.pi), r.uniform(.72, 1.0), r.uniform(.012, .026), r.uniform(.6, 1)
        d = far * s
        L = [.10, .16, .12, .07, .03, .02][f]
        ux, uy = np.cos(a), np.sin(a)
        u = X * ux + Y * uy
        v = -X * uy + Y * ux
        w = w * (1.3 if f < 2 else 1.0)
        du = np.where(u > d, (u - d) / (w * 1.3), (d - u) / L)
        g = np.exp(-du ** 2) * np.exp(-(v / w) ** 2) * (u > 0)
        out = np.maximum(out, ramp(np.clip(g * heat * br * 1.15, 0, 1), FIRE) / 255.0)
    return out


def flash(n):
    """Frame 0: white-hot core, soft halo and four long and four short rays."""
    c = (np.arange(n) + .5) / n * 2 - 1
    X, Y = np.meshgrid(c, c)
    r = np.hypot(X, Y)
    g = np.exp(-(r / .30) ** 2) * 1.5
    g += .50 * np.exp(-(r / .37) ** 2)
    ray = 0
    for i, (l, w, k) in enumerate(((.80, .030, .9), (.80, .030, .9), (.52, .04, .6), (.52, .04, .6))):
        a = i * np.pi / 2 if i < 2 else np.pi / 4 + i * np.pi / 2
        u, v = X * np.cos(a) + Y * np.sin(a), -X * np.sin(a) + Y * np.cos(a)
        wid = w * np.clip(1.15 - np.abs(u) / l, 0.02, 2)
        ray = np.maximum(ray, k * np.exp(-(v / wid) ** 2) * np.clip(1.08 - np.abs(u) / l, 0, 1))
    g = g + ray
    warm = np.array((1.0, .72, .34))
    halo = smooth(.75, .2, r)
    return np.clip(g, 0, 3)[..., None] * mix(warm, (1.0, .93, .78), halo)


def frame(f, size, seed, detail, ss, steps):
    n = size * ss
    vol = Volume(32, seed)
    a = ball(f, n, vol, detail, steps)
    if f == 0:
        a = a + flash(n)
    if f >= 1:
        a = np.maximum(a, sparks(f, n, seed + 5, 9 if size < 64 else 16 if size < 128 else 26))
    c = (np.arange(n) + .5) / n * 2 - 1
    X, Y = np.meshgrid(c, c)
    lim = 1 - 2.0 / size
    a = a * smooth(lim, lim - .12, np.hypot(X, Y))[..., None]
    # bloom, then soft shoulder
    a = shrink(a, ss)
    if f < 4:
        for k in range(3):
            a[..., k] += (.22, .42, .36, .26)[f] * blur(np.clip(a[..., k] - .4, 0, 1), size / 18.0)
    a = np.where(a > .7, .7 + .3 * (1 - np.exp(-(a - .7) / .3)), a)
    c = (np.arange(size) + .5) / size * 2 - 1
    X, Y = np.meshgrid(c, c)
    a = a * smooth(lim, lim - .10, np.hypot(X, Y))[..., None]
    px = clean_for_or(a * 255)
    px[0], px[-1], px[:, 0], px[:, -1] = 0, 0, 0, 0
    return px


def strip(size, seed, detail, ss, steps):
    out = np.zeros((size, size * 6, 3), np.uint8)
    for f in range(6):
        out[:, f * size:(f + 1) * size] = frame(f, size, seed, detail, ss, steps)
    return out


def main():
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    pack.save_gif(pack.PICTURES / 'BomPic.gif', strip(32, 202, 1.7, 4, 28))
    print('BomPic.gif')
    pack.save_gif(pack.PICTURES / 'BomPic64.gif', strip(64, 108, 2.1, 3, 36))
    print('BomPic64.gif')
    pack.save_bmp(pack.PICTURES / '150.bmp', strip(128, 77, 2.6, 2, 52))
    print('150.bmp')


if __name__ == '__main__':
    main()
