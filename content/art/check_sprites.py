#!/usr/bin/python3
"""Check the sprite sheets: file formats, sizes, masks, frames.

Reads the files' bytes, not the script's intentions. Exits 1 with one line per
fault. An optional argument names another directory of pictures to check.
"""
import re
import struct
import sys
from pathlib import Path

import numpy as np
from PIL import Image

ART = Path(__file__).resolve().parent
PIC = Path(sys.argv[1]) if len(sys.argv) > 1 else ART.parents[1] / "assets" / "pictures"
faults = []


def fault(text):
    faults.append(text)


def load_bmp(name, w, h):
    p = PIC / name
    if not p.is_file():
        return fault(name + ": missing")
    b = p.read_bytes()
    if b[:2] != b"BM":
        return fault(name + ": not a BMP")
    off, hs, bw, bh, planes, bits, comp = struct.unpack("<IIiiHHI", b[10:34])
    if (bw, bh) != (w, h):
        return fault("%s: %dx%d instead of %dx%d" % (name, bw, bh, w, h))
    if bits != 8 or comp != 0 or planes != 1:
        return fault("%s: %d bits, compression %d" % (name, bits, comp))
    if len(b) < off + ((w + 3) // 4 * 4) * h:
        return fault(name + ": truncated")
    palette(name, [tuple(b[14 + hs + 4 * i:14 + hs + 4 * i + 3]) for i in range((off - 14 - hs) // 4)])
    return np.asarray(Image.open(p).convert("RGB")).astype(int)


def palette(name, colours):
    """Black comes first and white is there."""
    if colours[0] != (0, 0, 0):
        fault("%s: palette entry 0 is %s" % (name, colours[0]))
    if (255, 255, 255) not in colours:
        fault("%s: no white in the palette" % name)


def load_gif(name, w, h):
    p = PIC / name
    if not p.is_file():
        return fault(name + ": missing")
    b = p.read_bytes()
    if b[:3] != b"GIF":
        return fault(name + ": not a GIF")
    if struct.unpack("<HH", b[6:10]) != (w, h):
        return fault("%s: %dx%d instead of %dx%d" % ((name,) + struct.unpack("<HH", b[6:10]) + (w, h)))
    im = Image.open(p)
    if getattr(im, "n_frames", 1) != 1 or im.mode not in ("P", "L"):
        return fault(name + ": not one palette frame")
    if "transparency" in im.info:
        fault(name + ": has a transparent colour")
    n = 2 << (b[10] & 7)
    if not b[10] & 0x80:
        fault(name + ": no global palette")
    else:
        palette(name, [tuple(b[13 + 3 * i:16 + 3 * i]) for i in range(n)])
    return np.asarray(im.convert("RGB")).astype(int)


def masked(name, img, mask, fill):
    """Complementary image and mask; gives the solid area."""
    white = (mask == 255).all(2)
    black = (mask == 0).all(2)
    if not (white | black).all():
        fault("%s: %d mask pixels neither black nor white" % (name, (~(white | black)).sum()))
    lit = (img != 0).any(2)
    if (white & lit).any():
        fault("%s: %d image pixels outside the mask" % (name, (white & lit).sum()))
    if (black & ~lit).any():
        fault("%s: %d pure black pixels inside the shape" % (name, (black & ~lit).sum()))
    if (black.mean() < fill):
        fault("%s: fills only %.0f%% of its cell" % (name, 100 * black.mean()))
    ys, xs = np.nonzero(black)
    return black, (xs.min(), ys.min(), xs.max(), ys.max()) if len(xs) else None


def reach(name, box, w, h, share):
    if not box or box[2] - box[0] + 1 < share * w or box[3] - box[1] + 1 < share * h:
        fault("%s: spans %s, too little of its %dx%d cell" % (name, box, w, h))


def differ(name, frames):
    for i in range(len(frames)):
        for j in range(i):
            d = (np.abs(frames[i] - frames[j]).sum(2) > 24).sum()
            if d < 8:
                fault("%s: frames %d and %d differ in only %d pixels" % (name, j, i, d))


def core(name, px, box, floor=200):
    """The brightest spot must lie in the part that hits."""
    lum = px @ np.array([0.3, 0.59, 0.11])
    x, y, w, h = box
    if lum[y:y + h, x:x + w].max() < floor:
        fault("%s: no bright core in its hit box" % name)


# the ship
a = load_bmp("Chr.bmp", 128, 192)
if a is not None:
    frames = []
    for f in range(3):
        s, m = a[64 * f:64 * f + 64, :64], a[64 * f:64 * f + 64, 64:]
        solid, box = masked("ship frame %d" % f, s, m, 0.25)
        reach("ship frame %d" % f, box, 64, 64, 0.7)
        if solid[24:42, 16:48].mean() < 0.85:
            fault("ship frame %d: body does not fill the hit box (%.2f)" % (f, solid[24:42, 16:48].mean()))
        if (m[54:] == 0).any() or s[54:].any():
            fault("ship frame %d: drawn below row 53, which is off the screen at its home place" % f)
        frames.append(s)
    differ("ship", frames)
    level = (frames[0] != 0).any(2)
    if (level != level[:, ::-1]).mean() > 0.02:
        fault("ship: level frame is not symmetric")

# the player's shot
p = load_gif("MyShotPic.gif", 16, 32)
if p is not None:
    if (p.sum(2) > 0).sum() < 60:
        fault("player shot: nearly empty")
    if p[..., 2].sum() < p[..., 0].sum() * 1.2:
        fault("player shot: not blue or cyan")

# the enemies' shots
e = load_gif("EneShotPic.gif", 96, 80)
if e is not None:
    used = np.zeros((80, 96), bool)

    def cell(x, y, w, h):
        used[y:y + h, x:x + w] = True
        return e[y:y + h, x:x + w]
    looks = []
    for kind, sx, sy, mx, my, w, h, hit in (
            (2, 0, 0, 8, 0, 8, 16, (0, 0, 8, 8)), (3, 32, 0, 48, 0, 16, 16, (4, 4, 8, 8)),
            (4, 0, 16, 0, 48, 32, 32, (12, 12, 20, 20)), (5, 32, 16, 48, 16, 16, 16, (4, 4, 8, 8)),
            (6, 32, 32, 48, 32, 16, 16, (4, 4, 8, 8))):
        s, m = cell(sx, sy, w, h), cell(mx, my, w, h)
        solid, box = masked("enemy shot %d" % kind, s, m, 0.2)
        reach("enemy shot %d" % kind, box, w, h, 10 / 16)
        core("enemy shot %d" % kind, s, hit)
        # an outline on any background: the edge must be darker than the core
        pad = np.pad(solid, 1)
        inner = pad[1:-1, 1:-1] & pad[:-2, 1:-1] & pad[2:, 1:-1] & pad[1:-1, :-2] & pad[1:-1, 2:]
        lum = s @ np.array([0.3, 0.59, 0.11])
        if lum[solid & ~inner].mean() > 0.55 * lum[inner].max():
            fault("enemy shot %d: no dark rim" % kind)
    s = cell(16, 8, 8, 8)
    core("enemy shot 1", s, (0, 0, 5, 5))
    s = cell(32, 48, 16, 32)
    core("enemy shot 8", s, (4, 4, 8, 8))
    last = None
    for k in range(5):
        v = cell(64, 16 * k, 16, 16).sum()
        if v == 0 or (last is not None and v >= last):
            fault("trail image %d is not dimmer than the one before" % k)
        last = v
    if (e[~used] != 0).any():
        fault("enemy shots: %d stray pixels" % (e[~used] != 0).any(1).sum())

# the enemies and bosses, by the table that the game data is made from
table = []
for line in (ART / "sheet.lua").read_text().splitlines():
    kv = dict(re.findall(r'(\w+)="?(\w+)"?', line))
    if "sx" in kv:
        table.append({k: int(v) if v.isdigit() else v for k, v in kv.items()})
sheets = {250: load_bmp("250.bmp", 672, 512), 200: load_bmp("200.bmp", 210, 300),
          201: load_bmp("201.bmp", 160, 320), 202: load_bmp("202.bmp", 600, 400)}
cover = {n: np.zeros(s.shape[:2], int) for n, s in sheets.items() if s is not None}
small = [t for t in table if t["sheet"] == 250]
if [t["kind"] for t in small] != list(range(len(small))) or not 24 <= len(small) <= 37:
    fault("sheet.lua: enemy kinds are not 0..n with 24 <= n+1 <= 37")
if [t["kind"] for t in table if t["sheet"] != 250] != [37, 38, 39]:
    fault("sheet.lua: boss kinds are not 37, 38, 39")
if len({t["name"] for t in table}) != len(table):
    fault("sheet.lua: names are not unique")
shapes = {}
for t in table:
    a = sheets[t["sheet"]]
    if a is None:
        continue
    w, h, frames = t["w"], t["h"], []
    boss = t["sheet"] != 250
    if not boss and not 2 <= t["frames"] <= 8:
        fault("%s: %d frames" % (t["name"], t["frames"]))
    for f in range(t["frames"]):
        x, y = t["sx"] + f * w, t["sy"]
        if x + w > a.shape[1] or y + 2 * h > a.shape[0]:
            fault("%s frame %d: outside the sheet" % (t["name"], f))
            continue
        cover[t["sheet"]][y:y + 2 * h, x:x + w] += 1
        s, m = a[y:y + h, x:x + w], a[y + h:y + 2 * h, x:x + w]
        solid, box = masked("%s frame %d" % (t["name"], f), s, m, 0.55 if boss else 0.24)
        reach("%s frame %d" % (t["name"], f), box, w, h, 0.95 if boss else 0.72)
        lum = (s @ np.array([0.3, 0.59, 0.11]))[solid]
        if not len(lum):
            continue
        if lum.mean() < 45:
            fault("%s frame %d: too dark (mean %.0f)" % (t["name"], f, lum.mean()))
        if lum.std() < 22:
            fault("%s frame %d: too flat (spread %.0f)" % (t["name"], f, lum.std()))
        frames.append(s)
        if f == 0:
            shapes.setdefault((w, h), []).append((t["name"], solid))
    differ(t["name"], frames)
for n, c in cover.items():
    if (c > 1).any():
        fault("sheet %d: kinds overlap" % n)
    if (sheets[n][c == 0] != 0).any():
        fault("sheet %d: pixels outside every kind" % n)
for size, group in shapes.items():
    for i in range(len(group)):
        for j in range(i):
            d = (group[i][1] != group[j][1]).mean()
            if d < 0.10:
                fault("%s and %s have nearly the same outline (%.0f%%)" % (group[j][0], group[i][0], 100 * d))

# the icon
p = PIC / "icon.png"
if not p.is_file():
    fault("icon.png: missing")
else:
    im = Image.open(p)
    if im.size != (32, 32) or im.mode != "P":
        fault("icon.png: %s %s instead of 32x32 palette" % (im.size, im.mode))
    elif len(np.unique(np.asarray(im))) > 16 or len(im.getpalette()) > 48:
        fault("icon.png: more than 16 colours")
    elif (np.asarray(im.convert("RGBA"))[..., 3] > 0).mean() < 0.2:
        fault("icon.png: nearly empty")

for t in faults:
    print("FAULT", t)
print("%d kinds, %d frames checked, %d faults" % (len(table), sum(t["frames"] for t in table), len(faults)))
sys.exit(1 if faults else 0)
