#!/bin/sh
# Takes the pictures of the guide anew from the real screens, without a display. With ImageMagick they become smaller.
# "pictures.sh dark" and "pictures.sh large" show the same screens in the dark mode and with text at 150 %, to be looked
# at: in build/pictures.
set -eu
cd "$(dirname "$0")/../.."

. packaging/packages.sh
install_missing_packages
cmake --preset dev >/dev/null
cmake --build --preset dev --target guide_pictures
if [ $# -gt 0 ]; then
    export KELVORA_LOOK="$1" KELVORA_PICTURES="$PWD/build/pictures/$1"
fi
QT_QPA_PLATFORM=offscreen QTEST_DISABLE_STACK_DUMP=1 LC_ALL=C.UTF-8 build/dev/demo/guide_pictures

if [ $# -eq 0 ] && command -v convert >/dev/null 2>&1; then
    for picture in docs/guide/pictures/*.png; do
        convert "$picture" -strip -dither None -colors 256 -define png:exclude-chunks=date,time "PNG8:$picture"
    done
fi
