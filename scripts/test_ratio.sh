#!/usr/bin/env bash
# Non-blank lines of .cpp/.h under src/<lib> and tests/<lib>, and their ratio, per
# library. The test helpers at the top of tests/ are shown on a line of their own.
# Exit status 1 when a library's tests pass the given percentage (default 35).
set -euo pipefail
cd "$(dirname "$0")/.."
limit=${1:-35}
count() { find "$@" \( -name '*.cpp' -o -name '*.h' \) -print0 2>/dev/null | xargs -0 -r cat | grep -cv '^[[:space:]]*$' || true; }
status=0
allCode=0 allTests=0
printf '%-8s %8s %8s %8s\n' library code tests ratio
for lib in core session gui cli; do
    code=$(count "src/$lib")
    tests=$(count "tests/$lib")
    allCode=$((allCode + code)) allTests=$((allTests + tests))
    ratio=$((100 * tests / code))
    printf '%-8s %8d %8d %7d%%\n' "$lib" "$code" "$tests" "$ratio"
    [ $((100 * tests)) -le $((limit * code)) ] || status=1
done
helpers=$(find tests -maxdepth 1 -name '*.h' -print0 | xargs -0 cat | grep -cv '^[[:space:]]*$')
printf '%-8s %8s %8d\n' helpers - "$helpers"
printf '%-8s %8d %8d %7d%%\n' all "$allCode" $((allTests + helpers)) $((100 * (allTests + helpers) / allCode))
exit $status
