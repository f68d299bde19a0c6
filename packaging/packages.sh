# Sourced by run.sh and test.sh: installs, on Debian, those of the packages the project is built with that are missing.

kelvora_packages="cmake ninja-build g++ ccache qt6-base-dev qt6-svg-dev libqt6svg6 qt6-charts-dev
libsqlitecpp-dev libsqlite3-dev fonts-dejavu-core dpkg-dev desktop-file-utils appstream groff-base codespell"

find_missing_packages() {
    # Debian 12 has the headers of OpenGL in a package of their own, Debian 13 what draws the icons.
    separate=""
    for package in libqt6opengl6-dev qt6-svg-plugins; do
        if apt-cache show "$package" 2>/dev/null | grep -q '^Package:'; then separate="$separate $package"; fi
    done
    missing=""
    for package in $kelvora_packages $separate; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
    done
}

install_missing_packages() {
    command -v dpkg-query >/dev/null 2>&1 || return 0
    find_missing_packages
    [ -n "$missing" ] || return 0
    as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq
    find_missing_packages
    echo "Installing:$missing"
    # shellcheck disable=SC2086  # a list of words
    $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
