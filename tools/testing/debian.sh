#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the Debian packages of the optimised build and installs them into a root that holds nothing but Debian's smallest
# system, so that a dependency that a package does not name is missed. There the installed programs start, and a user's
# project is built.
# Only root can make such a root: for other users the packages are made and listed.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/testing/common.sh
need_packages "${BUILD_PACKAGES[@]}" dpkg-dev debootstrap
# The packages that apt downloads for the root are kept between runs.
archives=${NOLVEX_CACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/nolvexlibwx}/debian-archives
folder=$(mktemp -d)
root=$folder/root

trap 'rm -rf "$folder"' EXIT

make_packages() {
  (cd build/linux-release && cpack -G DEB -B "$folder/packages") >build/debian-cpack.log 2>&1 || {
    tail -n 20 build/debian-cpack.log
    return 1
  }
  rm -rf "$folder/packages/_CPack_Packages"
}

# The address of the machine's own mirror.
mirror() {
  sed -nE 's/^(URIs: |deb (\[[^]]*\] )?)(http[^ ]*).*/\3/p' /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null |
    head -n 1
}

make_root() {
  local codename
  codename=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
  mkdir -p "$archives"
  debootstrap --variant=minbase --cache-dir="$archives" "$codename" "$root" "$(mirror)" >build/debian-root.log 2>&1 || {
    tail -n 20 build/debian-root.log
    return 1
  }
  # The root is thrown away: nothing in it has to survive a power failure.
  echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/unsafe-io"
  mkdir "$root/packages"
  cp "$folder"/packages/*.deb "$root/packages"
}

# inside COMMAND...: runs a command in the root.
inside() {
  chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# install_inside PACKAGE...: takes what was downloaded in an earlier run from the cache.
install_inside() {
  cp -n "$archives"/*.deb "$root/var/cache/apt/archives/" 2>/dev/null || true
  inside apt-get install -y -qq --no-install-recommends -o APT::Keep-Downloaded-Packages=true "$@"
  cp -n "$root"/var/cache/apt/archives/*.deb "$archives/"
}

# package NAME: prints the place of a package in the root.
package() {
  (cd "$root" && find packages -name "${1}_*.deb" -printf '/%p')
}

# finds_its_libraries PROGRAM
finds_its_libraries() {
  local libraries
  libraries=$(inside ldd "$1")
  [[ $libraries != *"not found"* ]] || {
    echo "$1: $libraries"
    return 1
  }
}

check_packages() {
  make_root
  inside apt-get update -qq
  install_inside "$(package nolvex-viewer)" "$(package 'libnolvexlibwx[0-9]*')"
  inside nolvex-viewer --version
  inside nolvex-send --version
  finds_its_libraries /usr/bin/nolvex-viewer

  install_inside "$(package libnolvexlibwx-dev)" g++ cmake ninja-build pkg-config
  mkdir "$root/project"
  cp -R tests/package/. "$root/project"
  inside cmake -S /project/core -B /project/core-build -G Ninja
  inside cmake --build /project/core-build
  inside /project/core-build/core-only
  inside cmake -S /project/window -B /project/window-build -G Ninja
  inside cmake --build /project/window-build
  finds_its_libraries /project/window-build/stranger
  inside sh -c 'g++ -std=c++20 -o /project/by-pkg-config /project/stranger.cpp $(pkg-config --cflags --libs nolvexlibwx)'
}

make_packages
ls "$folder/packages"
if [ "$(id -u)" -ne 0 ]; then
  echo "The packages were not installed: only root can make a root for them."
  exit 0
fi
# Behind "||" and the like, bash goes on after a command that failed.
set +e
(
  set -e
  check_packages
) >build/debian.log 2>&1
status=$?
set -e
[ "$status" -eq 0 ] || tail -n 30 build/debian.log
exit "$status"
