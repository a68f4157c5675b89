#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Writes a drawing the size of a whole bridge's: N line strings of three
# points (200,000 by default, about 15.6 MB) spread over eight levels and a
# field of 700 by 400 feet (inside the range of ogr2ogr's
# default seed file), as GeoJSON turned into a V7 design file
# by GDAL's ogr2ogr, as the drawing batch program does.
# Usage: bench/make-big-drawing.sh OUT.dgn [N]
set -euo pipefail
out=${1:?usage: make-big-drawing.sh OUT.dgn [N]}
count=${2:-200000}
geojson=$(mktemp --suffix=.geojson)
trap 'rm -f "$geojson"' EXIT
awk -v n="$count" 'BEGIN {
  srand(7)
  print "{\"type\":\"FeatureCollection\",\"features\":["
  for (i = 0; i < n; i++) {
    x = rand() * 700; y = rand() * 400
    printf "%s{\"type\":\"Feature\",\"properties\":{\"Level\":%d,\"ColorIndex\":%d},", (i ? "," : ""), 1 + i % 8, 1 + i % 7
    printf "\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[%.3f,%.3f],[%.3f,%.3f],[%.3f,%.3f]]}}\n",
           x, y, x + rand() * 4 - 2, y + rand() * 4 - 2, x + rand() * 4 - 2, y + rand() * 4 - 2
  }
  print "]}"
}' >"$geojson"
rm -f "$out"
ogr2ogr -f DGN "$out" "$geojson"
