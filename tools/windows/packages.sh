# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# The Debian packages that the cross-build needs.

# shellcheck source=/dev/null
source "$HERE/../package-lock.sh"

# The contents of these packages end up in the prefix, so that their versions are part of its name.
# zlib, GoogleTest, utfcpp and stb need no source package: zlib is there for MinGW, GoogleTest is
# packaged as source, and utfcpp and stb consist of headers.
readonly BUILD_PACKAGES=(
    g++-mingw-w64-x86-64-posix
    mingw-w64-x86-64-dev
    libz-mingw-w64-dev
    googletest
    libutfcpp-dev
    libstb-dev
)
readonly TOOL_PACKAGES=(
    mingw-w64-tools
    wine wine64 xvfb xauth openbox
    cmake ninja-build ccache dpkg-dev
    zip unzip bzip2 xz-utils
)

missing_packages() {
    local package
    for package in "$@"; do
        if [[ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]]; then
            printf '%s\n' "$package"
        fi
    done
}

install_packages() {
    local missing=() as_root=()
    command -v dpkg-query >/dev/null || die "this needs Debian 12 (dpkg-query is not there)"
    mapfile -t missing < <(missing_packages "${BUILD_PACKAGES[@]}" "${TOOL_PACKAGES[@]}")
    ((${#missing[@]} > 0)) || return 0

    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            die "these Debian packages are missing, and there is no sudo to install them: ${missing[*]}"
        as_root=(sudo)
    fi
    say "installing Debian packages: ${missing[*]}"
    # Outdated lists may be good enough, so a failed update is no reason to give up.
    with_package_manager run_attached "${as_root[@]}" apt-get -q update ||
        say "apt-get update failed, going on with the lists there are"
    with_package_manager run_attached "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y --no-install-recommends install "${missing[@]}" ||
        die_with_log "the Debian packages could not be installed"
}
