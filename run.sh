#!/bin/sh
# Builds the program and opens it. Installs what the build needs where it is missing.
set -eu
cd "$(dirname "$0")"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "Kelvora needs a display: start it from a desktop, or set DISPLAY." >&2
    exit 1
fi

. packaging/packages.sh
install_missing_packages
cmake --preset release >/dev/null
cmake --build --preset release
exec build/release/kelvora "$@"
