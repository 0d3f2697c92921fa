#!/usr/bin/env bash
# Times lint and find of parlex-cli over a generated mod folder: N copies of the
# example script (default 10000) in 100 folders, each with a speech file beside it.
# Prints the median of RUNS runs (default 5) of each command.
# usage: benchmarks/mod_commands.sh [N] [RUNS]     (after `make build`)
set -euo pipefail
n=${1:-10000}
runs=${2:-5}
cli=${BUILD:-build}/parlex-cli
example=examples/053.npc
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$cli" edt new "$folder/speech.EDT" --kind npc >/dev/null
for p in 0 1 2 3 4 5 10 20; do
    "$cli" edt set "$folder/speech.EDT" --kind npc --phrase "$p" --text "Фраза $p" >/dev/null
done
for ((d = 0; d < 100; ++d)); do
    mkdir -p "$folder/$d"
    for ((i = d; i < n; i += 100)); do
        cp "$example" "$folder/$d/$i.npc"
        cp "$folder/speech.EDT" "$folder/$d/$i.EDT"
    done
done
rm "$folder/speech.EDT"

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
TIMEFORMAT=%R
time_of() {
    for ((r = 0; r < runs; ++r)); do
        { time "$@" >/dev/null 2>&1 || true; } 2>&1
    done | median
}
echo "scripts: $n, runs: $runs, cores: $(nproc)"
echo "lint            $(time_of "$cli" lint "$folder") s"
echo "lint --json     $(time_of "$cli" lint --json "$folder") s"
echo "find --list T   $(time_of "$cli" find "$folder" --list T --code 500) s"
echo "find --phrase   $(time_of "$cli" find "$folder" --phrase 20) s"
echo "explain --json  $(time_of "$cli" explain --json "$folder") s"
echo "info (baseline: one script, process start) $(time_of "$cli" info "$example") s"
