#!/usr/bin/python3
"""Render the sprite scenes and pack the sprite sheets.

Writes assets/pictures/{Chr.bmp, MyShotPic.gif, EneShotPic.gif, 250.bmp,
200.bmp, 201.bmp, 202.bmp, icon.png} and content/art/sheet.lua. Renders are
kept in a cache directory (TARNVEIL_ART_CACHE, else under the temporary
directory), keyed by the scene text, so a second run is quick.
"""
import numpy as np
from PIL import Image

import pack

SHARPEN = 0.35

# (name, family, scene, KIND in the scene, frames); the order is the kind number
SMALL, MID, BIG = "enemies_small.pov", "enemies_mid.pov", "enemies_big.pov"
ENEMIES = [
    ("scout_dart", "scout", SMALL, 0, 4),
    ("scout_wasp", "scout", SMALL, 1, 4),
    ("scout_disc", "scout", SMALL, 2, 5),
    ("scout_sickle", "scout", SMALL, 3, 4),
    ("scout_needle", "scout", SMALL, 4, 4),
    ("fighter_talon", "fighter", SMALL, 5, 4),
    ("fighter_manta", "fighter", SMALL, 6, 4),
    ("fighter_cross", "fighter", SMALL, 7, 5),
    ("fighter_kite", "fighter", SMALL, 8, 4),
    ("fighter_fang", "fighter", SMALL, 9, 4),
    ("mine_spike", "mine", SMALL, 10, 4),
    ("mine_orb", "mine", SMALL, 11, 4),
    ("mine_star", "mine", SMALL, 12, 3),
    ("turret_dome", "turret", SMALL, 13, 4),
    ("mine_gyre", "mine", SMALL, 14, 3),
    ("bomber_rack", "bomber", SMALL, 15, 3),
    ("bomber_beetle", "bomber", MID, 0, 4),
    ("bomber_moth", "bomber", MID, 1, 4),
    ("turret_quad", "turret", MID, 2, 3),
    ("mine_ring", "mine", MID, 3, 3),
    ("fighter_lance", "fighter", MID, 4, 3),
    ("turret_iris", "turret", MID, 5, 4),
    ("bomber_slug", "bomber", MID, 6, 3),
    ("carrier_crab", "carrier", MID, 7, 2),
    ("carrier_barge", "carrier", BIG, 0, 3),
    ("carrier_hive", "carrier", BIG, 1, 3),
    ("bomber_fortress", "bomber", BIG, 2, 2),
    ("turret_citadel", "turret", BIG, 3, 2),
    ("scout_halberd", "scout", MID, 8, 2),
]
# cell size -> the sprite rows (y) that may be filled, left to right
ROWS = {32: [0, 64, 128], 48: [192, 288], 64: [384]}
SHEET_W, SHEET_H = 672, 512
CELL = {SMALL: 32, MID: 48, BIG: 64}

BOSSES = [
    ("boss_pincer", "bosses_1.pov", 105, 150, 2, 200, (210, 300)),
    ("boss_eye", "bosses_2.pov", 160, 160, 1, 201, (160, 320)),
    ("boss_dreadnought", "bosses_3.pov", 300, 200, 2, 202, (600, 400)),
]


def place():
    """Kind list with sheet positions: rows are filled in the given order."""
    fill = {c: [[y, 0] for y in ys] for c, ys in ROWS.items()}
    out = []
    for name, family, scene, kind, frames in ENEMIES:
        c = CELL[scene]
        for row in fill[c]:
            if row[1] + frames * c <= SHEET_W:
                out.append((name, family, scene, kind, frames, row[1], row[0], c))
                row[1] += frames * c
                break
        else:
            raise SystemExit("no room on the enemy sheet for " + name)
    return out


def enemies(kinds):
    jobs = [(scene, c, c, dict(KIND=kind, F=f, N=frames))
            for _, _, scene, kind, frames, _, _, c in kinds for f in range(frames)]
    pics = iter(pack.render_all(jobs))
    sheet = pack.Sheet(SHEET_W, SHEET_H)
    for _, _, _, _, frames, sx, sy, c in kinds:
        for f in range(frames):
            s, m = pack.cut(next(pics), sharpen=SHARPEN)
            sheet.put(sx + f * c, sy, s, m, 0, c)
    sheet.save_bmp("250.bmp")


def bosses():
    for name, scene, w, h, frames, number, size in BOSSES:
        pics = pack.render_all([(scene, w, h, dict(F=f, N=frames)) for f in range(frames)])
        sheet = pack.Sheet(*size)
        for f, p in enumerate(pics):
            s, m = pack.cut(p, sharpen=SHARPEN)
            sheet.put(f * w, 0, s, m, 0, h)
        sheet.save_bmp("%d.bmp" % number)


def ship():
    pics = pack.render_all([("ship.pov", 64, 64, dict(F=f, N=3)) for f in range(3)])
    sheet = pack.Sheet(128, 192)
    for f, p in enumerate(pics):
        s, m = pack.cut(p, sharpen=SHARPEN)
        sheet.put(0, 64 * f, s, m, 64, 0)
    sheet.save_bmp("Chr.bmp")
    icon(pics[0])


def icon(rgba):
    """The level ship at 32 x 32 with at most 16 colours, 0 = transparent."""
    v = pack.to_linear(rgba[..., :3]) * rgba[..., 3:4]
    v = v.reshape(32, 2, 32, 2, 3).mean((1, 3))
    a = rgba[..., 3:4].reshape(32, 2, 32, 2, 1).mean((1, 3))
    small = np.concatenate([pack.to_srgb(np.where(a > 1e-3, v / np.maximum(a, 1e-3), 0)), a], 2)
    s, m = pack.cut(small.astype(np.float32), threshold=0.45, sharpen=0.5)
    im, pal = pack.pal_image(s, 16)
    im.save(pack.PICTURES / "icon.png", "PNG", bits=4, transparency=0)


def shots():
    def art(kind, w, h):
        return pack.render("shots.pov", w, h, ss=8, KIND=kind)

    lance = pack.over_black(art(0, 16, 32))
    sheet = pack.Sheet(16, 32)
    sheet.or_put(0, 0, lance)
    sheet.save_gif("MyShotPic.gif")

    sheet = pack.Sheet(96, 80)
    sheet.or_put(16, 8, pack.over_black(art(1, 8, 8)))
    sheet.put(0, 0, *pack.cut(art(2, 8, 16), threshold=0.4), 8, 0)
    sheet.put(32, 0, *pack.cut(art(3, 16, 16), threshold=0.4), 16, 0)
    sheet.put(0, 16, *pack.cut(art(4, 32, 32), threshold=0.4), 0, 32)
    sheet.put(32, 16, *pack.cut(art(5, 16, 16), threshold=0.4), 16, 0)
    sheet.put(32, 32, *pack.cut(art(6, 16, 16), threshold=0.4), 16, 0)
    for k in range(5):
        sheet.or_put(64, 16 * k, pack.over_black(art(10 + k, 16, 16)))
    sheet.or_put(32, 48, pack.over_black(art(8, 16, 32)))
    sheet.save_gif("EneShotPic.gif")


def write_sheet(kinds):
    rows = ["-- Sprite kinds in kind order: position on the sheet, size, frames.",
            "-- Frames lie side by side; the mask row is h below the sprite row.",
            "return {"]
    for i, (name, family, _, _, frames, sx, sy, c) in enumerate(kinds):
        rows.append('  {kind=%d, name="%s", family="%s", sheet=250, sx=%d, sy=%d, w=%d, h=%d, frames=%d},'
                    % (i, name, family, sx, sy, c, c, frames))
    for i, (name, _, w, h, frames, number, _) in enumerate(BOSSES):
        rows.append('  {kind=%d, name="%s", family="boss", sheet=%d, sx=0, sy=0, w=%d, h=%d, frames=%d},'
                    % (37 + i, name, number, w, h, frames))
    rows.append("}")
    (pack.ART / "sheet.lua").write_text("\n".join(rows) + "\n")


def main():
    pack.PICTURES.mkdir(parents=True, exist_ok=True)
    kinds = place()
    write_sheet(kinds)
    ship()
    shots()
    enemies(kinds)
    bosses()


if __name__ == "__main__":
    main()
