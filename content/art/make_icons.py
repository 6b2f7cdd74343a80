#!/usr/bin/python3
"""The icons of packages and page from assets/pictures/icon.png: packaging/icons/tarnveil-N.png and tarnveil.svg. Whole
multiples of 32 show each pixel as a square; other sizes are averaged from such a multiple."""
import pathlib

from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parents[2]
OUT = ROOT / "packaging/icons"
SIDE = 32


def sized(icon, size):
    times = next(n for n in range(1, size + 1) if SIDE * n % size == 0 or size == SIDE * n)
    big = icon.resize((SIDE * times, SIDE * times), Image.Resampling.NEAREST)
    # Averaged with the colours weighted by how opaque they are, so that no edge gets darker.
    return big.convert("RGBa").resize((size, size), Image.Resampling.BOX).convert("RGBA")


def runs(icon):
    """x, y, width and colour of each stretch of equal opaque pixels."""
    for y in range(SIDE):
        x = 0
        while x < SIDE:
            start, colour = x, icon.getpixel((x, y))
            while x < SIDE and icon.getpixel((x, y)) == colour:
                x += 1
            if colour[3]:
                yield start, y, x - start, "#%02x%02x%02x" % colour[:3]


def svg(icon):
    paths = {}
    for x, y, width, colour in runs(icon):
        paths.setdefault(colour, []).append(f"M{x} {y}h{width}v1h-{width}z")
    lines = [f'<path fill="{colour}" d="{"".join(stretches)}"/>' for colour, stretches in sorted(paths.items())]
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{SIDE}" height="{SIDE}" viewBox="0 0 {SIDE} {SIDE}" '
            'shape-rendering="crispEdges">\n' + "\n".join(lines) + "\n</svg>\n")


def main():
    icon = Image.open(ROOT / "assets/pictures/icon.png").convert("RGBA")
    OUT.mkdir(exist_ok=True)
    for size in (16, 24, 32, 48, 64, 128, 256, 512):
        sized(icon, size).save(OUT / f"tarnveil-{size}.png", optimize=True)
    (OUT / "tarnveil.svg").write_text(svg(icon))


main()
