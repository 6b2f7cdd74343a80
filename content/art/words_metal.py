"""Bevelled metal rendering of the letter family (numpy, supersampled)."""
import numpy as np

from scenery_noise import blur, ramp, shrink, smooth
from words_letters import distance

LIGHT = np.array([-0.55, -0.62, 0.56])
LIGHT = LIGHT / np.linalg.norm(LIGHT)

# what the metal mirrors, from "floor" (-1) to "sky" (+1)
COOL = [(-1.0, (10, 16, 40)), (-.35, (26, 60, 104)), (-.06, (58, 128, 176)), (0.0, (24, 52, 92)),
        (.10, (66, 122, 176)), (.45, (150, 208, 236)), (.8, (226, 246, 255)), (1.0, (255, 255, 255))]
WARM = [(-1.0, (36, 10, 8)), (-.35, (110, 36, 16)), (-.06, (190, 92, 34)), (0.0, (96, 34, 18)),
        (.10, (186, 96, 40)), (.45, (244, 186, 96)), (.8, (255, 238, 190)), (1.0, (255, 255, 245))]


def metal(mask, ss, bevel, y0, y1, env=COOL, edge=(190, 245, 255)):
    """RGB 0..255 of a bevelled shape at the supersampled size.
    bevel in final pixels; y0..y1 are the rows (final px) of the text line."""
    R = int(round(bevel * ss))
    d = distance(mask, R + 2) / float(R)
    prof = np.minimum(d, 1.0)
    hgt = blur(prof, 0.35 * ss) * R * 0.9
    gy, gx = np.gradient(hgt)
    nz = 1.0 / np.sqrt(gx * gx + gy * gy + 1)
    nx, ny = -gx * nz, -gy * nz
    h, w = mask.shape
    yy = (np.arange(h)[:, None] / ss - y0) / float(y1 - y0) * np.ones((1, w))
    xx = np.arange(w)[None, :] / ss * np.ones((h, 1))
    # the flat face mirrors a horizon that runs through the line of text
    flat = nz > 0.985
    hor = 0.5 + 0.035 * np.sin(xx / 13.0) + 0.02 * np.sin(xx / 5.3)
    above = 0.22 + 0.75 * np.clip(1 - yy / hor, 0, 1) ** 1.2
    below = np.where(yy > .97, -.3, -0.75 + 0.72 * smooth(0, .9, (yy - hor) / (1 - hor)))
    facev = np.where(yy < hor, above, below)
    lam = nx * LIGHT[0] + ny * LIGHT[1] + nz * LIGHT[2]
    bev = np.clip((lam - 0.30) * 1.5, -1, 1)
    v = np.where(flat, facev, bev)
    v = blur(v, 0.25 * ss)
    col = ramp(v, env)
    # thin bright line where the bevel meets the face
    line = np.exp(-((d - 1.0) / 0.16) ** 2) * (lam > 0.2)
    col = np.clip(col + line[..., None] * np.array(edge) * 0.35, 0, 255)
    return col


def place(m, w, h, ss, bevel, y0, y1, env, halo):
    """RGB float (h, w, 3) on black of a supersampled mask, with an optional
    halo (colour, radius, strength) around it."""
    col = metal(m, ss, bevel, y0, y1, env)
    a = shrink(m.astype(float), ss)
    rgb = shrink(np.where(m[..., None], col, 0) ** 2.0, ss) ** 0.5
    if halo is not None:
        c, rad, amt = halo
        g = blur(a, rad) * amt
        rgb = np.maximum(rgb, (np.clip(g, 0, 1) * (1 - a))[..., None] * np.array(c))
    return rgb
