#!/usr/bin/env python3
"""Keeps the shipped tables of a version for good, so that its runs can be played again: keep-tables.py VERSION

Writes assets/released/VERSION.tables, a part of every program: in the zlib format, for each table its name in a line,
its length in a line, its bytes.
"""
import pathlib
import sys
import zlib

TABLES = ["STAGE1.DAT", "STAGE2.DAT", "STAGE3.DAT", "Attack.DAT", "EnemyData.DAT", "EneMove.DAT"]

if len(sys.argv) != 2:
    sys.exit(__doc__)
assets = pathlib.Path(__file__).resolve().parent.parent / "assets"
target = assets / "released" / (sys.argv[1] + ".tables")
if target.exists():
    sys.exit(f"{target} is there already: the tables of a released version never change")
content = b""
for name in TABLES:
    table = (assets / "data" / name).read_bytes()
    content += f"{name}\n{len(table)}\n".encode() + table
target.parent.mkdir(exist_ok=True)
target.write_bytes(zlib.compress(content, 9))
