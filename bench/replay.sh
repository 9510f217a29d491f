#!/usr/bin/env bash
# replay.sh PROGRAM [EPOCHS]: replays a generated log (200,000 epochs, 100 MB) beside gpsbabel, then a day at 1 Hz with
# smoothing. PROGRAM is kest_gps_replay_speed. Installs gpsbabel where it is missing.
set -euo pipefail
program=$1
epochs=${2:-200000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
command -v gpsbabel >/dev/null || { apt-get update -qq && apt-get install -y -qq --no-install-recommends gpsbabel >/dev/null; }

"$program" write "$work/log" "$epochs"
cat "$work/log" >/dev/null # in the page cache for both
printf 'replay    %s\n' "$("$program" replay "$work/log")"
begin=$(date +%s.%N)
gpsbabel -i nmea -f "$work/log" -o csv -F /dev/null
end=$(date +%s.%N)
printf 'gpsbabel  %s\n' "$(echo "$begin $end $(stat -c %s "$work/log") $epochs" |
    awk '{ s = $2 - $1; printf "%d epochs %.3f s  %.1f MB/s  %.0f epochs/s", $4, s, $3 / 1e6 / s, $4 / s }')"
"$program" write "$work/day" 86400
printf 'a day     %s\n' "$("$program" replay "$work/day")"
printf 'smoothed  %s\n' "$("$program" smooth "$work/day")"
