#!/usr/bin/env bash
# Start-up time: from process start until the X server maps its window, for parlex on
# the example script and for a minimal Qt window (one QLabel), alternating, under one
# Xvfb server; and the memory each holds half a second after its window appeared
# (resident set). Prints the median of each and their ratios. start-watch (built beside
# the benchmarks) listens for the server's map events, so nothing polls the server
# while a program starts. The minimal window opens at Parlex's size (760x560), since the
# picture a window keeps of itself grows with its area; MINIMAL_SIZE= (empty) leaves it
# at the label's own size.
# Needs: xvfb and libxcb1-dev (apt-get install xvfb libxcb1-dev).
# Usage: benchmarks/startup.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-15}
build=${BUILD:-build}
read -r -a minimalSize <<<"${MINIMAL_SIZE-760 560}"
watch=$build/benchmarks/start-watch
[ -x "$watch" ] || { echo "no $watch: build it (needs libxcb1-dev)" >&2; exit 1; }
display=:$(( 100 + $$ % 400 ))
Xvfb $display -screen 0 1280x800x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null' EXIT
sleep 1

measure() { # command...; prints "MICROSECONDS KIB" or nothing
    DISPLAY=$display "$watch" "$@" 2>/dev/null || true
}

median() { sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }

parlex=(); minimal=(); parlexKb=(); minimalKb=()
for ((i = 0; i < runs; i++)); do
    if r=$(measure "$build/benchmarks/minimal-window" "${minimalSize[@]}") && [ -n "$r" ]; then
        minimal+=("${r% *}"); minimalKb+=("${r#* }")
    fi
    if r=$(measure "$build/parlex" examples/053.npc) && [ -n "$r" ]; then
        parlex+=("${r% *}"); parlexKb+=("${r#* }")
    fi
done
m=$(printf '%s\n' "${minimal[@]}" | median)
p=$(printf '%s\n' "${parlex[@]}" | median)
mk=$(printf '%s\n' "${minimalKb[@]}" | median)
pk=$(printf '%s\n' "${parlexKb[@]}" | median)
echo "runs: $runs (measured: minimal ${#minimal[@]}, parlex ${#parlex[@]})"
echo "minimal window median: ${m} us, ${mk} KiB resident"
echo "parlex + example median: ${p} us, ${pk} KiB resident"
awk -v p="$p" -v m="$m" -v pk="$pk" -v mk="$mk" \
    'BEGIN { printf "ratio: %.2f (time), %.2f (memory)\n", p / m, pk / mk }'
