"""Helpers shared by the picture scripts: render POV-Ray scenes, cut hard
masks, build sheets and write 8-bit files.

Colours are handled as numpy arrays:
  RGBA  float32 (h, w, 4), straight (not premultiplied) sRGB 0..255, alpha 0..1
  RGB   uint8   (h, w, 3)

Typical use
  img  = render("ship.pov", 64, 64, F=0)       # RGBA, cached
  s, m = cut(img)                              # uint8 image on black, mask
  sheet = Sheet(128, 192); sheet.put(0, 0, s, m, 64, 0)
  sheet.save_bmp("Chr.bmp")
  sheet.or_put(16, 8, over_black(img))         # OR-only sprite
"""
import hashlib
import os
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import numpy as np
from PIL import Image

ART = Path(__file__).resolve().parent
ROOT = ART.parents[1]
PICTURES = ROOT / "assets" / "pictures"
CACHE = Path(os.environ.get("TARNVEIL_ART_CACHE") or
             Path(tempfile.gettempdir()) / ("tarnveil-art-%d" % os.getuid()))
JOBS = int(os.environ.get("TARNVEIL_ART_JOBS", "1"))

BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
DARKEST = 10   # opaque pixels are lifted so that max(r, g, b) is at least this


# ------------------------------------------------------------ gamma helpers
def to_linear(s):
    s = np.asarray(s, np.float32) / 255.0
    return np.where(s <= 0.04045, s / 12.92, ((s + 0.055) / 1.055) ** 2.4)


def to_srgb(v):
    v = np.clip(v, 0, 1)
    return 255.0 * np.where(v <= 0.0031308, v * 12.92, 1.055 * v ** (1 / 2.4) - 0.055)


# ---------------------------------------------------------------- rendering
def _sources(pov):
    """The scene and every include it names that lives in this directory."""
    seen, todo = [], [Path(pov).name]
    while todo:
        name = todo.pop()
        if name in seen or not (ART / name).is_file():
            continue
        seen.append(name)
        for line in (ART / name).read_text().splitlines():
            line = line.split("//")[0]
            if "#include" in line and '"' in line:
                todo.append(line.split('"')[1])
    return sorted(seen)


def render_raw(pov, w, h, **declares):
    """Render content/art/<pov> to w x h pixels; RGBA PNG as uint8 array."""
    CACHE.mkdir(parents=True, exist_ok=True)
    args = ["Declare=%s=%s" % (k, repr(v) if isinstance(v, float) else v)
            for k, v in sorted(declares.items())]
    key = hashlib.sha256()
    for name in _sources(pov):
        key.update((ART / name).read_bytes())
    key.update(("%s %d %d %s" % (pov, w, h, args)).encode())
    out = CACHE / (Path(pov).stem + "-" + key.hexdigest()[:24] + ".png")
    if not out.is_file():
        tmp = out.with_name("tmp%d-%s" % (os.getpid(), out.name))
        cmd = ["povray", "+I" + str(ART / pov), "+O" + str(tmp), "+W%d" % w, "+H%d" % h,
               "+FN8", "+UA", "-D", "+WT1", "+L" + str(ART), "+Q9",
               "+A0.15", "+AM1", "+R2", "-J", "File_Gamma=sRGB"] + args
        r = subprocess.run(cmd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, cwd=CACHE)
        if r.returncode != 0 or not tmp.is_file():
            text = r.stdout.decode(errors="replace")
            raise RuntimeError("povray failed: %s\n%s" % (" ".join(cmd), text[-3000:]))
        os.replace(tmp, out)
    return np.asarray(Image.open(out).convert("RGBA"))


def downsample(raw, ss):
    """Average ss x ss blocks in linear light with premultiplied alpha."""
    h, w = raw.shape[0] // ss, raw.shape[1] // ss
    a = raw[..., 3:4].astype(np.float32) / 255.0
    pre = to_linear(raw[..., :3]) * a
    pre = pre.reshape(h, ss, w, ss, 3).mean((1, 3))
    a = a.reshape(h, ss, w, ss, 1).mean((1, 3))
    rgb = np.where(a > 1e-4, pre / np.maximum(a, 1e-4), 0)
    return np.concatenate([to_srgb(rgb), a], 2).astype(np.float32)


def render(pov, w, h, ss=4, **declares):
    """Render a scene supersampled; gives RGBA of exactly w x h.
    W and H are always declared for the scene (in final pixels)."""
    declares.setdefault("W", w)
    declares.setdefault("H", h)
    return downsample(render_raw(pov, w * ss, h * ss, **declares), ss)


def render_all(jobs):
    """jobs: list of (pov, w, h, dict). Renders them, gives the list of RGBA."""
    with ThreadPoolExecutor(max_workers=max(1, JOBS)) as ex:
        return list(ex.map(lambda j: render(j[0], j[1], j[2], **j[3]), jobs))


# ------------------------------------------------------------ cutting masks
def cut(rgba, threshold=0.5, gain=1.0, rim=0.0, sharpen=0.0):
    """Hard 1-bit cut. Gives (image on exact black, mask black/white), uint8.
    Edge pixels keep the un-premultiplied colour, so nothing is mixed with
    the background. rim in 0..1 darkens opaque pixels that touch the outside."""
    solid = rgba[..., 3] >= threshold
    rgb = rgba[..., :3].copy()
    if sharpen:
        rgb = unsharp(rgb, solid, sharpen)
    rgb = rgb * gain
    if rim:
        p = np.pad(solid, 1)
        inner = p[1:-1, 1:-1] & p[:-2, 1:-1] & p[2:, 1:-1] & p[1:-1, :-2] & p[1:-1, 2:]
        edge = solid & ~inner
        rgb[edge] *= 1 - rim
    rgb = np.clip(np.rint(rgb), 0, 255).astype(np.uint8)
    img = np.zeros(rgb.shape, np.uint8)
    img[solid] = lift(rgb[solid])
    mask = np.full(rgb.shape, 255, np.uint8)
    mask[solid] = 0
    return img, mask


def unsharp(rgb, solid, amount):
    """Local contrast inside the solid area only."""
    k = solid.astype(np.float32)
    acc, cnt = np.zeros_like(rgb), np.zeros_like(k)
    pr, pk = np.pad(rgb, ((1, 1), (1, 1), (0, 0))), np.pad(k, 1)
    h, w = k.shape
    for dy in range(3):
        for dx in range(3):
            kk = pk[dy:dy + h, dx:dx + w]
            acc += pr[dy:dy + h, dx:dx + w] * kk[..., None]
            cnt += kk
    mean = acc / np.maximum(cnt, 1)[..., None]
    return np.clip(rgb + amount * (rgb - mean), 0, 255)


def lift(px):
    """Raise pixels darker than DARKEST so that they are never pure black and
    cap near-white so that exact white stays the mask's colour."""
    px = px.copy()
    low = px.max(-1) < DARKEST
    px[low] = np.maximum(px[low], (6, 7, DARKEST))
    top = px.min(-1) >= 254
    px[top] = (253, 253, 253)
    return px


def over_black(rgba, gain=1.0):
    """For OR-only sprites: the picture over exact black, premultiplied."""
    v = to_linear(rgba[..., :3]) * rgba[..., 3:4]
    return np.clip(np.rint(to_srgb(v) * gain), 0, 255).astype(np.uint8)


def glow(rgb, radius, amount):
    """Add a soft bloom to an RGB picture (for OR-only art)."""
    k = np.exp(-0.5 * (np.arange(-3 * radius, 3 * radius + 1) / float(radius)) ** 2)
    k /= k.sum()
    v = to_linear(rgb)
    b = v
    for axis in (0, 1):
        b = np.apply_along_axis(lambda m: np.convolve(m, k, "same"), axis, b)
    return np.clip(np.rint(to_srgb(v + amount * b)), 0, 255).astype(np.uint8)


# ---------------------------------------------------------------- palettes
def quantise(rgb, colours=256, fixed=(BLACK, WHITE)):
    """RGB -> (index array, palette list). Exact black is index 0 and exact
    white is index 1; they stand only for exactly black and white pixels."""
    h, w, _ = rgb.shape
    flat = rgb.reshape(-1, 3)
    isb = (flat == 0).all(1)
    isw = (flat == 255).all(1)
    rest = flat[~isb & ~isw]
    pal = list(fixed)
    idx = np.zeros(h * w, np.uint8)
    idx[isw] = 1
    room = colours - len(pal)
    if len(rest):
        uniq, inv = np.unique(rest, axis=0, return_inverse=True)
        inv = inv.reshape(-1)
        if len(uniq) > room:
            strip = Image.fromarray(rest.reshape(1, -1, 3), "RGB")
            q = strip.quantize(room, method=Image.Quantize.MEDIANCUT, kmeans=3)
            p = np.asarray(q.getpalette()[:3 * room], np.uint8).reshape(-1, 3)
            p = np.unique(np.maximum(p, 0), axis=0)
        else:
            p = uniq
        p = p[~((p == 0).all(1) | (p == 255).all(1))]
        wgt = np.array([2.0, 4.0, 3.0])
        near = np.empty(len(uniq), np.int64)
        pf = p.astype(np.float64)
        for i in range(0, len(uniq), 2048):
            d = (uniq[i:i + 2048, None, :].astype(np.float64) - pf[None]) ** 2
            near[i:i + 2048] = (d * wgt).sum(2).argmin(1)
        idx[~isb & ~isw] = (near[inv] + len(pal)).astype(np.uint8)
        pal += [tuple(int(c) for c in row) for row in p]
    return idx.reshape(h, w), pal


def pal_image(rgb, colours=256):
    idx, pal = quantise(np.asarray(rgb, np.uint8), colours)
    im = Image.fromarray(idx, "P")
    data = [c for row in pal for c in row]
    im.putpalette(data + [0] * (768 - len(data)))
    return im, pal


def save_bmp(path, rgb):
    """8-bit uncompressed BMP of exactly the array's size."""
    im, _ = pal_image(rgb)
    im.save(path, "BMP")


def save_gif(path, rgb):
    """8-bit, one frame, not interlaced GIF of exactly the array's size."""
    im, _ = pal_image(rgb)
    im.save(path, "GIF", optimize=False, interlace=0)


def save_png(path, rgb, colours=256):
    im, pal = pal_image(rgb, colours)
    im.save(path, "PNG", bits=4 if colours <= 16 else 8, optimize=False)


# ------------------------------------------------------------------ sheets
class Sheet:
    def __init__(self, w, h):
        self.rgb = np.zeros((h, w, 3), np.uint8)

    def _at(self, x, y, px):
        h, w = px.shape[:2]
        if x < 0 or y < 0 or x + w > self.rgb.shape[1] or y + h > self.rgb.shape[0]:
            raise ValueError("sprite %dx%d does not fit at (%d,%d)" % (w, h, x, y))
        self.rgb[y:y + h, x:x + w] = px

    def put(self, x, y, image, mask, dx, dy):
        """Image at (x, y) and its mask dx right / dy below."""
        self._at(x, y, image)
        self._at(x + dx, y + dy, mask)

    def or_put(self, x, y, image):
        self._at(x, y, image)

    def save_bmp(self, name):
        PICTURES.mkdir(parents=True, exist_ok=True)
        save_bmp(PICTURES / name, self.rgb)

    def save_gif(self, name):
        PICTURES.mkdir(parents=True, exist_ok=True)
        save_gif(PICTURES / name, self.rgb)


# ---------------------------------------------------------- contact sheets
def starfield(w, h, seed=7):
    r = np.random.RandomState(seed)
    g = np.linspace(0, 1, h)[:, None, None]
    bg = (np.array([14, 20, 44]) * (1 - g) + np.array([30, 26, 58]) * g) * np.ones((h, w, 1))
    for _ in range(w * h // 260):
        bg[r.randint(h), r.randint(w)] = r.randint(60, 255) * np.array([0.9, 0.95, 1.0])
    return bg.astype(np.uint8)


def blit(dst, x, y, image, mask=None):
    """Draw a sprite the way the game does: AND the mask, OR the image."""
    h, w = image.shape[:2]
    v = dst[y:y + h, x:x + w]
    if mask is not None:
        v &= mask
    v |= image
