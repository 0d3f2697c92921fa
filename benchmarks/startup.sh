#!/usr/bin/env bash
# Start-up time: from process start until its window is mapped on the screen, for
# parlex on the example script and for a minimal Qt window (one QLabel), alternating,
# under one Xvfb server; and the memory each holds then (resident set). Prints the
# median of each and their ratios. The minimal window opens at Parlex's size (760x560),
# since the picture a window keeps of itself grows with its area; MINIMAL_SIZE= (empty)
# leaves it at the label's own size.
# Needs: xvfb, xdotool (apt-get install xvfb xdotool). Usage: benchmarks/startup.sh [RUNS]
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${1:-15}
build=${BUILD:-build}
read -r -a minimalSize <<<"${MINIMAL_SIZE-760 560}"
display=:$(( 100 + $$ % 400 ))
Xvfb $display -screen 0 1280x800x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null' EXIT
sleep 1

measure() { # title, command...
    local title=$1; shift
    local start end
    start=$(date +%s%N)
    DISPLAY=$display "$@" >/dev/null 2>&1 &
    local pid=$!
    # Poll every 10 ms: xdotool's own --sync waits half a second between looks.
    local deadline=$(( start + 5000000000 ))
    until DISPLAY=$display xdotool search --onlyvisible --name "^$title\$" >/dev/null 2>&1; do
        if ! kill -0 $pid 2>/dev/null || (( $(date +%s%N) > deadline )); then
            # Polling X this often can make Xvfb refuse a new client; such a start is
            # not counted, only reported.
            echo "no $title window (process gone or 5 s passed)" >&2
            kill $pid 2>/dev/null; wait $pid 2>/dev/null || true
            return
        fi
        sleep 0.01
    done
    end=$(date +%s%N)
    local rss
    rss=$(awk '/^VmRSS:/ {print $2}' /proc/$pid/status)
    kill $pid; wait $pid 2>/dev/null || true
    echo "$(( (end - start) / 1000 )) $rss"
}

median() { sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }

parlex=(); minimal=(); parlexKb=(); minimalKb=()
for ((i = 0; i < runs; i++)); do
    if r=$(measure MINIMAL "$build/benchmarks/minimal-window" "${minimalSize[@]}") && [ -n "$r" ]; then
        minimal+=("${r% *}"); minimalKb+=("${r#* }")
    fi
    if r=$(measure PARLEX "$build/parlex" examples/053.npc) && [ -n "$r" ]; then
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
