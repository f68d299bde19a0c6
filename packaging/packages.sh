# Sourced by run.sh and test.sh: installs, on Debian, those of the packages the project is built with that are missing.

kelvora_packages="cmake ninja-build g++ ccache qt6-base-dev qt6-svg-dev libqt6svg6 qt6-charts-dev libqt6opengl6-dev
libsqlitecpp-dev libsqlite3-dev fonts-dejavu-core dpkg-dev desktop-file-utils appstream groff-base codespell"

install_missing_packages() {
    command -v dpkg-query >/dev/null 2>&1 || return 0
    missing=""
    for package in $kelvora_packages; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing"
    as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq
    # shellcheck disable=SC2086  # a list of words
    $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
