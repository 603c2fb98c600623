# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# The prefix: its name, which tells what it is made from, and its checksums, which tell whether it
# is complete.

# In the prefix: the checksums of all files, and the checksum of that list, which is written last.
readonly MANIFEST=manifest.sha256
readonly STAMP=complete.sha256

# Beside the toolkit's own.
readonly RUNTIME_DLLS=(libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll zlib1.dll)

# Prints the path of the prefix; fails when a package it is named after is not installed.
prefix_path() {
    local key
    [[ -z "$(missing_packages "${BUILD_PACKAGES[@]}")" ]] || return 1
    key="$({
        dpkg-query -W -f '${Package} ${Version}\n' "${BUILD_PACKAGES[@]}" | sort
        x86_64-w64-mingw32-g++-posix --version
        # How packages are installed and programs are run does not change what is built.
        cat -- "$TOOLCHAIN" "$HERE"/{sources,libraries}.sh
    } | sha256sum)"
    printf '%s\n' "$CACHE/windows-${key:0:16}"
}

is_complete() {
    local prefix="$1"
    [[ -s $prefix/$STAMP && -s $prefix/$MANIFEST ]] || return 1
    (
        cd -- "$prefix" &&
            sha256sum --check --strict --quiet "$STAMP" &&
            sha256sum --check --strict --quiet "$MANIFEST"
    ) >>"$LOG" 2>&1
}

# Writes the checksums and gives the finished prefix its name.
publish() {
    local stage="$1" prefix="$2"
    (
        cd -- "$stage" || die "there is no $stage"
        # Outside at first, lest the list lists itself.
        find . \( -type f -o -type l \) -print0 | sort -z | xargs -0 sha256sum >"$stage.$MANIFEST"
        mv -- "$stage.$MANIFEST" "$MANIFEST"
        sha256sum "$MANIFEST" >"$STAMP"
    )
    is_complete "$stage" || die_with_log "the checksums of $stage do not hold"
    # The files must have reached the disk before the name says that they have.
    sync -f -- "$stage"
    mv -T -- "$stage" "$prefix"
}

# Prints the path of the prefix if there is one to be used.
complete_prefix() {
    local prefix
    prefix="$(prefix_path)" || die "nothing is prepared yet, run $HERE/prepare.sh"
    is_complete "$prefix" || die "there is no complete prefix at $prefix, run $HERE/prepare.sh"
    printf '%s\n' "$prefix"
}

print_runtime_dlls() {
    local prefix="$1" dll
    for dll in "$prefix"/lib/gcc_x64_dll/wxmsw*.dll "${RUNTIME_DLLS[@]/#/"$prefix/bin/"}"; do
        [[ -f $dll ]] || die "$dll is not there"
        printf '%s\n' "$dll"
    done
}
