#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks what lands where: the
# programs, the help, the desktop files (validated as the desktop validates them),
# the icon, the manual page and the shell completion.
# usage: install_test.sh BUILD_DIR
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null

for f in bin/parlex bin/parlex-cli share/parlex/Parlex.html share/parlex/Parlex_en.html \
         share/applications/org.parlex.Parlex.desktop \
         share/metainfo/org.parlex.Parlex.metainfo.xml \
         share/mime/packages/org.parlex.Parlex.xml \
         share/icons/hicolor/scalable/apps/org.parlex.Parlex.svg \
         share/man/man1/parlex-cli.1.gz share/man/ru/man1/parlex-cli.1.gz \
         share/bash-completion/completions/parlex-cli; do
    [ -s "$prefix/$f" ] || fail "$f not installed"
done
# Nothing else: no tests, benchmarks or helpers.
count=$(find "$prefix" -type f | wc -l)
[ "$count" -eq 11 ] || { find "$prefix" -type f >&2; fail "$count files installed, 11 expected"; }
[ -x "$prefix/bin/parlex" ] && [ -x "$prefix/bin/parlex-cli" ] || fail "programs not executable"

desktop-file-validate "$prefix/share/applications/org.parlex.Parlex.desktop" ||
    fail "desktop entry"
appstreamcli validate --no-net "$prefix/share/metainfo/org.parlex.Parlex.metainfo.xml" >/dev/null ||
    fail "metainfo"
xmllint() { python3 -c 'import sys, xml.dom.minidom; xml.dom.minidom.parse(sys.argv[1])' "$1"; }
xmllint "$prefix/share/mime/packages/org.parlex.Parlex.xml" || fail "MIME package is no XML"
xmllint "$prefix/share/icons/hicolor/scalable/apps/org.parlex.Parlex.svg" || fail "icon is no XML"

version=$("$prefix/bin/parlex-cli" --version)
grep -qx 'parlex-cli [0-9.]*' <<<"$version" || fail "--version"
manual=$(zcat "$prefix/share/man/man1/parlex-cli.1.gz")
grep -q '^\.SH NAME' <<<"$manual" || fail "man page has no NAME"
grep -q 'explain PATH' <<<"$manual" || fail "man page lacks the commands"
# The English page is English through and through; the Russian one is Russian.
! grep -qP '[\x{0400}-\x{04FF}]' <<<"$manual" || fail "the English man page has Russian words"
zcat "$prefix/share/man/ru/man1/parlex-cli.1.gz" | grep -q 'Использование' ||
    fail "the Russian man page is not Russian"

# The completion offers every command the overview lists.
completion="$prefix/share/bash-completion/completions/parlex-cli"
offered() {
    bash -c 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _parlex_cli
             printf "%s\n" "${COMPREPLY[@]}"' _ "$completion" "$@"
}
# (Output is taken whole first: grep -q leaving a pipe early would fail it under pipefail.)
commands=$(offered parlex-cli "")
while read -r first second; do
    grep -qx -- "$first" <<<"$commands" || fail "completion lacks $first"
    if [ -n "$second" ] && [ "${second#-}" = "$second" ] && [ "${second#[A-Z]}" = "$second" ]; then
        subcommands=$(offered parlex-cli "$first" "")
        grep -qx -- "$second" <<<"$subcommands" || fail "completion lacks $first $second"
    fi
done < <("$prefix/bin/parlex-cli" --help | sed -n 's/^  \([a-z]\+\)\( [a-z]\+\)\? .*/\1\2/p')
echo "installed layout OK"
