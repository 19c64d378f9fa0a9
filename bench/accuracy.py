#!/usr/bin/env python3
"""Compares `corvan-cli convert` with PROJ over the globe: bench/accuracy.py [CORVAN_CLI]

Needs cs2cs (Debian: proj-bin). Every zone and hemisphere, latitudes to 80 degrees, longitudes to 3 degrees from the central
meridian, and every datum in one zone. Prints the largest differences in metres on the ground.
"""
import math
import subprocess
import sys

CLI = sys.argv[1] if len(sys.argv) > 1 else "build/release/bin/corvan-cli"
AXES = {  # semi-major and semi-minor axis, m, as the manuals of the datums give them
    "WGS84": (6378137, 6356752.314245),
    "NAD83": (6378137, 6356752.314140),
    "WGS72": (6378135, 6356750.520016),
    "Australian 1965": (6378160, 6356774.719195),
    "Krasovsky 1940": (6378245, 6356863.018773),
    "International 1924, Hayford 1909": (6378388, 6356911.946128),
    "Clarke 1880": (6378249.145, 6356514.869550),
    "Clarke 1866": (6378206.4, 6356583.8),
    "Airy 1830": (6377563.396, 6356256.909237),
    "Bessel 1841": (6377397.155, 6356078.962818),
    "Everest 1830": (6377276.345, 6356075.413140),
}
DISTANCES = [0, 0.3, 1, 2, 2.7, 3]


def run(command, rows):
    text = "".join(f"{a!r} {b!r}\n" for a, b in rows)
    done = subprocess.run(command, input=text, capture_output=True, text=True, check=True)
    return [[float(x) for x in line.split()[:2]] for line in done.stdout.splitlines()]


def compare(zone, north, datum, points):
    """Forward and inverse differences of each point, m."""
    a, b = AXES[datum]
    ellipsoid = [f"+a={a}", f"+b={b}", "+units=m", "+no_defs"]
    meridian = 6 * zone - 183
    flat = ["+proj=tmerc", "+lat_0=0", f"+lon_0={meridian}", "+k=0.9996", "+x_0=500000", f"+y_0={0 if north else 10000000}"]
    angles = ["+proj=longlat", f"+a={a}", f"+b={b}", "+no_defs"]
    exact = run(["cs2cs", "-f", "%.6f", *angles, "+to", *flat, *ellipsoid], [(lon, lat) for lat, lon in points])
    options = ["--datum", datum, "--format", "d.dddd", "--zone", str(zone)] + ([] if north else ["--south"])
    ours = run([CLI, "convert", "--to-utm", *options], points)
    back = run([CLI, "convert", "--to-geo", *options], exact)
    forward = [math.hypot(p[0] - q[0], p[1] - q[1]) for p, q in zip(ours, exact)]
    inverse = []
    for (lat, lon), (lat2, lon2) in zip(points, back):
        metre = math.pi * a / 180
        inverse.append(math.hypot((lat2 - lat) * metre, (lon2 - lon) * metre * math.cos(math.radians(lat))))
    return forward, inverse


def grid(zone, north):
    sign = 1 if north else -1
    return [(sign * lat, 6 * zone - 183 + east * side)
            for lat in range(0, 81, 5) for east in DISTANCES for side in (-1, 1)]


worst = {d: [(0, None), (0, None)] for d in DISTANCES}
for zone in range(1, 61):
    for north in (True, False):
        points = grid(zone, north)
        for point, *pair in zip(points, *compare(zone, north, "WGS84", points)):
            d = min(DISTANCES, key=lambda x: abs(x - abs(point[1] - (6 * zone - 183))))
            worst[d] = [max(old, (new, point)) if old[1] else (new, point) for old, new in zip(worst[d], pair)]
print("WGS84, all zones and both hemispheres: largest difference, m")
print("from meridian   to UTM  (at lat)   to geographic (at lat)")
for d, ((f, fp), (i, ip)) in worst.items():
    print(f"{d:10.1f}°  {f:10.4f} {fp[0]:8.0f} {i:14.4f} {ip[0]:9.0f}")
print("\nEvery datum, zone 33 north: largest difference within 3°, m")
for datum in AXES:
    forward, inverse = compare(33, True, datum, grid(33, True))
    print(f"{datum:34} {max(forward):8.4f} {max(inverse):8.4f}")
