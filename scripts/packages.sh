# Sourced by the other scripts. Installs Debian packages that are missing, as root or with sudo.

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "These packages are missing, and neither root nor sudo is there to install them." >&2
        return 1
    fi
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# need_packages NAME...
need_packages() {
    local missing=() name
    for name in "$@"; do
        is_installed "$name" || missing+=("$name")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        echo "== Packages: all there"
        return 0
    fi
    echo "== Packages: installing ${missing[*]}"
    as_root apt-get -q update >/dev/null || true
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y --no-install-recommends install "${missing[@]}" >/dev/null || {
        echo "These packages could not be installed: ${missing[*]}" >&2
        return 1
    }
}

build_packages=(cmake g++ make ninja-build libcli11-dev)
# The shared library also needs these.
window_packages=(qt6-base-dev fonts-liberation libnetcdf-dev)
# A build for Windows needs these, and Wine to run it.
windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine wine64)
