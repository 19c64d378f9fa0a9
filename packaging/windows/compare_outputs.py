#!/usr/bin/env python3
"""Compares what the Linux and the Windows program wrote: compare_outputs.py LINUX WINDOWS LINUX.json WINDOWS.json.

The instrument's formats, profiles and KML are the same bytes, but for the time of writing. Every number of the open formats and of the .csv,
which holds all digits of its doubles, agrees to 1e-12 of its size: the last bit of a sine is the system's. Pictures differ in no more than the edges of letters. Fails on the first kind of difference and says where.
"""
import json
import pathlib
import re
import sqlite3
import struct
import subprocess
import sys

SAME = {".bin", ".txt", ".ecs", ".ecst", ".kml"}
NUMBERS = {".csv", ".ohm", ".dat", ".geojson", ".gpkg", ".vtu"}
PICTURES = {".png"}
PIXELS = 0.002  # share of a picture's pixels that may differ
CLOCK = re.compile(rb"\d\d:\d\d:\d\d|\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?Z")
NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")


def close(a, b):
    return a == b or a != a and b != b or abs(a - b) <= 1e-12 * max(abs(a), abs(b))


def texts_agree(a, b):
    if NUMBER.split(a) != NUMBER.split(b):
        return False
    return all(close(float(x), float(y)) for x, y in zip(NUMBER.findall(a), NUMBER.findall(b)))


def package(path):
    with sqlite3.connect(f"file:{path}?mode=ro", uri=True) as database:
        tables = [row[0] for row in database.execute("SELECT name FROM sqlite_master WHERE type='table' ORDER BY name")]
        return {table: database.execute(f'SELECT * FROM "{table}"').fetchall() for table in tables}


def cells_agree(a, b):
    if isinstance(a, bytes) and isinstance(b, bytes) and a[:2] == b"GP" and len(a) == len(b):
        return a[:8] == b[:8] and blobs_agree(a[8:], b[8:])
    if isinstance(a, str) and isinstance(b, str):
        return texts_agree(CLOCK.sub(b"", a.encode()).decode(), CLOCK.sub(b"", b.encode()).decode())
    return close(a, b) if isinstance(a, float) and isinstance(b, float) else a == b


def blobs_agree(a, b):
    """Doubles in a geometry stand at odd places between counts: each byte is equal or part of a double that is close."""
    differing = [k for k in range(len(a)) if a[k] != b[k]]
    for k in differing:
        starts = range(max(0, k - 7), min(k, len(a) - 8) + 1)
        if not any(close(*struct.unpack_from("<d", a, s), *struct.unpack_from("<d", b, s)) for s in starts):
            return False
    return True


def packages_agree(linux, windows):
    a, b = package(linux), package(windows)
    return a.keys() == b.keys() and all(
        len(a[t]) == len(b[t]) and all(len(r) == len(s) and all(map(cells_agree, r, s)) for r, s in zip(a[t], b[t])) for t in a)


def vtu_agree(a, b):
    if len(a) != len(b):
        return False
    mark = a.find(b'<AppendedData')
    mark = len(a) if mark < 0 else mark
    return texts_agree(a[:mark].decode(), b[:mark].decode()) and blobs_agree(a[mark:], b[mark:])


def pictures_agree(linux, windows):
    told = subprocess.run(["compare", "-metric", "AE", linux, windows, "null:"], capture_output=True, text=True, check=False).stderr
    size = subprocess.run(["identify", "-format", "%w %h", linux], capture_output=True, text=True, check=True).stdout.split()
    differing = float(told.split()[0])
    print(f"  {linux.name}: {differing:.0f} of {int(size[0]) * int(size[1])} pixels differ")
    return differing <= PIXELS * int(size[0]) * int(size[1])


def agree(linux, windows):
    kind = linux.suffix
    a, b = linux.read_bytes(), windows.read_bytes()
    if a == b:
        return True
    if kind in NUMBERS - {".gpkg", ".vtu"}:
        return texts_agree(a.decode(), b.decode())
    if kind in SAME:
        return CLOCK.sub(b"", a) == CLOCK.sub(b"", b)
    if kind == ".gpkg":
        return packages_agree(linux, windows)
    if kind == ".vtu":
        return vtu_agree(a, b)
    return kind in PICTURES and pictures_agree(linux, windows)


def summary(path):
    whole = json.loads(pathlib.Path(path).read_text())
    whole["outputs"] = [re.split(r"[\\/]", name)[-1] for name in whole["outputs"]]
    return whole


def main(linux, windows, linux_json, windows_json):
    linux, windows = pathlib.Path(linux), pathlib.Path(windows)
    names = sorted(path.name for path in linux.iterdir())
    faults = []
    if names != sorted(path.name for path in windows.iterdir()):
        faults.append("not the same files: " + " ".join(sorted(set(names) ^ {path.name for path in windows.iterdir()})))
    kinds = {pathlib.Path(name).suffix for name in names}
    if kinds != SAME | NUMBERS | PICTURES:
        faults.append("not every format was written: " + " ".join(sorted(kinds ^ (SAME | NUMBERS | PICTURES))))
    faults += [f"{name} differs" for name in names if (windows / name).exists() and not agree(linux / name, windows / name)]
    if summary(linux_json) != summary(windows_json):
        faults.append("the summaries differ")
    same = sum((windows / name).exists() and (linux / name).read_bytes() == (windows / name).read_bytes() for name in names)
    print(f"{len(names)} outputs compared, {same} of them the same bytes")
    for fault in faults:
        print(f"  {fault}")
    return 1 if faults or not names else 0


sys.exit(main(*sys.argv[1:]))
