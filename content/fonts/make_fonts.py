#!/usr/bin/python3
"""Build the two bitmap fonts of the game (8-bit BMP sheet + plain text table).

    status  fixed 6 px advance, 1-bit, printable ASCII      (status line)
    staff   bold 12 px Japanese proportional sans, 1-bit    (staff roll)

Deterministic; runs from any directory; needs only PIL and the two Debian
font packages named in README.md.  `make_fonts.py --check` re-reads the files
that were written and fails (exit 1) when something is wrong with them.
"""
import os
import struct
import sys
import unicodedata
from PIL import Image, ImageDraw, ImageFont

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, '..', '..', 'assets', 'fonts')
MONO = '/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf'
SANS = '/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc'  # face 0 = JP

ASCII = [chr(c) for c in range(0x20, 0x7f)]
HIRA = [chr(c) for c in range(0x3041, 0x3097)] + [chr(c) for c in (0x309b, 0x309c, 0x309d, 0x309e)]
KATA = [chr(c) for c in range(0x30a1, 0x30ff)]          # includes U+30FB and the long-vowel mark U+30FC
HALF = [chr(c) for c in range(0xff61, 0xffa0)]
FULLASCII = [chr(c) for c in range(0xff01, 0xff5f) if c not in (0xff3e, 0xff40)]
PUNCT = list('\u3000、。「」『』〜…')
KANJI = list('隊長星雲夜空音楽試験')

# Glyphs drawn by hand; `top` is the row of the cell where the drawing starts.
sys.dont_write_bytecode = True
sys.path.insert(0, HERE)
from hand_glyphs import STATUS_HAND, STAFF_HAND  # noqa: E402


def raster(font, ch, w, h, x, base):
    """1-bit bitmap (list of rows) of a glyph, its baseline at row `base`."""
    im = Image.new('1', (w, h), 0)
    ImageDraw.Draw(im).text((x, base), ch, fill=1, font=font, anchor='ls')
    px = im.load()
    return [[1 if px[i, j] else 0 for i in range(w)] for j in range(h)]


def embolden(g):
    """Thicken every stroke by one pixel to the right, but never close a gap."""
    out = []
    for r in g:
        n = list(r)
        for x in range(len(r) - 1):
            if r[x] and not r[x + 1] and not (x + 2 < len(r) and r[x + 2]):
                n[x + 1] = 1
        out.append(n)
    return out


DAKUTEN = ['#.#.', '#.#.', '.#.#']
HANDAKUTEN = ['.##.', '#..#', '#..#', '.##.']


def voiced(base, mark, left, top, shift):
    """Put a voicing mark over an unvoiced glyph, keeping 1 px clear around it."""
    h, w = len(base), len(base[0])
    g = [r[shift:] + [0] * shift for r in base]
    on = [(left + i, top + j) for j, r in enumerate(mark) for i, c in enumerate(r) if c == '#']
    for x, y in on:
        for j in (-1, 0, 1):
            for i in (-1, 0, 1):
                if 0 <= x + i < w and 0 <= y + j < h:
                    g[y + j][x + i] = 0
    for x, y in on:
        g[y][x] = 1
    return g


def extent(g):
    cols = [x for r in g for x, v in enumerate(r) if v]
    return (min(cols), max(cols) + 1) if cols else None


def parse_hand(rows, top, w, h):
    g = [[0] * w for _ in range(h)]
    for j, r in enumerate(rows):
        for i, c in enumerate(r):
            if c == '#':
                g[top + j][i] = 1
    return g


def status_font():
    H, A, BASE = 12, 6, 9
    f = ImageFont.truetype(MONO, 10)
    glyphs = []
    for ch in ASCII:
        g = raster(f, ch, A, H, 0, BASE)
        if ch in STATUS_HAND:
            top, rows = STATUS_HAND[ch]
            g = parse_hand(rows, top, A, H)
        glyphs.append((ch, g, A, A))
    return H, glyphs


def staff_font():
    H, BASE, W = 15, 11, 18
    f = ImageFont.truetype(SANS, 12, index=0)
    glyphs = []
    for ch in sorted(set(ASCII + HIRA + KATA + HALF + FULLASCII + PUNCT + KANJI)):
        wide = ord(ch) >= 0x3000 and not 0xff61 <= ord(ch) <= 0xff9f
        g = raster(f, ch, W, H, 2, BASE)
        g = embolden(g)
        parts = unicodedata.normalize('NFD', ch)
        if len(parts) == 2 and wide and parts[1] in '\u3099\u309a':
            b = embolden(raster(f, parts[0], W, H, 2, BASE))
            e = extent(b)
            shift = 1 if e[0] > 2 else 0
            g = voiced(b, DAKUTEN if parts[1] == '\u3099' else HANDAKUTEN, 11, 1 if parts[1] == '\u3099' else 0, shift)
        if ch in '\uff9e\u309b':
            g = voiced([[0] * W for _ in range(H)], DAKUTEN, 2, 1, 0)
        if ch in '\uff9f\u309c':
            g = voiced([[0] * W for _ in range(H)], HANDAKUTEN, 2, 1, 0)
        if ch in STAFF_HAND:
            top, rows = STAFF_HAND[ch]
            g = parse_hand(['..' + r for r in rows], top, W, H)
        e = extent(g)
        if e is None:                                   # spaces
            adv = 13 if wide else 4
            glyphs.append((ch, [[0] * adv for _ in range(H)], adv, adv))
            continue
        if wide:                                        # square cell, 12 px + 1
            x0, adv = 2, 13
            x0 = min(x0, e[0])
            w = max(adv, e[1] - x0)
        elif ord(ch) >= 0xff61:                         # half-width katakana
            x0, adv = min(2, e[0]), 7
            w = max(adv, e[1] - x0)
        else:                                           # proportional Latin
            x0 = e[0]
            adv = e[1] - e[0] + 1
            if ch.isdigit():
                adv = 7
            if ch in ":;,.'!|":
                x0, adv = e[0] - 1, adv + 2
            w = max(e[1] - x0, 1)
        w = min(w, W - x0)
        glyphs.append((ch, [r[x0:x0 + w] for r in g], w, adv))
    return H, glyphs


def write_bmp8(path, w, h, rows):
    stride = (w + 3) & ~3
    pal = b''.join(struct.pack('<BBBB', i, i, i, 0) for i in range(256))
    data = b''.join(bytes(rows[y]) + b'\0' * (stride - w) for y in range(h - 1, -1, -1))
    off = 14 + 40 + 1024
    with open(path, 'wb') as o:
        o.write(struct.pack('<2sIHHI', b'BM', off + len(data), 0, 0, off))
        o.write(struct.pack('<IiiHHIIiiII', 40, w, h, 1, 8, 0, len(data), 2835, 2835, 256, 256))
        o.write(pal)
        o.write(data)


def write_font(name, H, glyphs, sheet_w):
    place, x, y = [], 0, 0
    for ch, g, w, adv in glyphs:
        if x + w > sheet_w:
            x, y = 0, y + H + 1
        place.append((x, y))
        x += w + 1
    sh = y + H
    rows = [bytearray(sheet_w) for _ in range(sh)]
    lines = ['height %d' % H]
    for (ch, g, w, adv), (x, y) in zip(glyphs, place):
        for j in range(H):
            for i in range(w):
                if g[j][i]:
                    rows[y + j][x + i] = 255
        lines.append('%04X %d %d %d %d' % (ord(ch), x, y, w, adv))
    os.makedirs(OUT, exist_ok=True)
    write_bmp8(os.path.join(OUT, name + '.bmp'), sheet_w, sh, rows)
    with open(os.path.join(OUT, name + '.txt'), 'w', newline='\n') as o:
        o.write('\n'.join(lines) + '\n')
    print('%s: %d glyphs, sheet %dx%d, height %d' % (name, len(glyphs), sheet_w, sh, H))


def load_font(name):
    im = Image.open(os.path.join(OUT, name + '.bmp'))
    lines = open(os.path.join(OUT, name + '.txt'), encoding='ascii').read().splitlines()
    key, h = lines[0].split()
    assert key == 'height'
    table = {}
    for ln in lines[1:]:
        c, x, y, w, a = ln.split()
        assert int(c, 16) not in table, 'glyph %s twice' % c
        table[int(c, 16)] = (int(x), int(y), int(w), int(a))
    return im, int(h), table


def check():
    bad = []
    need = {'status': ASCII, 'staff': ASCII + HIRA + KATA + HALF + KANJI + ['\u3000', '\u30fc']}
    blank_ok = {0x20, 0x3000}
    for name, chars in need.items():
        im, h, table = load_font(name)
        raw = open(os.path.join(OUT, name + '.bmp'), 'rb').read(54)
        if struct.unpack_from('<HI', raw, 28) != (8, 0):
            bad.append('%s: not an 8-bit palette picture' % name)
        rgb = im.convert('RGB')
        if set(c for _, c in rgb.getcolors()) != {(0, 0, 0), (255, 255, 255)}:
            bad.append('%s: colours other than black and white' % name)
        seen = {}
        for ch in chars:
            if ord(ch) not in table:
                bad.append('%s: no glyph %04X' % (name, ord(ch)))
        for c, (x, y, w, a) in table.items():
            if x < 0 or y < 0 or w < 1 or a < 1 or x + w > im.width or y + h > im.height:
                bad.append('%s: %04X outside the sheet' % (name, c))
                continue
            box = rgb.crop((x, y, x + w, y + h)).convert('L')
            ink = box.getbbox()
            if (ink is None) != (c in blank_ok):
                bad.append('%s: %04X blank/ink wrong' % (name, c))
            if ink and name == 'staff' and ink[2] > a and c < 0x80:
                bad.append('%s: %04X runs over its advance' % (name, c))
            key = (box.tobytes(), w)
            if ink and key in seen and name == 'status':
                bad.append('%s: %04X looks the same as %04X' % (name, c, seen[key]))
            seen[key] = c
        if name == 'staff':                      # shown in the right half of the screen
            for line in ('Thank you TestPlayers', 'Thank you ALL Players'):
                width = sum(table[ord(c)][3] for c in line)
                if width > 156:
                    bad.append('staff: "%s" is %d px wide' % (line, width))
        if name == 'status':
            line = 'HISCORE 000000  SCORE 000000   POWER 0     FPS 00000'
            width = sum(table[ord(c)][3] for c in line)
            if width > 315:
                bad.append('status line is %d px wide' % width)
            if set(t[3] for t in table.values()) != {6}:
                bad.append('status: advance not fixed')
    for b in bad:
        print('FAIL', b)
    print('fonts: %s' % ('%d faults' % len(bad) if bad else 'ok'))
    return 1 if bad else 0


def main():
    if '--check' in sys.argv:
        sys.exit(check())
    H, g = status_font()
    write_font('status', H, g, 112)
    H, g = staff_font()
    write_font('staff', H, g, 280)
    sys.exit(check())


if __name__ == '__main__':
    main()
