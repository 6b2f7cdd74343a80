#!/usr/bin/env python3
"""Writes the inputs from which the fuzzers begin, made of the shipped files: seeds.py OUTPUT_FOLDER, one folder each."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
DATA = ROOT / "assets" / "data"
# Of games.cpp: how many entries and steps one input holds.
ENTRIES, ENTRY_BYTES, STEPS_BYTES = 96, 13, 32 * 50 * 10
PLAYER = bytes(range(0, 7)) * 25  # every key pressed now and then


def games():
    """Every part of every stage with the shipped kinds and the beginnings of the shipped scripts."""
    kinds, moves = (DATA / "EnemyData.DAT").read_bytes(), (DATA / "EneMove.DAT").read_bytes()
    for play, name in enumerate(["STAGE1.DAT", "STAGE2.DAT", "STAGE3.DAT", "Attack.DAT"]):
        stage = (DATA / name).read_bytes()
        for entry in range(0, 513 - ENTRIES, ENTRIES // 2):
            part = stage[entry * ENTRY_BYTES:(entry + ENTRIES) * ENTRY_BYTES]
            options = bytes([play, play, (play + 1) % 4, 10, entry % 256, 0, 0, 0])
            yield f"{name}-{entry}", options + kinds + part + moves[:STEPS_BYTES] + PLAYER


def recordings():
    yield from files("*.tarnveil-run", "tests/runs/released")
    for path in (ROOT / "tests" / "runs").glob("*.txt"):
        lines = path.read_text().split("\n")
        head = [line for line in lines if not line.startswith(("event", "frame"))]
        events = [line for line in lines if line.startswith("event")][:20]
        frames = next(line for line in lines if line.startswith("frame 1 "))
        end = re.sub("frames=[0-9]+", "frames=8", head[-2])
        yield path.name, "\n".join([*head[:-2], *events, frames, end, ""]).encode()


def scores():
    yield "none", b""
    yield "short", b"\x01\0\0\0" * 3
    yield "whole", b"\x98\x3a\0\0" * 4 + b"tail"


def files(pattern, folder, most=1 << 20):
    for path in (ROOT / folder).glob(pattern):
        yield path.name, path.read_bytes()[:most]


def pictures():
    """Small ones: a header and some rows, and the whole GIFs."""
    yield from files("*.gif", "assets/pictures")
    yield from files("*.bmp", "assets/pictures", 4096)
    for bits, body in ((8, 16 * 16), (24, 16 * 48), (32, 16 * 64)):
        header = (b"BM" + bytes(8) + (54 + 1024 * (bits == 8)).to_bytes(4, "little") + (40).to_bytes(4, "little") +
                  (16).to_bytes(4, "little") * 2 + (1).to_bytes(2, "little") + bits.to_bytes(2, "little") + bytes(24))
        yield f"{bits}.bmp", header + bytes(1024 * (bits == 8)) + bytes(range(256)) * (body // 256)


SEEDS = {
    "games": games, "recordings": recordings, "scores": scores, "pictures": pictures,
    "music": lambda: files("*.[mM]id", "assets/data", 1 << 15),
    "waves": lambda: files("*.wav", "assets/data", 6000),
}

for target, seeds in SEEDS.items():
    folder = pathlib.Path(sys.argv[1]) / target
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in seeds():
        (folder / name).write_bytes(content)
