#!/usr/bin/python3
"""Checks the pictures built by make_scenery.sh. Exit status 1 on any fault.

    check_scenery.py [DIRECTORY]     default: assets/pictures of this tree
"""
import os
import struct
import sys

import numpy as np
from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
DIR = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, '..', '..', 'assets', 'pictures')
faults = []


def fault(name, text):
    faults.append(name)
    print('FAIL %s: %s' % (name, text))


def load(name, w, h):
    """RGB array after checking the file's format, depth and size."""
    path = os.path.join(DIR, name)
    if not os.path.isfile(path):
        fault(name, 'missing')
        return None
    raw = open(path, 'rb').read()
    if name.endswith('.bmp'):
        if raw[:2] != b'BM' or struct.unpack_from('<I', raw, 14)[0] != 40:
            fault(name, 'not a BMP with a 40-byte header')
            return None
        bw, bh, planes, depth, comp = struct.unpack_from('<iiHHI', raw, 18)
        if (depth, comp, planes) != (8, 0, 1):
            fault(name, 'depth %d, compression %d' % (depth, comp))
        if (bw, bh) != (w, h):
            fault(name, 'size %dx%d in the header' % (bw, bh))
    else:
        if raw[:6] not in (b'GIF87a', b'GIF89a'):
            fault(name, 'not a GIF')
            return None
        if not raw[10] & 0x80:
            fault(name, 'no global palette')
        elif raw[10] & 7 != 7:
            fault(name, 'palette of %d entries' % (2 << (raw[10] & 7)))
    im = Image.open(path)
    if getattr(im, 'n_frames', 1) != 1:
        fault(name, 'more than one frame')
    if 'transparency' in im.info:
        fault(name, 'has a transparent index')
    if im.mode not in ('P', 'L'):
        fault(name, 'mode %s' % im.mode)
    if im.size != (w, h):
        fault(name, 'size %s instead of %dx%d' % (im.size, w, h))
        return None
    return np.asarray(im.convert('RGB')).astype(int)


def lum(a):
    return a @ np.array((.299, .587, .114))


def black(name, a, x, y, w, h, what):
    part = a[max(y, 0):y + h, max(x, 0):x + w]
    n = int((part.max(-1) > 0).sum())
    if n:
        fault(name, '%d lit pixels %s' % (n, what))


def lit(name, a, x, y, w, h, what, share, level=110):
    part = lum(a[y:y + h, x:x + w])
    got = (part > level).mean()
    if got < share:
        fault(name, '%s: only %.1f%% bright pixels, wanted %.1f%%' % (what, got * 100, share * 100))


def background():
    n = '101.bmp'
    a = load(n, 320, 480)
    if a is None:
        return
    l = lum(a)
    mean, top = l.mean() / 2.55, l.max() / 2.55
    if not 9.5 <= mean <= 14.5:
        fault(n, 'mean luminance %.1f%%' % mean)
    if top > 36:
        fault(n, 'brightest pixel %.1f%%' % top)
    if l.std() < 5:
        fault(n, 'flat picture')
    rows = np.abs(np.diff(np.vstack([a, a[:1]]), axis=0)).mean((1, 2))   # rows[i]: i -> i+1, the last 479 -> 0
    near = np.concatenate([rows[:12], rows[-13:-1]])
    if rows[-1] > 1.35 * near.mean() or rows[-1] > 1.1 * rows.max():
        fault(n, 'seam: %.2f against %.2f nearby' % (rows[-1], near.mean()))
    # the seam must not be a step in slow structure either
    soft = l.reshape(480, 20, 16).mean(2)
    k = 8
    up = np.stack([soft[(np.arange(i, i + k)) % 480].mean(0) for i in range(480)])
    step = np.abs(up - np.roll(up, k, 0)).mean(1)
    if step[0] > step.mean() + 3 * step.std():
        fault(n, 'seam: banks of cloud do not meet (%.2f)' % step[0])
    # no obvious repetition: the picture must not match itself shifted
    g = l - l.mean()
    F = np.fft.fft2(g)
    ac = np.real(np.fft.ifft2(F * np.conj(F)))
    ac /= ac[0, 0]
    yy, xx = np.mgrid[0:480, 0:320]
    far = (np.minimum(yy, 480 - yy) > 40) | (np.minimum(xx, 320 - xx) > 40)
    if ac[far].max() > .55:
        fault(n, 'repeats itself (%.2f)' % ac[far].max())
    print('%s mean %.1f%% max %.1f%% seam %.2f nearby %.2f repeat %.2f' % (n, mean, top, rows[-1], near.mean(), ac[far].max()))


def title():
    n = '102.bmp'
    a = load(n, 320, 480)
    if a is None:
        return
    lit(n, a, 8, 104, 148, 74, 'left half of the name', .18, 120)
    lit(n, a, 164, 104, 148, 74, 'right half of the name', .18, 120)
    lit(n, a, 90, 438, 140, 18, 'line near the bottom', .10, 150)
    l = lum(a).mean()
    if not 12 <= l <= 110:
        fault(n, 'mean luminance %.0f' % l)
    left, right = lum(a[:, :160]).mean(), lum(a[:, 160:]).mean()
    if abs(left - right) > .2 * max(left, right):
        fault(n, 'halves out of balance: %.0f and %.0f' % (left, right))


def info():
    n = '103.bmp'
    a = load(n, 320, 480)
    if a is None:
        return
    share = (a.max(-1) == 0).mean()
    if not .55 <= share <= .95:
        fault(n, '%.0f%% pure black' % (share * 100))
    for x, y, w, h, s in ((0, 0, 320, 4, 'at the top'), (0, 476, 320, 4, 'at the bottom'), (0, 0, 6, 480, 'at the left'), (314, 0, 6, 480, 'at the right')):
        black(n, a, x, y, w, h, s)
    for y in range(70, 470, 100):
        lit(n, a, 16, y, 288, 90, 'rows from %d' % y, .015, 120)


def explosions():
    for n, s in (('BomPic.gif', 32), ('BomPic64.gif', 64), ('150.bmp', 128)):
        a = load(n, s * 6, s)
        if a is None:
            continue
        means, reach = [], []
        for f in range(6):
            c = a[:, f * s:(f + 1) * s]
            for part, side in ((c[:1], 'top'), (c[-1:], 'bottom'), (c[:, :1], 'left'), (c[:, -1:], 'right')):
                if part.max() > 0:
                    fault(n, 'frame %d touches the %s border' % (f, side))
            l = lum(c)
            means.append(l.mean())
            yy, xx = np.nonzero(l > 24)
            reach.append((max(np.ptp(yy), np.ptp(xx)) + 1) / s if len(yy) else 0)
            if f < 5 and not len(yy):
                fault(n, 'frame %d is empty' % f)
            if len(yy) and f < 5:
                cy, cx = (l * (np.arange(s)[:, None] + .5)).sum() / l.sum() / s, (l * (np.arange(s)[None] + .5)).sum() / l.sum() / s
                if abs(cx - .5) > .09 or abs(cy - .5) > .09:
                    fault(n, 'frame %d is off centre (%.2f, %.2f)' % (f, cx, cy))
        if lum(a[:, :s]).max() < 245:
            fault(n, 'flash is not white')
        if not (means[2] > means[4] > means[5]):
            fault(n, 'does not die out: %s' % ['%.0f' % m for m in means])
        if lum(a[:, 5 * s:]).max() > 120 or means[5] > .25 * means[2] or means[5] <= 0:
            fault(n, 'last frame not nearly gone')
        if reach[3] < .75 or reach[3] < reach[1]:
            fault(n, 'fireball does not grow: %s' % ['%.2f' % r for r in reach])
        print('%s mean per frame %s' % (n, ' '.join('%.1f' % m for m in means)))


def words():
    n = '300.bmp'
    a = load(n, 272, 392)
    if a is None:
        return
    lit(n, a, 0, 0, 172, 48, 'STAGE', .15)
    black(n, a, 172, 0, 100, 96, 'right of STAGE')
    black(n, a, 0, 48, 272, 48, 'below STAGE')
    lit(n, a, 0, 96, 272, 48, 'SCORE ATTACK', .15)
    for i in range(5):
        lit(n, a, i * 48, 144, 48, 48, 'digit %d' % (i + 1), .08)
        for x in (i * 48, i * 48 + 47):
            black(n, a, x, 144, 1, 48, 'on the border of digit %d' % (i + 1))
    black(n, a, 240, 144, 32, 56, 'right of the digits')
    black(n, a, 0, 192, 272, 8, 'below the digits')
    lit(n, a, 0, 200, 180, 45, 'GAME', .15)
    lit(n, a, 0, 245, 180, 45, 'OVER', .15)
    black(n, a, 180, 200, 92, 93, 'right of GAME OVER')
    black(n, a, 0, 290, 272, 3, 'between GAME OVER and STAGE CLEAR')
    lit(n, a, 0, 293, 272, 60, 'STAGE CLEAR', .12)
    black(n, a, 0, 353, 272, 39, 'below STAGE CLEAR')
    # the digit is drawn 170 px right of the word: nothing of them may overlap
    word, digit = a[0:48, 168:180], a[144:192, 0:240]
    for i in range(5):
        over = (word[:, 2:10].max(-1) > 0) & (digit[:, i * 48:i * 48 + 8].max(-1) > 0)
        if over.any():
            fault(n, 'STAGE and digit %d overlap' % (i + 1))


def logo():
    n = 'LogoPic.gif'
    a = load(n, 195, 46)
    if a is None:
        return
    black(n, a, 192, 0, 3, 46, 'beyond column 191')
    lit(n, a, 0, 0, 192, 46, 'logo', .12)
    l = lum(a)
    xs = np.nonzero(l.max(0) > 60)[0]
    if xs.min() > 14 or xs.max() < 176:
        fault(n, 'does not fill its width: %d..%d' % (xs.min(), xs.max()))


for check in (background, title, info, explosions, words, logo):
    check()
print('scenery: %s' % ('%d faults' % len(faults) if faults else 'ok'))
sys.exit(1 if faults else 0)
