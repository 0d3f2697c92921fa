#!/usr/bin/env bash
# Writes the seed corpus of the fuzz targets into fuzz/corpus/ from the bundled
# example and the program's own writers (no game files).
# Usage: fuzz/make-corpus.sh PATH/TO/make_corpus
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
rm -rf "$here/corpus"
"$1" "$here/../examples/053.npc" "$here/corpus"
find "$here/corpus" -type f | wc -l | xargs echo "seed files:"
