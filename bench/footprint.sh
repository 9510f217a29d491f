#!/usr/bin/env bash
# footprint.sh BUILD [SECONDS]: what the library of an optimised build takes, as a table: text of the stripped libraries,
# then what kest_gps_footprint finds, each rate for SECONDS (20).
set -euo pipefail
build=$1
stripped=$(mktemp -d)
trap 'rm -rf "$stripped"' EXIT
echo '| what                                                         | value             |'
echo '| ------------------------------------------------------------ | ----------------- |'
for library in GpsLib/libKest_GPS.so layers/libKest_Layers.so; do
    strip -o "$stripped/library" "$build/$library"
    printf '| %-60s | %10d byte   |\n' "text of $(basename "$library"), stripped" \
        "$(size "$stripped/library" | awk 'NR == 2 { print $1 }')"
done
"$build/bench/kest_gps_footprint" "${2:-20}"
