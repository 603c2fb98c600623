#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Prepares the cross-build for Windows x86-64 on Debian 12: installs the Debian packages that are
# missing, gets the sources of the libraries the project needs and builds them with MinGW-w64 into
# one prefix in a cache directory.
#
# A prefix is named after everything it is made from, so that the name alone tells whether it is the
# wanted one; it appears under that name only when it is complete; and it carries a list of checksums
# that is checked before it is used. Nothing is downloaded or built when it is there already.

set -euo pipefail
# What is sorted and parsed must not depend on the user's language.
export LC_ALL=C

# Results alone go to standard output; everything else, also from the programs called, must not.
exec 3>&1 1>&2

HERE="$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)"
CACHE="$(realpath -m -- "${NOLVEX_CACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/nolvexlibwx}")"
readonly HERE CACHE
readonly LOCK="$CACHE/windows.lock"
# The same name for every prefix, so that the compiler cache sees the same paths in every build. The
# lock keeps it to one build at a time.
readonly WORK="$CACHE/windows-build.tmp"
readonly STAGE="$WORK/prefix"

for part in run packages sources licenses libraries prefix wine; do
    # shellcheck source=/dev/null
    source "$HERE/$part.sh"
done

usage() {
    cat <<'USAGE'
usage: prepare.sh                     prepare everything and print the path of the prefix
       prepare.sh --print-prefix      print the path of the prefix; fails if it is not complete
       prepare.sh --runtime-dlls      print the paths of the DLLs a program needs beside it
       prepare.sh --licenses DIR      copy the licences of the libraries into DIR
       prepare.sh --wine-prefix DIR   make a fresh Wine prefix in DIR and print its path
       prepare.sh --help

environment:
  NOLVEX_CACHE_DIR   where sources, logs and prefixes are kept
                     (default: $XDG_CACHE_HOME/nolvexlibwx or ~/.cache/nolvexlibwx)
  NOLVEX_JOBS        how many files are compiled at the same time (default: all processors)
USAGE
}

build_prefix() {
    local prefix="$1" started=$SECONDS
    say "building $prefix, with a log in $LOG"
    # What a build that was killed has left.
    rm -rf -- "$WORK"
    at_end rm -rf -- "$WORK"
    mkdir -p -- "$STAGE"
    unpack_sources
    build_libraries
    publish "$STAGE" "$prefix"
    say "complete after $((SECONDS - started)) s"
}

# Programs called inherit the lock: should this script be killed the hard way, the next one waits
# for the compilers it left behind.
take_lock() {
    exec 9>>"$LOCK"
    if ! flock -n 9; then
        say "another preparation is at work, waiting for it"
        run flock 9
    fi
}

prepare() {
    local prefix
    # Without a look at the lock: a prefix that is complete stays as it is.
    if [[ -z "$(missing_packages "${TOOL_PACKAGES[@]}")" ]] && prefix="$(prefix_path)" && is_complete "$prefix"; then
        printf '%s\n' "$prefix" >&3
        return
    fi

    take_lock
    log_to "$CACHE/windows-packages.log"
    # Installing may start services, which would keep the lock for good.
    install_packages 9>&-
    prefix="$(prefix_path)" || die "the packages installed are not all there"
    log_to "$prefix.log"
    printf '\n=== %s\n' "$(date)" >>"$LOG"
    if ! is_complete "$prefix"; then
        if [[ -e $prefix ]]; then
            say "$prefix is damaged, building it again"
            rm -rf -- "$prefix"
        fi
        build_prefix "$prefix"
    fi
    printf '%s\n' "$prefix" >&3
}

mkdir -p -- "$CACHE"
case "$#:${1-}" in
    0:)
        prepare
        ;;
    1:--print-prefix)
        complete_prefix >&3
        ;;
    1:--runtime-dlls)
        prefix="$(complete_prefix)"
        print_runtime_dlls "$prefix" >&3
        ;;
    2:--licenses)
        [[ -n $2 ]] || die "--licenses needs the name of a directory"
        take_lock
        log_to "$CACHE/windows-packages.log"
        at_end rm -rf -- "$WORK"
        mkdir -p -- "$WORK"
        copy_licenses "$2"
        ;;
    2:--wine-prefix)
        [[ -n $2 ]] || die "--wine-prefix needs the name of a directory"
        log_to "$CACHE/windows-packages.log"
        install_packages
        make_wine_prefix "$2" >&3
        ;;
    1:--help | 1:-h)
        usage >&3
        ;;
    *)
        usage
        exit 2
        ;;
esac
