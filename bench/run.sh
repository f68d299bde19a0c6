#!/bin/sh
# Measures what a sampler waits for and prints a table: bench/run.sh [small|season|ceiling] [benchmark options].
# Installs what the build needs where it is missing. The data files are made once and kept in the build folder.
set -eu
cd "$(dirname "$0")/.."

. packaging/packages.sh
kelvora_packages="$kelvora_packages libbenchmark-dev"
install_missing_packages
cmake --preset bench >/dev/null
cmake --build --preset bench >&2
size="${1:-ceiling}"
[ $# -eq 0 ] || shift
build/bench/bench/kelvora_bench --make "$size"
exec build/bench/bench/kelvora_bench "$size" "$@"
