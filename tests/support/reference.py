#!/ usr / bin / env python3
""
    "Expected values of the command line's tests, computed without any code of the program.

    Prints what tests /
    cli/*Test.cpp hold: conversions by the published series, cells of tables and corners of pictures for the
small surveys that tests/cli/Cli.h builds.
"""
import math
import struct
from decimal import ROUND_HALF_UP, Decimal

PI = 3.14159265358979
SIN1 = 4.8481368e-6
DATUMS = [("WGS84", 6378137.0, 6356752.314), ("NAD83", 6378137.0, 6356752.314), ("WGS72", 6378135.0, 6356750.5),
          ("Australian 1965", 6378160.0, 6356774.7), ("Krasovsky 1940", 6378245.0, 6356863.0),
          ("International 1924, Hayford 1909", 6378388.0, 6356911.9), ("Clarke 1880", 6378249.1, 6356514.9),
          ("Clarke 1866", 6378206.4, 6356583.8), ("Airy 1830", 6377563.4, 6356256.9),
          ("Bessel 1841", 6377397.2, 6356079.0), ("Everest 1830", 6378276.3, 6356075.4)]


def f32(v):
    return struct.unpack("<f", struct.pack("<f", v))[0]


def to_utm(lat, lon, zone=None, axes=DATUMS[0][1:]):
    a, b = axes
    zone = zone or math.floor(f32(lon) / 6) + 31
    phi, lam, lam0 = lat * PI / 180, lon * PI / 180, (6 * zone - 183) * PI / 180
    e2 = 1 - b * b / a / a
    ep2 = e2 / (1 - e2)
    n = (a - b) / (a + b)
    s, c, t = math.sin(phi), math.cos(phi), math.tan(phi)
    nu = a / math.sqrt(1 - e2 * s * s)
    p = (lam - lam0) * (180 / PI) * 3600 / 10000
    arc = (a * (1 - n + 5 / 4 * (n**2 - n**3) + 81 / 64 * (n**4 - n**5)) * phi
           - 3 * a * n / 2 * (1 - n - 7 / 8 * (n**2 - n**3) + 55 / 64 * n**4) * math.sin(2 * phi)
           + 15 * a * n**2 / 16 * (1 - n + 3 / 4 * n**2) * math.sin(4 * phi)
           - 35 * a * n**3 / 48 * (1 - n + 11 / 16 * n**2) * math.sin(6 * phi)
           + 315 * a * n**4 / 51 * (1 - n) * math.sin(8 * phi))
    k2 = nu * s * c * SIN1**2 * 0.9996 * 1e8 / 2
    k3 = SIN1**4 * nu * s * c**3 / 24 * (5 - t * t + 9 * ep2 * c**2 + 4 * ep2**2 * c**4) * 9.996e15
    k4 = nu * c * 0.048461975452799996
    k5 = (SIN1 * c)**3 * (nu / 6) * (1 - t * t + ep2 * c * c) * 9.996e11
    north = arc * 0.9996 + (1e7 if lat < 0 else 0) + k2 * p**2 + k3 * p**4
    return 500000 + k4 * p + k5 * p**3, north, zone


def to_geo(x, y, zone, south=False, axes=DATUMS[0][1:]):
    a, b = axes
    e2 = 1 - (b / a)**2
    ep2 = e2 / (1 - e2)
    m = (1e7 - y if south else y) / 0.9996
    mu = m / (a * (1 - e2 / 4 - 3 * e2**2 / 64 - 5 * e2**3 / 256))
    e1 = (1 - math.sqrt(1 - e2)) / (1 + math.sqrt(1 - e2))
    f = (mu + (3 * e1 / 2 - 27 * e1**3 / 32) * math.sin(2 * mu) + (21 * e1**2 / 16 - 55 * e1**4 / 32) * math.sin(4 * mu)
         + 151 * e1**3 / 96 * math.sin(6 * mu) + 1097 * e1**4 / 512 * math.sin(8 * mu))
    c1, t1 = ep2 * math.cos(f)**2, math.tan(f)**2
    n1 = a / math.sqrt(1 - e2 * math.sin(f)**2)
    r1 = a * (1 - e2) / (1 - e2 * math.sin(f)**2)**1.5
    d = (500000 - x) / (n1 * 0.9996)
    lat = f - n1 * math.tan(f) / r1 * (d**2 / 2 + (5 + 3 * t1 + 10 * c1 - 4 * c1**2 - 9 * ep2) * d**4 / 24
                                       + (61 + 90 * t1 + 298 * c1 + 45 * t1**2 - 3 * c1**2 - 252 * ep2) * d**6 / 720)
    lon = (6 * zone - 183) * PI / 180 - (d - (1 + 2 * t1 + c1) * d**3 / 6 + (
        5 - 2 * c1 + 28 * t1 - 3 * c1**2 + 8 * ep2 + 24 * t1**2) * d**5 / 120) / math.cos(f)
    return (-lat if south else lat) * 180 / PI, lon * 180 / PI


def text(v, least, most):
    s = str(Decimal("%.15g" % v).quantize(Decimal(1).scaleb(-most), ROUND_HALF_UP))
    while len(s.split(".")[1]) > least and s.endswith("0"):
        s = s[:-1]
    return s


def layouts(angle):
    sign, v = ("-", -angle) if angle < 0 else ("", angle)
    sec = Decimal("%.15g" % (v * 3600)).quantize(Decimal("0.01"), ROUND_HALF_UP)
    minutes = Decimal("%.15g" % (v * 60)).quantize(Decimal("0.000001"), ROUND_HALF_UP)
    dms = "%d%02d%s" % (sec // 3600, sec % 3600 // 60, "%05.2f" % (sec % 60))
    dmm = "%d%s" % (minutes // 60, "%09.6f" % (minutes % 60))
    strip = lambda t, keep: t.rstrip("0").ljust(t.index(".") + 1 + keep, "0")
    return sign + strip(dms, 1), sign + strip(dmm, 2), sign + text(v, 4, 10)


# The surveys of tests/cli/Cli.h. ---------------------------------------------------------------------------------
ALONG = [0, 10, 25, 45, 50]
GRID = [(612340.25 + 0.8 * s, 5034567.5 + 0.6 * s) for s in ALONG]
DEPTH = [3.25, 3.75, 4.5, 5.5, 6.25]
PLACES = [(45.4009, 12.3014), (45.4012, 12.3021), (45.4013, 12.3025), (45.4019, 12.3036), (45.4023, 12.3041)]
CABLE = [15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 13, 14]  # E1..E11, C1, C2
CLOCK = [(288690, 5030890, 4.25), (288700, 5030900, 5.5), (288731, 5030913, 6.25), (288757, 5030937, 7.75),
         (288798, 5030952, 9.5), (288822, 5030971, 11.25)]  # 10 s apart, the second at the first measurement's time
TRACK = [(612346.25, 5034571.0, 7.5), (612358.25, 5034576.0, 8.25), (612366.25, 5034582.0, 9.75),
         (612377.25, 5034591.75, 11.5)]
OTHER = [18, 20.5, 23, 25.5, 28, 30.5, 33, 35.5, 38, 40.5, 43, 13, 15.5]


def rho(n, c, cable=CABLE):
    a, b, m, nn = cable[11], cable[12], cable[c - 1], cable[c]
    s = 1 / abs(a - m) - 1 / abs(a - nn) - 1 / abs(b - m) + 1 / abs(b - nn)
    k = f32(6.2832 / s)
    va, vb = 28 + 2 * c + n / 4, -(29 + 2 * c + n / 4)
    return f32((va / (800 + n) + vb / -(810 + 2 * n)) * k / 2)


def profile(grid, first, last):
    rows, d = [], 0.0
    for p in range(first, last + 1):
        if p > first:
            d += math.dist(grid[p - 2], grid[p - 1])
        rows.append((grid[p - 1], DEPTH[p - 1], d))
    return rows


def lookup(rows, x):
    if x < 0:
        return rows[0][1]
    return next((r[1] for r in rows if abs(x) <= r[2]), rows[-1][1])


def record(first, last, p, c, cable=CABLE, cable_off=0.0, echo_off=0.0, true=False, grid=GRID):
    rows = profile(grid, first, last)
    step, top = abs(cable[12] - cable[11]), max(cable)
    rel = [v - top for v in cable]
    span = min(rel)
    d = math.dist(grid[first - 1], grid[p - 1])
    x = [math.trunc((rel[e] + d - span) / step) * step + cable_off for e in (11, 12, c - 1, c)]
    z = [lookup(rows, v + echo_off + span) for v in x]
    east, north = grid[p - 1]
    if true:
        lag = abs((rel[12] + rel[11]) / 2) + cable_off
        east, north = east - 0.8 * lag, north - 0.6 * lag
    return x, z, f32(round(east, 2)), f32(round(north, 2)), lookup(rows, x[0] + echo_off + span)


def between(keys, rows, at):
    """The row at a key, linear between its neighbours."""
    for k in range(len(keys) - 1):
        if keys[k] <= at <= keys[k + 1]:
            t = (at - keys[k]) / (keys[k + 1] - keys[k])
            return tuple(a + (b - a) * t for a, b in zip(rows[k], rows[k + 1]))
    raise ValueError(at)


# Pictures --------------------------------------------------------------------------------------------------------
def rotate(p, theta, phi, gamma):
    x, y, z = map(f32, p)
    c, s = math.cos(theta), math.sin(theta)
    y, z = f32(c * y + s * z), f32(-s * y + c * z)
    c, s = math.cos(gamma), math.sin(gamma)
    x, z = f32(c * x + s * z), f32(-s * x + c * z)
    c, s = math.cos(phi), math.sin(phi)
    return f32(c * x + s * y), f32(-s * x + c * y), z


def cross(p1, p2, p3, p4):
    m1, m2 = (p3[1] - p1[1]) / (p3[0] - p1[0]), (p4[1] - p2[1]) / (p4[0] - p2[0])
    x = (m1 * p1[0] - m2 * p2[0] + p2[1] - p1[1]) / (m1 - m2)
    return x, (x - p1[0]) * m1 + p1[1]


def margin(h):
    """The window's height over the survey's: room for the legend and the caption below it, 15 % at least."""
    text = int(1.2 * (12 if h < 720 else h // 60))  # a line of text
    foot = 2 * text + max(6, text * 2 // 3) + 3 * (text // 4 + 1) + 2 * text
    return max(1.15, 0.5 / (0.6 - 1.1 * foot / h))


def pixel(p, w=640, h=400, theta=90, phi=0, gamma=0, zoom=1, perspective=False, side=40.0):
    x, y, z = rotate(p, *(v * math.pi / 180 for v in (theta, phi, gamma)))
    half, ratio = side / 2 * margin(h), 1.1 * w / h
    if perspective:  # vanishing point in the middle of the picture
        x, z = cross((x, z), (x + half - y, z), (0.0, 0.005), (-half * ratio, 0.005))
    left, top, bottom = -half * ratio * zoom, -half * zoom, half * zoom * 1.2
    return round((x - left) * w / (-2 * left)), round((z - top) * h / (bottom - top))


def box(points, w=640, h=400):
    xs, ys = zip(*points)
    return max(min(xs), 0), max(min(ys), 0), min(max(xs), w - 1), min(max(ys), h - 1)


def curtain(levels=10, shift=(0, 0), w=640, h=400, **view):
    g = [(x - (GRID[0][0] + GRID[-1][0]) / 2 + shift[0], y - (GRID[0][1] + GRID[-1][1]) / 2 + shift[1]) for x, y in GRID]
    mid = [g[0]] + [((a[0] + b[0]) / 2, (a[1] + b[1]) / 2) for a, b in zip(g, g[1:])] + [g[-1]]
    return box([pixel((*m, -k * 12.5), w, h, **view) for m in mid for k in range(levels + 1)], w, h)


def main():
    print("# datums, 45.4321 13.7 and back 398307.25 5031876.5 zone 33")
    for name, *axes in DATUMS:
        x, y, z = to_utm(45.4321, 13.7, axes=axes)
        back = to_geo(398307.25, 5031876.5, 33, axes=axes)
        print(f'{{"{name}", "{x:.4f} {y:.4f} {z}", "{text(back[0], 4, 10)} {text(back[1], 4, 10)}"}},')
    print("# zone 32:", "%.4f %.4f %d" % to_utm(45.4321, 12.4, 32), " south:", "%.4f %.4f %d" % to_utm(-45.4321, 13.7))
    for south in (False, True):
        lat, lon = to_geo(398307.25, 5031876.5, 33, south)
        print("# layouts", [f"{a} {b}" for a, b in zip(layouts(lat), layouts(lon))])
    print("# places", [(layouts(a), layouts(b)) for a, b in PLACES])
    for zone in (None, 32):
        print("# places in grid", zone, [to_utm(a, b, zone) for a, b in PLACES])
    utm = [to_utm(a, b) for a, b in PLACES]
    d = [math.dist(utm[k][:2], utm[k + 1][:2]) for k in range(4)]
    print("# gap at 4:", (utm[2][0] + utm[4][0]) / 2, (utm[2][1] + utm[4][1]) / 2, "step", d)
    print("# south", [to_utm(-a, b) for a, b in PLACES])
    print("# south track", [to_utm(-(45 + m / 60), 12 + n / 60) for m, n in ((24.5, 18.25), (24.75, 18.5))])
    for lat, lon in (PLACES[0], (-PLACES[0][0], PLACES[0][1])):
        x, y, z = to_utm(lat, lon)
        print("# first place there and back", to_geo(x, y, z, lat < 0))
    for offset in (0, 3, -4):
        print("# clock", offset, [between([10 * k - 10 for k in range(6)], CLOCK, 7 * n + offset) for n in range(5)])
    along = [0.0]
    for a, b in zip(TRACK, TRACK[1:]):
        along.append(along[-1] + math.dist(a[:2], b[:2]))
    print("# connect 1:1 5:4", [between(along, TRACK, s * along[3] / 50) for s in ALONG])
    print("# connect 1:4 5:1", [between(along, TRACK, along[3] - s * along[3] / 50) for s in ALONG])
    print("# connect 2:1 4:3", [between(along, TRACK, (s - 10) * along[2] / 35) for s in ALONG[1:4]])
    print("# grid geo", to_geo(*GRID[0], 32), to_geo(*GRID[0], 32, True), to_geo(*GRID[4], 32))
    print("# rho(1,1) rho(1,2) rho(3,2)", repr(rho(1, 1)), repr(rho(1, 2)), repr(rho(3, 2)), "other cable",
          repr(rho(3, 2, OTHER)), "levels of 1", [rho(1, c) for c in range(1, 11)], "extremes",
          min(rho(n, c) for n in range(1, 6) for c in range(1, 11)), max(rho(n, c) for n in range(1, 6) for c in range(1, 11)))
    for options in ({}, dict(cable_off=4.5), dict(echo_off=14), dict(cable_off=4.5, echo_off=14), dict(true=True),
                    dict(true=True, cable_off=4.5), dict(cable=OTHER)):
        print("# record 13 = point 2 channel 3", options, record(1, 5, 2, 3, **options))
    print("# from 2 to 4, point 4 channel 1", record(2, 4, 4, 1))
    for name, o in [("", {}), ("--theta 180 --zoom 6", dict(theta=180, zoom=6)), ("--phi 30", dict(phi=30)),
                    ("--theta 120 --zoom 6", dict(theta=120, zoom=6)),
                    ("--gamma 25 --zoom 3", dict(gamma=25, zoom=3)),
                    ("--theta 150 --gamma 20 --phi=-40 --zoom 8", dict(theta=150, gamma=20, phi=-40, zoom=8)),
                    ("--zoom 2", dict(zoom=2)), ("--zoom 0.95", dict(zoom=.95)),
                    ("--size 1280x800", dict(w=1280, h=800)), ("--size 400x320", dict(w=400, h=320)),
                    ("--projection perspective --zoom 2", dict(perspective=True, zoom=2)),
                    ("--projection perspective --theta 130 --zoom 6", dict(perspective=True, theta=130, zoom=6)),
                    ("--data-shift 3.5,0", dict(shift=(3.5, 0))), ("--data-shift 0,2.5", dict(shift=(0, 2.5))),
                    ("--data-shift=-1.5,-4", dict(shift=(-1.5, -4))),
                    ("range: nine levels, --theta 180 --zoom 6", dict(levels=9, theta=180, zoom=6))]:
        print("#", name, curtain(**o))
    ends = [pixel(p) for p in ((-20, -15, 0), (20, 15, 0))]
    shifted = [pixel(p) for p in ((26, 15, 0), (20, 24, 0))]
    print("# track ends", ends, "depth shifted 6,0 and 0,9", shifted)
    fixes = [pixel((x - 612360.25, y - 5034582.5, 0)) for x, y, _ in TRACK]
    print("# fixes", fixes)
    arrow = [((gx - 17) * 40 / 200 - 15, -17 - (gy - 17) * 40 / 200, 0) for gx in (12, 22) for gy in (4, 32)]
    print("# arrow", box([pixel(p) for p in arrow]))


if __name__ == "__main__":
    main()
