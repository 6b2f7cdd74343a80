#!/usr/bin/env python3
"""The floors of src/: which folder includes which.

    scripts/floors.py check          refuses includes that go up, naming file and line
    scripts/floors.py draw FILE.svg  draws the floors with their counts of includes (needs Graphviz)

The order of the floors stands in cmake/floors.cmake. Hosts see the two lowest floors and the host headers.
"""
import argparse
import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
PROGRAM = ("program", "bench_window", "runs_window")  # these see everything
HOST_SEES = ("host", "toolkit", "state")


def floors():
    """The floors from the ground up."""
    text = (ROOT / "cmake/floors.cmake").read_text()
    return ["host"] + re.search(r"set\(TARNVEIL_FLOORS ([^)]*)\)", text).group(1).split()


def room(path):
    """The floor, host or program a file belongs to: "stage", "host", "host/desktop", "program"."""
    folder = path.relative_to(SRC).parent.as_posix()
    return "program" if folder == "." else folder


def includes():
    """Every include of the project's own headers: (file, line, including room, included room)."""
    for path in sorted(SRC.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            found = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
            if found and (SRC / found.group(1)).is_file():
                yield path, number, room(path), room(SRC / found.group(1))


def allowed(order, user, used):
    if user == used or user in PROGRAM:
        return True
    if user.startswith("host/") or user == "host":
        return used in HOST_SEES and user != "host"
    return used in order and user in order and order.index(used) < order.index(user)


def check():
    order, wrong = floors(), 0
    for path, number, user, used in includes():
        if not allowed(order, user, used):
            print(f"{path.relative_to(ROOT)}:{number}: {user} must not include {used}, which does not lie below it")
            wrong += 1
    return 1 if wrong else 0


def draw(target):
    order = floors()
    counts = collections.Counter((user, used) for _, _, user, used in includes() if user != used)
    files = collections.Counter(room(p) for p in SRC.rglob("*") if p.suffix in (".h", ".cpp"))
    hosts = sorted(name for name in files if name.startswith("host/"))
    lines = ["digraph floors {", "  rankdir=TB; nodesep=0.35; ranksep=0.45;",
             '  node [shape=box style="rounded,filled" fillcolor="#eef2f8" color="#5b6b86" fontname="sans-serif"];',
             '  edge [color="#8a97ad" fontname="sans-serif" fontsize=9 fontcolor="#5b6b86"];']
    for name in ["program"] + order[::-1] + hosts:
        fill = ' fillcolor="#f8f1e4"' if name.startswith("host") else ""
        label = "main" if name == "program" else name
        lines.append(f'  "{name}" [label="{label}\\n{files[name]} files"{fill}];')
    for (user, used), count in sorted(counts.items()):
        lines.append(f'  "{user}" -> "{used}" [label="{count}"];')
    for upper, lower in zip(order[::-1], order[::-1][1:]):
        lines.append(f'  "{upper}" -> "{lower}" [style=invis weight=20];')
    lines.append("}")
    subprocess.run(["dot", "-Tsvg", "-o", target], input="\n".join(lines), text=True, check=True)
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", required=True)
    commands.add_parser("check", help="refuse includes that go up")
    commands.add_parser("draw", help="draw the floors as SVG").add_argument("file")
    options = parser.parse_args()
    return check() if options.command == "check" else draw(options.file)


if __name__ == "__main__":
    sys.exit(main())
