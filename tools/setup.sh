# Shared by ./run and ./test: installs what is missing and builds. Sourced, not run; the caller stands in the tree's root.
# shellcheck shell=bash

packages=(
    g++ binutils cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-svg-dev qt6-translations-l10n libgl-dev
    libsqlite3-dev libsqlitecpp-dev zlib1g-dev libqpdf-dev nlohmann-json3-dev libcli11-dev libeigen3-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    python3 mdbtools
    xvfb xauth openbox fonts-roboto-unhinted fonts-noto-cjk locales
    povray libfreetype-dev fonts-liberation qpdf poppler-utils mupdf-tools
)

say() { printf '%s\n' "== $*"; }

# Installs the packages of the list that are not there yet.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "installing ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "These packages are missing and sudo is not there: ${missing[*]}" >&2; exit 1; }
        root=(sudo)
    fi
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures on first use and builds.
build() {
    local preset=$1; shift
    say "building ($preset)"
    cmake --preset "$preset" >/tmp/marvello-configure.$$ 2>&1 || { cat /tmp/marvello-configure.$$; rm -f /tmp/marvello-configure.$$; exit 1; }
    rm -f /tmp/marvello-configure.$$
    if [ $# -gt 0 ]; then cmake --build --preset "$preset" --target "$@"; else cmake --build --preset "$preset"; fi
}
