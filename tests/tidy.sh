#!/bin/sh
# Runs clang-tidy over everything, or over the files given. It cannot read the compiler's precompiled headers, so it has a
# build folder without them, in which only what moc writes is made.
set -eu
cd "$(dirname "$0")/.."

cmake -S . -B build/tidy -G Ninja -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DCMAKE_UNITY_BUILD=OFF -DKELVORA_BENCH=ON >/dev/null
# shellcheck disable=SC2046  # a list of words
cmake --build build/tidy --target $(ninja -C build/tidy -t targets all | sed -n 's/^\([a-z_0-9]*_autogen\): .*/\1/p') >/dev/null
moc=$(find "$PWD/build/tidy" -path '*_autogen/include' | sed 's/^/--extra-arg=-I/')
if [ $# -gt 0 ]; then printf '%s\n' "$@"; else git ls-files '*.cpp' ':!tests/fuzz'; fi |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/tidy --quiet $moc 2>/dev/null
