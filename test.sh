#!/bin/sh
# Builds everything and runs all tests without a display: as the developers build it, and under the sanitizers.
# Installs what the build needs where it is missing.
set -eu
cd "$(dirname "$0")"

. packaging/packages.sh
install_missing_packages
for preset in dev sanitize; do
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    ctest --preset "$preset"
done
# A short run of the fuzzer too, where its compiler is at hand; its corpus has been tried above either way.
if command -v clang++ >/dev/null 2>&1; then
    tests/fuzz/run.sh
fi
