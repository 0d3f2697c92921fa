#!/usr/bin/env bash
# Times parlex-cli lint over a mod of varied scripts (benchmarks/make_corpus.cpp: N
# scripts, default 10000, speech files beside half of them) against reading the same
# files with cat. Runs of the two alternate; prints the median of RUNS (default 7)
# runs of each and their ratio.
# usage: benchmarks/lint_corpus.sh [N] [RUNS]     (after `make build`)
set -euo pipefail
n=${1:-10000}
runs=${2:-7}
build=${BUILD:-build}
cli=${CLI:-$build/parlex-cli} # CLI=... measures another build on the same mod
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$build/benchmarks/make-corpus" "$folder" "$n"
read_all() { find "$folder" -type f -print0 | xargs -0 cat >/dev/null; }
lint() { "$cli" lint "$@" "$folder" >/dev/null || true; }
read_all # the files in the page cache, as after any first run

TIMEFORMAT=%R
seconds() { { time "$@"; } 2>&1; }
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
: >"$folder/read" >"$folder/lint" >"$folder/json"
for ((r = 0; r < runs; ++r)); do
    seconds read_all >>"$folder/read"
    seconds lint >>"$folder/lint"
    seconds lint --json >>"$folder/json"
done
read_s=$(median <"$folder/read")
lint_s=$(median <"$folder/lint")
json_s=$(median <"$folder/json")
echo "scripts: $n, speech files: $(find "$folder" -name '*.EDT' | wc -l), runs: $runs, cores: $(nproc)"
echo "read (cat)   $read_s s"
echo "lint         $lint_s s   $(awk -v a="$lint_s" -v b="$read_s" 'BEGIN { printf "%.2fx the read", a / b }')"
echo "lint --json  $json_s s   $(awk -v a="$json_s" -v b="$read_s" 'BEGIN { printf "%.2fx the read", a / b }')"
