#!/bin/sh
# Opens the program with a sampled year to look at and to try out, on a data folder of its own: build/demo. Your own
# data are not touched. "./demo.sh new" gives the year back as it was. Log in as Administrator, password kelvora.
set -eu
cd "$(dirname "$0")"

. packaging/packages.sh
install_missing_packages
cmake --preset release >/dev/null
cmake --build --preset release --target make_demo
file=build/demo/Kelvora/kelvora_db.sqlite
if [ ! -e "$file" ] || [ "${1:-}" = new ]; then
    mkdir -p build/demo/Kelvora
    build/release/demo/make_demo "$file"
fi
export XDG_DATA_HOME="$PWD/build/demo"
exec ./run.sh
