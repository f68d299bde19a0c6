#!/bin/sh
# The hard knocks many times over, and what they come to: about ten minutes. KELVORA_SEED=<number> sets other choices
# than those of every day; a name (long_day, start, …) runs that one alone. Wants the tests built:
# cmake --build --preset dev.
set -eu
cd "$(dirname "$0")/../.."

export KELVORA_LONG=1 QTEST_FUNCTION_TIMEOUT=3600000 QT_QPA_PLATFORM=offscreen QTEST_DISABLE_STACK_DUMP=1 LC_ALL=C.UTF-8
exec "${KELVORA_BUILD:-build/dev}/tests/test_hard_knocks" "$@" -maxwarnings 0
