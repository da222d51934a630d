# shellcheck shell=bash disable=SC2034
# Sourced by ./run, ./test and .ci/run: installs the Debian packages that are missing, and says so.

build_packages=(g++ cmake ninja-build ccache mold pkg-config
    qt6-base-dev qt6-svg-dev qt6-translations-l10n
    libsqlite3-dev libicu-dev libhunspell-dev libzip-dev libqpdf-dev mdbtools-dev
    fonts-dejavu-core fonts-liberation)
run_packages=(libqt6svg6 qt6-qpa-plugins hunspell-sk)
test_packages=(libgtest-dev poppler-utils)
ci_packages=(git clang clang-format libclang-rt-14-dev)
bench_packages=(libbenchmark-dev)
deb_packages=(git dpkg-dev debhelper fakeroot lintian librsvg2-bin desktop-file-utils appstream)

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing_of() {
    local package
    for package in "$@"; do
        is_installed "$package" || echo "$package"
    done
}

need_packages() {
    local missing
    mapfile -t missing < <(missing_of "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing missing packages: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "This needs root: install ${missing[*]} and start again." >&2
            return 1
        }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq || return 1
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" || return 1
    # A virtual name is never installed itself: it would be asked for again and again.
    mapfile -t missing < <(missing_of "${missing[@]}")
    [ ${#missing[@]} -eq 0 ] || {
        echo "No packages by these names: ${missing[*]}" >&2
        return 1
    }
}

# configure_and_build PRESET [TARGET ...]
configure_and_build() {
    local preset=$1
    shift
    cmake --preset "$preset" --log-level=WARNING || return 1
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    cmake --build --preset "$preset" "${targets[@]}"
}
