"""Compares what other programs read from the open formats with the survey's table: check.py FOLDER."""
import csv
import json
import math
import os
import sys
import vtk

os.chdir(sys.argv[1])
table = list(csv.DictReader(open("s.csv")))
kept = [r for r in table if r["discarded"] == "0"]


def near(what, found, expected, tolerance):
    if not abs(found - expected) <= tolerance:
        sys.exit(f"{what}: {found} instead of {expected}")


def single(what, found, expected):
    """Two ways to a number that was stored in 32 bits."""
    near(what, found, expected, 3e-7 * abs(expected))


# Both point files against the table, row by row. Degrees are read as DDMM.MMM.
def degrees(ddmm):
    return math.copysign(int(abs(ddmm) / 100) + abs(ddmm) % 100 / 60, ddmm)


for name, x, y in (("measurements.csv", "x", "y"), ("points.csv", "X", "Y")):
    rows = list(csv.DictReader(open(name)))
    near(name, len(rows), len(table), 0)
    for row, told in zip(rows, table):
        near("n", int(row["n"]), int(told["n"]), 0)
        near("rho4", float(row["rho4"]), float(told["rho4"]), 1e-6)
        if row[x]:
            near("longitude", float(row[x]), degrees(float(told["lon"])), 1e-9)
            near("latitude", float(row[y]), degrees(float(told["lat"])), 1e-9)
    print(f"{name}: {len(rows)} rows as in the table, {sum(1 for r in rows if not r[x])} without a place")


# The cells as VTK reads them.
reader = vtk.vtkXMLUnstructuredGridReader()
reader.SetFileName("s.vtu")
reader.Update()
grid = reader.GetOutput()
data = grid.GetCellData()
near("cells", grid.GetNumberOfCells(), 10 * len(kept), 0)
near("points", grid.GetNumberOfPoints(), 4 * grid.GetNumberOfCells(), 0)
bounds = grid.GetBounds()
for axis, column in ((0, "utm_x"), (2, "utm_y")):
    values = [float(r[column]) for r in kept]
    near(column, bounds[axis], min(values), 5)
    near(column, bounds[axis + 1], max(values), 5)
near("surface", bounds[5], 0, 0)
for k in range(grid.GetNumberOfCells()):
    row = table[int(data.GetArray("measurement").GetValue(k)) - 1]
    channel = int(data.GetArray("channel").GetValue(k))
    near("resistivity", data.GetArray("resistivity").GetValue(k), float(row[f"rho{channel}"]), 1e-6)
    near("water depth", data.GetArray("water_depth").GetValue(k), float(row["depth"]), 1e-6)
    if grid.GetCell(k).GetCellType() != vtk.VTK_QUAD:
        sys.exit("a cell is no quadrilateral")
print(f"s.vtu: {grid.GetNumberOfCells()} quadrilaterals, bounds {[round(b, 2) for b in bounds]}, values as in the table")


# The unified data files and the general array by a reader of a few lines.
def unified(name):
    lines = open(name).read().split("\n")
    count = int(lines[0].split("#")[0])
    axes = lines[1].split("#")[1].split()
    electrodes = [dict(zip(axes, map(float, line.split()))) for line in lines[2:2 + count]]
    readings = int(lines[2 + count].split("#")[0])
    names = lines[3 + count].split("#")[1].split()
    rows = [dict(zip(names, line.split())) for line in lines[4 + count:4 + count + readings]]
    return electrodes, rows, lines[4 + count + readings:]


for name, measured in (("s.ohm", kept), ("m.ohm", [r for r in kept if r["file"] == "1"])):
    electrodes, rows, rest = unified(name)
    near(name, len(rows), 10 * len(measured), 0)
    if rest != [""]:
        sys.exit(f"{name}: something behind the readings")
    for k, row in enumerate(rows):
        told, channel = measured[k // 10], k % 10 + 1
        single("rhoa", float(row["rhoa"]), float(told[f"rho{channel}"]))
        single("i", float(row["i"]), (float(told["i_a"]) - float(told["i_b"])) / 2000)
        single("u", float(row["u"]), (float(told[f"va{channel}"]) - float(told[f"vb{channel}"])) / 2000)
        single("r", float(row["r"]), float(row["u"]) / float(row["i"]))
        four = [electrodes[int(row[e]) - 1] for e in "abmn"]
        # All readings of a firing share its current electrodes, 5 m apart.
        near("C1 to C2", math.dist(*[[p[a] for a in p] for p in four[:2]]), 5, 1e-5)
    print(f"{name}: {len(electrodes)} electrodes, {len(rows)} readings, columns {' '.join(rows[0])}")

lines = open("s.dat", newline="").read().split("\r\n")
near("s.dat", int(lines[6]), len(lines) - 9 - 6, 0)
near("s.dat", int(lines[6]), 10 * len(kept), 0)
if lines[-6:] != ["0"] * 5 + [""]:
    sys.exit("s.dat does not end in zeros")
for k, line in enumerate(lines[9:-6]):
    words = line.split()
    near("words", len(words), 10, 0)
    near("rhoa", float(words[9]), float(kept[k // 10][f"rho{k % 10 + 1}"]), 1e-6)
print(f"s.dat: {lines[6]} readings")

bottom = list(csv.DictReader(open("s_bottom.csv")))
near("bottom", len(bottom), len(kept), 0)
for row, told in zip(bottom, kept):
    near("depth", float(row["depth"]), float(told["depth"]), 1e-6)
    near("easting", float(row["easting"]), float(told["utm_x"]), 1e-6)
    near("latitude", float(row["latitude"]), degrees(float(told["lat"])), 1e-9)
print(f"s_bottom.csv: {len(bottom)} rows")
layers = [f["properties"]["layer"] for f in json.load(open("s.geojson"))["features"]]
print("s.geojson:", {layer: layers.count(layer) for layer in sorted(set(layers))})
print("all agree")
