#!/bin/sh
# Builds the fuzzer with clang and runs it as often as the first argument says (10000 if there is none).
set -eu
cd "$(dirname "$0")/../.."

cmake --preset fuzz -DKELVORA_FUZZ_RUNS="${1:-10000}" >/dev/null
cmake --build --preset fuzz
ctest --preset fuzz
