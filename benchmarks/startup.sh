#!/usr/bin/env bash
# Start-up time: from process start until the X server maps its window, and until the
# program first draws into it (its first picture on the screen), for parlex on the
# example script and for a minimal Qt window (one QLabel), alternating, under one Xvfb
# server; and the memory each holds half a second after it drew (resident set). Prints
# the median of each and their ratios. start-watch (built beside the benchmarks)
# listens for the server's map and damage events, so nothing polls the server while a
# program starts. The minimal window opens at Parlex's size (760x560), since the
# picture a window keeps of itself grows with its area; MINIMAL_SIZE= (empty) leaves it
# at the label's own size.
# Needs: xvfb, libxcb1-dev and libxcb-damage0-dev (for start-watch).
# Usage: benchmarks/startup.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-15}
build=${BUILD:-build}
read -r -a minimalSize <<<"${MINIMAL_SIZE-760 560}"
watch=$build/benchmarks/start-watch
[ -x "$watch" ] || { echo "no $watch: build it (needs libxcb1-dev, libxcb-damage0-dev)" >&2; exit 1; }
display=:$(( 100 + $$ % 400 ))
Xvfb $display -screen 0 1280x800x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null' EXIT
sleep 1

measure() { # command...; prints "MAPPED_US DRAWN_US KIB" or nothing
    DISPLAY=$display "$watch" "$@" 2>/dev/null || true
}

median() { sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }

declare -a mMap mDraw mKb pMap pDraw pKb
for ((i = 0; i < runs; i++)); do
    if r=$(measure "$build/benchmarks/minimal-window" "${minimalSize[@]}") && [ -n "$r" ]; then
        read -r a b c <<<"$r"; mMap+=("$a"); mDraw+=("$b"); mKb+=("$c")
    fi
    if r=$(measure "$build/parlex" examples/053.npc) && [ -n "$r" ]; then
        read -r a b c <<<"$r"; pMap+=("$a"); pDraw+=("$b"); pKb+=("$c")
    fi
done
med() { printf '%s\n' "$@" | median; }
echo "runs: $runs (measured: minimal ${#mMap[@]}, parlex ${#pMap[@]})"
echo "minimal window median: mapped $(med "${mMap[@]}") us, drawn $(med "${mDraw[@]}") us, $(med "${mKb[@]}") KiB resident"
echo "parlex + example median: mapped $(med "${pMap[@]}") us, drawn $(med "${pDraw[@]}") us, $(med "${pKb[@]}") KiB resident"
awk -v pm="$(med "${pMap[@]}")" -v mm="$(med "${mMap[@]}")" -v pd="$(med "${pDraw[@]}")" \
    -v md="$(med "${mDraw[@]}")" -v pk="$(med "${pKb[@]}")" -v mk="$(med "${mKb[@]}")" \
    'BEGIN { printf "ratio: %.2f (time to the first picture), %.2f (time to the map), %.2f (memory)\n", pd / md, pm / mm, pk / mk }'
