#!/usr/bin/python3
"""Contact sheets of the packed sprites, three times enlarged, drawn the way
the game draws them (mask AND, image OR) on black, on a bluish starfield and
on mid-grey. Usage: contact_sprites.py OUTPUT_DIRECTORY"""
import re
import sys
from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw

import pack

OUT = Path(sys.argv[1]) if len(sys.argv) > 1 else pack.CACHE / "contact"
SCALE = 3


def read(name):
    return np.asarray(Image.open(pack.PICTURES / name).convert("RGB"))


def grounds(w, h):
    yield "black", np.zeros((h, w, 3), np.uint8)
    yield "stars", pack.starfield(w, h)
    yield "grey", np.full((h, w, 3), 118, np.uint8)


def out(name, rows, gap=3, labels=None):
    """rows: list of lists of (image, mask or None)."""
    w = max(sum(i.shape[1] + gap for i, _ in r) for r in rows) + gap
    h = sum(max(i.shape[0] for i, _ in r) + gap for r in rows) + gap
    for ground, bg in grounds(w, h):
        y = gap
        for r in rows:
            x = gap
            for i, m in r:
                pack.blit(bg, x, y, i, m)
                x += i.shape[1] + gap
            y += max(i.shape[0] for i, _ in r) + gap
        im = Image.fromarray(bg).resize((w * SCALE, h * SCALE), Image.Resampling.NEAREST)
        if labels:
            d = ImageDraw.Draw(im)
            for tx, ty, text in labels:
                d.text((tx * SCALE, ty * SCALE), text, fill=(255, 255, 0))
        im.save(OUT / ("%s_%s.png" % (name, ground)))


def main():
    OUT.mkdir(parents=True, exist_ok=True)
    table = []
    for line in (pack.ART / "sheet.lua").read_text().splitlines():
        kv = dict(re.findall(r'(\w+)="?(\w+)"?', line))
        if "sx" in kv:
            table.append(kv)
    by = {}
    for t in table:
        a = read(t["sheet"] + ".bmp")
        w, h = int(t["w"]), int(t["h"])
        fr = []
        for f in range(int(t["frames"])):
            x, y = int(t["sx"]) + f * w, int(t["sy"])
            fr.append((a[y:y + h, x:x + w], a[y + h:y + 2 * h, x:x + w]))
        key = "boss" + t["sheet"] if t["sheet"] != "250" else "enemies%d" % w
        by.setdefault(key, []).append(fr)
    for key, rows in by.items():
        if key.startswith("enemies") and len(rows) > 5:   # two columns
            n = -(-len(rows) // 2)
            pad = max(len(r) for r in rows[:n])
            blank = (np.zeros_like(rows[0][0][0]), None)
            rows = [rows[i] + [blank] * (pad - len(rows[i])) + (rows[n + i] if n + i < len(rows) else [])
                    for i in range(n)]
        out(key, rows)
    a = read("Chr.bmp")
    rows = [[(a[64 * f:64 * f + 64, :64], a[64 * f:64 * f + 64, 64:]) for f in range(3)]]
    out("ship", rows)
    e, p = read("EneShotPic.gif"), read("MyShotPic.gif")

    def c(x, y, w, h):
        return e[y:y + h, x:x + w]
    out("shots", [
        [(p, None), (p, None), (c(32, 48, 16, 32), None), (c(0, 16, 32, 32), c(0, 48, 32, 32))],
        [(c(16, 8, 8, 8), None), (c(0, 0, 8, 16), c(8, 0, 8, 16)), (c(32, 0, 16, 16), c(48, 0, 16, 16)),
         (c(32, 16, 16, 16), c(48, 16, 16, 16)), (c(32, 32, 16, 16), c(48, 32, 16, 16))],
        [(c(64, 16 * k, 16, 16), None) for k in range(5)]])
    print("contact sheets in", OUT)


if __name__ == "__main__":
    main()
