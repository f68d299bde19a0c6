#!/bin/sh
# Builds the Debian package of the program: build/package/kelvora_<version>_<architecture>.deb
set -eu
cd "$(dirname "$0")/.."

. packaging/packages.sh
install_missing_packages
umask 022
# The places of an installed system, and the hardening that Debian builds its own packages with.
export DEB_BUILD_MAINT_OPTIONS=hardening=+bindnow
cmake --preset release -B build/package -DCMAKE_INSTALL_PREFIX=/usr \
    -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)" \
    -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)" >/dev/null
cmake --build build/package
(cd build/package && cpack)
