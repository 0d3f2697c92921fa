#!/usr/bin/env bash
# Installs the Debian packages that building and testing Parlex needs.
# Does nothing when everything is already there; asks apt only for what is missing.
set -euo pipefail

# `deps.sh windows`: what the Windows build and its tests under Wine need instead.
if [ "${1:-}" = windows ]; then
    packages=(make cmake g++-mingw-w64-x86-64 wine64 googletest)
# `deps.sh fuzz`: clang 16 with libFuzzer and libc++ (the standard library of Debian 12's
# g++ has a <expected> that clang only compiles from version 17 on).
elif [ "${1:-}" = fuzz ]; then
    packages=(make cmake clang-16 libclang-rt-16-dev libc++-16-dev libc++abi-16-dev)
# `deps.sh tidy`: clang-tidy 16 and the same compiler and library to read the tree with,
# and Qt's headers for the window's files.
elif [ "${1:-}" = tidy ]; then
    packages=(make cmake clang-16 clang-tidy-16 libc++-16-dev libc++abi-16-dev qt6-base-dev
              qt6-svg-dev qt6-tools-dev qt6-l10n-tools libgtest-dev libgmock-dev)
else
packages=(make cmake g++ clang-format libgtest-dev libgmock-dev libbenchmark-dev qt6-base-dev
          qt6-translations-l10n qt6-l10n-tools qt6-tools-dev qt6-svg-dev xdg-utils shared-mime-info desktop-file-utils
          appstream help2man file dpkg-dev gettext)
fi

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Need root (or sudo) to install: ${missing[*]}" >&2; exit 1; }
    sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update
$sudo apt-get install -y --no-install-recommends "${missing[@]}"
