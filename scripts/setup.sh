# Shared by the scripts that people start: Debian packages and the build.
# shellcheck disable=SC2034  # the lists are for those scripts

BUILD_PACKAGES=(
    cmake
    g++
    libc-ares-dev
    ninja-build
    qt6-base-dev
)

# For the unit tests and the end-to-end tests: servers, real sites, a browser and a desktop.
TEST_PACKAGES=(
    chromium
    chromium-driver
    imagemagick
    iproute2
    libgtest-dev
    libxml2-doc
    nginx-light
    openbox
    python-flask-doc
    python3
    python3-selenium
    wmctrl
    xapian-doc
    xdotool
    xvfb
)

# For "bench/run", in addition to the packages for the tests.
BENCH_PACKAGES=(
    strace
    valgrind
    wget
)

# For "./test lint", which also builds the tests.
LINT_PACKAGES=(
    clang-format
    clang-tidy
    flake8
    git
    libgtest-dev
    shellcheck
)

# The site shown in docs/pictures, in addition to the packages for the tests.
PICTURE_PACKAGES=(
    python-kombu-doc
)

# The version set in the top CMakeLists.txt.
project_version() {
    sed -n 's/^project(vantorin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt
}

is_installed() {
    [[ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

# install_missing PACKAGE...: installs the missing ones. Asks for root rights only if one is missing. Without dpkg,
# prints what is needed; a step that lacks a package reports that later.
install_missing() {
    local package missing=() as_root=()
    if ! command -v dpkg-query >/dev/null; then
        echo "No dpkg here, so nothing is installed. Needed, by the names of Debian's packages: $*" >&2
        return
    fi
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ((EUID != 0)); then
        as_root=(sudo)
    fi
    echo "Installing Debian packages: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -q >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
}

# is_of_another_place PRESET: whether its build folder was made in another checkout, or before this one was moved. CMake
# refuses such a folder.
is_of_another_place() {
    local cache=build/$1/CMakeCache.txt
    [[ -f $cache && ! "$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")" -ef . ]]
}

# configure PRESET: prints nothing unless something fails.
configure() {
    local options=(--preset "$1")
    mkdir -p build
    if is_of_another_place "$1"; then
        options+=(--fresh)
    fi
    if ! cmake "${options[@]}" >build/configure.log 2>&1; then
        cat build/configure.log >&2
        return 1
    fi
}

# build PRESET [TARGET]: configures and builds on all processors.
build() {
    local preset=$1 target=${2:-all}
    configure "$preset" || return
    cmake --build --preset "$preset" --target "$target" --parallel "$(nproc)" >&2
}
