"""The game's own letter family: chamfered blade letters drawn as polygons.

Every letter is built on a grid that is W wide and H high (y down) from strokes
of width T with mitred corners and slanted ends. Outlines are plain polygons;
nothing is taken from a font.
"""
import math

import numpy as np
from PIL import Image, ImageDraw

T = 22.0        # stem width
C = 17.0        # chamfer of the corners
SL = 0.42       # slope of the slanted ends

WIDTHS = dict(I=22, L=74, E=78, F=76, J=72, T=84, A=88, V=88, M=100, N=86, W=112, K=86, Y=88, X=88)
WIDTHS['1'] = 44
WIDTHS[' '] = 40
WIDTHS['-'] = 46


def _off(p, q, d):
    l = math.hypot(q[0] - p[0], q[1] - p[1])
    return (-(q[1] - p[1]) / l * d, (q[0] - p[0]) / l * d)


def _meet(a, b, c, d):
    """Crossing of the lines ab and cd."""
    x1, y1, x2, y2 = *a, *b
    x3, y3, x4, y4 = *c, *d
    den = (x1 - x2) * (y3 - y4) - (y1 - y2) * (x3 - x4)
    if abs(den) < 1e-9:
        return b
    u = x1 * y2 - y1 * x2
    v = x3 * y4 - y3 * x4
    return ((u * (x3 - x4) - (x1 - x2) * v) / den, (u * (y3 - y4) - (y1 - y2) * v) / den)


def stroke(pts, t=T, s0=0.0, s1=0.0, closed=False):
    """Polygon of a polyline of width t; s0 / s1 shear the two ends."""
    pts = [tuple(map(float, p)) for p in pts]
    n = len(pts)
    sides = []
    for sgn in (1, -1):
        segs = []
        for i in range(n if closed else n - 1):
            p, q = pts[i], pts[(i + 1) % n]
            o = _off(p, q, sgn * t / 2)
            segs.append(((p[0] + o[0], p[1] + o[1]), (q[0] + o[0], q[1] + o[1])))
        m = len(segs)
        if closed:
            side = [_meet(*segs[i - 1], *segs[i]) for i in range(m)]
        else:
            a, b = segs[0]
            d = math.hypot(b[0] - a[0], b[1] - a[1])
            k = -sgn * s0 * t / 2
            side = [(a[0] - (b[0] - a[0]) / d * k, a[1] - (b[1] - a[1]) / d * k)]
            side += [_meet(*segs[i], *segs[i + 1]) for i in range(m - 1)]
            a, b = segs[-1]
            d = math.hypot(b[0] - a[0], b[1] - a[1])
            k = sgn * s1 * t / 2
            side.append((b[0] + (b[0] - a[0]) / d * k, b[1] + (b[1] - a[1]) / d * k))
        sides.append(side)
    if closed:
        return [('add', max(sides, key=_area)), ('cut', min(sides, key=_area))]
    return [('add', sides[0] + sides[1][::-1])]


def _area(p):
    return abs(sum(p[i - 1][0] * p[i][1] - p[i][0] * p[i - 1][1] for i in range(len(p)))) / 2


def letter(ch, W=None, H=100.0, t=T):
    """(width, [(op, polygon), ...]) of one letter."""
    if W is None:
        W = WIDTHS.get(ch, 84)
    W, H = float(W), float(H)
    h = t / 2
    c = C
    r, b = W - h, H - h
    m = H * 0.5
    add = lambda *p: [('add', list(p))]
    cut = lambda *p: [('cut', list(p))]
    o = []
    if ch == ' ':
        pass
    elif ch == 'T':
        o = stroke([(0, h), (W, h)], t, -SL, SL)
        o += stroke([(W / 2, t * 1.22), (W / 2, H)], t, 0, -SL)
    elif ch == 'A':
        k = t * 1.18
        o = add((0, H), (W / 2 - k * .62, 0), (W / 2 + k * .62, 0), (W, H), (W - k, H), (W / 2, k * 1.12), (k, H))
        y0, y1 = H * .64, H * .64 + t * .78
        e = lambda y: W / 2 + k * .62 + (W / 2 - k * .62) * y / H - k * .6
        o += add((W * .36, y0), (e(y0), y0), (e(y1), y1), (W * .36 - t * .32, y1))
    elif ch == 'V':
        k = t * 1.18
        o = add((0, 0), (k, 0), (W / 2, H - k * 1.12), (W - k, 0), (W, 0), (W / 2 + k * .62, H), (W / 2 - k * .62, H))
    elif ch == 'R' or ch == 'P':
        y2 = H * .56 if ch == 'R' else H * .60
        o = stroke([(0, h), (r - c, h), (r, h + c), (r, y2 - c), (r - c, y2), (t * 1.2, y2)], t, -SL, SL * -1)
        o += stroke([(h, t * 1.22), (h, H)], t, 0, -SL)
        if ch == 'R':
            o += add((W * .40, y2 + h * .9), (W * .40 + t * 1.2, y2 + h * .9), (W, H), (W - t * 1.22, H))
    elif ch == 'B':
        o = stroke([(0, h), (r - c, h), (r, h + c), (r, m - c * .7), (r - c * .7, m), (t * 1.2, m)], t, -SL, 0)
        o += stroke([(r - c * .9, m), (r, m + c * .9), (r, b - c), (r - c, b), (t * 1.2, b)], t, 0, 0)
        o += stroke([(h, t * 1.22), (h, H)], t, 0, 0)
    elif ch == 'N':
        o = stroke([(h, 0), (h, H)], t, 0, -SL) + stroke([(r, H), (r, 0)], t, 0, -SL)
        o += add((0, 0), (t * .9, 0), (W, H - t * .1), (W, H), (W - t * .9, H), (0, t * .1))
    elif ch == 'M':
        o = stroke([(h, 0), (h, H)], t, 0, -SL) + stroke([(r, 0), (r, H)], t, 0, SL)
        o += add((0, 0), (t, 0), (W / 2, H * .46), (W - t, 0), (W, 0), (W, t * .3), (W / 2, H * .46 + t * 1.5), (0, t * .3))
    elif ch == 'W':
        o = stroke([(h, 0), (h, H)], t, SL, 0) + stroke([(r, 0), (r, H)], t, -SL, 0)
        o += add((0, H), (t, H), (W / 2, H * .54), (W - t, H), (W, H), (W, H - t * .3), (W / 2, H * .54 - t * 1.5), (0, H - t * .3))
    elif ch in 'EF':
        if ch == 'E':
            o = stroke([(W, h), (h + c, h), (h, h + c), (h, b - c), (h + c, b), (W, b)], t, SL, SL)
        else:
            o = stroke([(W, h), (h + c, h), (h, h + c), (h, H)], t, SL, -SL)
        o += add((t * 1.22, m - t * .42), (W * .86, m - t * .42), (W * .86 - t * .4, m + t * .42), (t * 1.22, m + t * .42))
    elif ch == 'I':
        o = stroke([(W / 2, 0), (W / 2, H)], t, SL, -SL)
    elif ch == 'L':
        o = stroke([(h, 0), (h, b - c), (h + c, b), (W, b)], t, SL, SL)
    elif ch == 'J':
        o = stroke([(r, 0), (r, b - c), (r - c, b), (h + c, b), (h, b - c), (h, H * .62)], t, -SL, 0)
    elif ch in 'SZ':
        if ch == 'S':
            o = stroke([(W, h), (h + c, h), (h, h + c), (h, m - c), (h + c, m), (r - c, m), (r, m + c), (r, b - c),
                        (r - c, b), (0, b)], t, SL, SL)
        else:
            o = stroke([(0, h), (W, h)], t, -SL, 0) + stroke([(0, b), (W, b)], t, 0, SL)
            o += add((W - t * 1.4, t * .6), (W, t * .6), (t * 1.4, H - t * .6), (0, H - t * .6))
    elif ch in 'CG':
        o = stroke([(W, h), (h + c, h), (h, h + c), (h, b - c), (h + c, b), (W if ch == 'C' else r - c, b)]
                   + ([(r, b - c), (r, m + t * .06), (W * .46, m + t * .06)] if ch == 'G' else []), t, SL, SL if ch == 'C' else -SL)
    elif ch in 'OQD0':
        k = c
        if ch == 'D':
            o = stroke([(h, h), (r - k * 1.4, h), (r, h + k * 1.4), (r, b - k * 1.4), (r - k * 1.4, b), (h, b)], t, closed=True)
        else:
            o = stroke([(h + k, h), (r - k, h), (r, h + k), (r, b - k), (r - k, b), (h + k, b), (h, b - k), (h, h + k)], t, closed=True)
        if ch == 'Q':
            o += stroke([(W * .5, H * .62), (W, H)], t, 0, 0)
    elif ch == 'U':
        o = stroke([(h, 0), (h, b - c), (h + c, b), (r - c, b), (r, b - c), (r, 0)], t, SL, SL)
    elif ch == 'H':
        o = stroke([(h, 0), (h, H)], t, SL, -SL) + stroke([(r, 0), (r, H)], t, SL, -SL)
        o += stroke([(t * .9, m), (W - t * .9, m)], t * .86)
    elif ch == 'K':
        o = stroke([(h, 0), (h, H)], t, SL, -SL)
        o += add((t * 1.22, m), (W - t * 1.3, 0), (W, 0), (t * 2.1, m), (W, H), (W - t * 1.3, H))
    elif ch == 'X':
        k = t * 1.25
        o = add((0, 0), (k, 0), (W, H), (W - k, H)) + add((W, 0), (W - k, 0), (0, H), (k, H))
    elif ch == 'Y':
        k = t * 1.2
        o = add((0, 0), (k, 0), (W / 2, H * .40), (W - k, 0), (W, 0), (W / 2 + h, H * .56), (W / 2 + h, H), (W / 2 - h, H), (W / 2 - h, H * .56))
    elif ch == '1':
        o = stroke([(W - h, 0), (W - h, H)], t, 0, -SL)
        o += add((W - t, 0), (W - t * .2, 0), (W - t, t * 1.2), (0, t * 1.5), (0, t * .9))
    elif ch == '2':
        o = stroke([(0, h), (r - c, h), (r, h + c), (r, m - c * .4), (h, b - c * .6), (h, b)], t, -SL, 0)
        o += stroke([(0, b), (W, b)], t, 0, SL)
    elif ch == '3':
        o = stroke([(0, h), (r - c, h), (r, h + c), (r, m - c * .8), (r - c * .8, m), (W * .26, m)], t, -SL, -SL)
        o += stroke([(r - c * .8 - 1, m), (r - c * .8, m), (r, m + c * .8), (r, b - c), (r - c, b), (0, b)], t, 0, SL)
    elif ch == '4':
        o = stroke([(W * .74, 0), (W * .74, H)], t, 0, -SL)
        o += add((W * .74 - h, 0), (W * .74, 0), (t * 1.25, H * .62), (W, H * .62), (W - t * .4, H * .62 + t * .92), (0, H * .62 + t * .92), (0, H * .62))
    elif ch == '5':
        o = stroke([(W, h), (h, h), (h, m - t * .1), (r - c, m - t * .1), (r, m + c - t * .1), (r, b - c), (r - c, b), (0, b)], t, SL, SL)
    elif ch == '-':
        o = stroke([(0, m), (W, m)], t * .8, SL, SL)
    else:
        raise ValueError('no letter %r' % ch)
    return W, o


def layout(text, gap=17.0, H=100.0, t=T, widths=None, kern=None):
    """Polygons of a line of text. Gives (total width, [(op, polygon)])."""
    x, ops, prev = 0.0, [], None
    for i, ch in enumerate(text):
        W, o = letter(ch, (widths or {}).get(ch), H, t)
        if prev is not None:
            x += gap + (kern or KERN).get(prev + ch, 0)
        ops += [(op, [(px + x, py) for px, py in p]) for op, p in o]
        x += W
        prev = ch
    return x, ops


KERN = {'TA': -12, 'AT': -8, 'AR': -4, 'AC': -6, 'VE': -8, 'TT': 2, 'LE': -2, 'EA': 0, 'ST': 2, 'OV': -10, 'TE': -2, 'AV': -22, 'VA': -22,
        'AG': -8, 'GA': -6, 'CK': 0, 'AK': -2, 'IL': 0, 'RN': 0, 'CL': 0, 'AM': -6, 'AL': -4}


def raster(ops, w, h, ox, oy, sx, sy, ss):
    """Coverage mask (bool, h*ss x w*ss) of polygons placed at (ox, oy) px."""
    im = Image.new('L', (w * ss, h * ss), 0)
    d = ImageDraw.Draw(im)
    # letters are drawn one after another, so that a counter cuts only its own
    for op, p in ops:
        d.polygon([((ox + x * sx) * ss - .5, (oy + y * sy) * ss - .5) for x, y in p], fill=255 if op == 'add' else 0)
    return np.asarray(im) > 127


def distance(mask, R):
    """Euclidean distance to the outside, capped at R."""
    h, w = mask.shape
    big = float(R + 1)
    col = np.where(mask, big, 0.0)
    for k in range(1, R + 1):                       # distance along columns
        up = np.full_like(col, 0.0)
        up[k:] = np.where(mask[:-k], big, 0.0)
        dn = np.full_like(col, 0.0)
        dn[:-k] = np.where(mask[k:], big, 0.0)
        hit = (up == 0) | (dn == 0)
        col = np.where(hit & (col > k), float(k), col)
    d2 = col * col
    out = d2.copy()
    for k in range(1, R + 1):
        sh = np.zeros_like(d2)
        sh[:, k:] = d2[:, :-k]
        np.minimum(out, sh + k * k, out=out)
        sh = np.zeros_like(d2)
        sh[:, :-k] = d2[:, k:]
        np.minimum(out, sh + k * k, out=out)
    return np.sqrt(np.minimum(out, R * R))
