"""Lattice noise that repeats exactly, in two and three dimensions (numpy)."""
import numpy as np


def _fade(t):
    return t * t * t * (t * (t * 6 - 15) + 10)


def perlin(x, y, px, py, seed):
    """Gradient noise at (x, y), period px by py cells, about -1..1."""
    r = np.random.RandomState(seed)
    a = r.uniform(0, 2 * np.pi, (py, px))
    gx, gy = np.cos(a), np.sin(a)
    x0, y0 = np.floor(x).astype(int), np.floor(y).astype(int)
    fx, fy = x - x0, y - y0

    def dot(i, j):
        xi, yi = (x0 + i) % px, (y0 + j) % py
        return gx[yi, xi] * (fx - i) + gy[yi, xi] * (fy - j)
    u, v = _fade(fx), _fade(fy)
    a, b = dot(0, 0), dot(0, 1)
    a = a + u * (dot(1, 0) - a)
    b = b + u * (dot(1, 1) - b)
    return 1.5 * (a + v * (b - a))


def fbm(x, y, px, py, seed, octaves=5, gain=0.5, ridged=False):
    """Sum of octaves; x, y in cells of the first octave, period px by py."""
    s, amp, tot = 0.0, 1.0, 0.0
    prev = 1.0
    for o in range(octaves):
        n = perlin(x * 2 ** o, y * 2 ** o, px * 2 ** o, py * 2 ** o, seed + 101 * o)
        if ridged:
            n = (1 - np.abs(n)) ** 2
            s = s + amp * n * prev
            prev = np.clip(n * 1.2, 0, 1)
        else:
            s = s + amp * n
        tot += amp
        amp *= gain
    return s / tot


class Volume:
    """Periodic 3-D value noise sampled with smooth interpolation."""

    def __init__(self, n, seed):
        self.n = n
        self.v = np.random.RandomState(seed).uniform(-1, 1, (n, n, n)).astype(np.float32)

    def __call__(self, x, y, z):
        n, v = self.n, self.v
        xi, yi, zi = (np.floor(c).astype(np.int32) for c in (x, y, z))
        fx, fy, fz = _fade(x - xi), _fade(y - yi), _fade(z - zi)
        x0, x1, y0, y1, z0, z1 = xi % n, (xi + 1) % n, yi % n, (yi + 1) % n, zi % n, (zi + 1) % n
        c00 = v[z0, y0, x0] * (1 - fx) + v[z0, y0, x1] * fx
        c01 = v[z0, y1, x0] * (1 - fx) + v[z0, y1, x1] * fx
        c10 = v[z1, y0, x0] * (1 - fx) + v[z1, y0, x1] * fx
        c11 = v[z1, y1, x0] * (1 - fx) + v[z1, y1, x1] * fx
        c0 = c00 * (1 - fy) + c01 * fy
        c1 = c10 * (1 - fy) + c11 * fy
        return c0 * (1 - fz) + c1 * fz

    def fbm(self, x, y, z, octaves=4, gain=0.55):
        s, amp, tot = 0.0, 1.0, 0.0
        for o in range(octaves):
            s = s + amp * self(x * 2 ** o + 7.3 * o, y * 2 ** o + 3.1 * o, z * 2 ** o + 5.7 * o)
            tot += amp
            amp *= gain
        return s / tot


def smooth(a, b, x):
    t = np.clip((x - a) / (b - a), 0, 1)
    return t * t * (3 - 2 * t)


def mix(a, b, t):
    t = np.asarray(t)
    if t.ndim == 2:
        t = t[..., None]
    return np.asarray(a, float) * (1 - t) + np.asarray(b, float) * t


def ramp(t, stops):
    """Colour ramp: stops = [(position, (r, g, b)), ...], t any shape."""
    p = [s[0] for s in stops]
    return np.stack([np.interp(t, p, [s[1][k] for s in stops]) for k in range(3)], -1)


def blur(a, r, wrap_y=False):
    """Gaussian blur of a 2-D array with standard deviation r (pixels)."""
    if r <= 0:
        return a
    k = int(3 * r) + 1
    g = np.exp(-0.5 * (np.arange(-k, k + 1) / r) ** 2)
    g /= g.sum()
    out = np.zeros_like(a, dtype=float)
    p = np.pad(a, ((k, k), (0, 0)), 'wrap' if wrap_y else 'edge')
    for i, w in enumerate(g):
        out += w * p[i:i + a.shape[0]]
    p = np.pad(out, ((0, 0), (k, k)), 'edge')
    out = np.zeros_like(a, dtype=float)
    for i, w in enumerate(g):
        out += w * p[:, i:i + a.shape[1]]
    return out


def shrink(a, ss):
    """Average ss x ss blocks."""
    h, w = a.shape[0] // ss, a.shape[1] // ss
    return a.reshape((h, ss, w, ss) + a.shape[2:]).mean((1, 3))


def clean_for_or(px, floor=20):
    """Make an RGB picture behave under bitwise OR: very dim values go to black
    and the low bits, which would speckle over a moving ground, are dropped."""
    v = np.clip(np.asarray(px, float), 0, 255)
    top = v.max(-1, keepdims=True)
    v = v * np.clip((top - floor) / np.maximum(top, 1) * (1 + floor / 235.0), 0, None) ** .8
    low = np.floor(v / 16 + .5) * 16
    high = np.floor(v / 8 + .5) * 8
    v = np.where(v < 112, low, high)
    v = np.where(v > 248, 255, v)
    return np.clip(v, 0, 255).astype(np.uint8)
