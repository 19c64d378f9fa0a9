#!/usr/bin/env bash
# Reads the open formats of the sample survey with programs of others: GDAL (gdal-bin), VTK (python3-vtk9) and Python.
# check.sh CORVAN-CLI; no part of ./test.sh
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cli=$(realpath "${1:?path of corvan-cli}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

"$cli" process "$here"/../../samples/lagoon_1.bin "$here"/../../samples/lagoon_2.bin --past-gaps --bad-gps skip \
  --format csv,ert,bottom,res2dinv,gpkg,geojson,vtu --out s >summary 2>notes
"$cli" process "$here"/../../samples/lagoon_1.bin --past-gaps --bad-gps skip --ert-dimension 3 --format ert --out m \
  >>summary 2>>notes

echo "ogrinfo: layers, counts and extents"
ogrinfo -al -so s.gpkg | grep -E '^(Layer name|Geometry|Feature Count|Extent)'
ogr2ogr -f GPKG copy.gpkg s.gpkg 2>ogr2ogr.log
[ ! -s ogr2ogr.log ] || { cat ogr2ogr.log; exit 1; }
ogrinfo s.gpkg -sql "DELETE FROM readings WHERE fid = 1" >/dev/null # the triggers keep the index true
ogrinfo -q s.gpkg -sql "SELECT count(*) AS left_in_index FROM rtree_readings_geom" | grep left_in_index
ogr2ogr -f CSV -sql "SELECT n, ST_X(geom) AS x, ST_Y(geom) AS y, rho4 FROM measurements" measurements.csv s.gpkg
ogr2ogr -f CSV -where "layer='measurements'" -lco GEOMETRY=AS_XY points.csv s.geojson

PYTHONDONTWRITEBYTECODE=1 /usr/bin/python3 "$here/check.py" .
