# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# The licences of what the Windows zip holds besides the project's own files, as their owners wrote them.

# Source package and the files of its archive that hold its terms.
readonly LICENSE_FILES=(
    "libpng1.6     LICENSE"
    "libjpeg-turbo LICENSE.md README.ijg"
    "libwebp       COPYING"
    "tiff          LICENSE.md"
    "imath         LICENSE.md"
    "openexr       LICENSE.md"
    "wxwidgets3.2  docs/licence.txt docs/lgpl.txt"
)
# Of these, the Debian package on this machine holds the terms.
readonly LICENSE_PACKAGES=(g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libz-mingw-w64-dev libutfcpp-dev libstb-dev)
# The terms of the run-time libraries of GCC name this text and the exception to it.
readonly COMMON_LICENSES=(/usr/share/common-licenses/GPL-3)

copy_licenses_of_source() {
    local target="$1" name="$2" entry version checksum archive file
    shift 2
    for entry in "${SOURCE_PACKAGES[@]}"; do
        read -r -a entry <<<"$entry"
        [[ ${entry[0]} == "$name" ]] || continue
        version="${entry[1]}" checksum="${entry[2]}"
    done
    find_source "$name" "$version" "$checksum"
    mkdir -p -- "$target/$name"
    for file in "$@"; do
        tar -x -O --wildcards --no-wildcards-match-slash -f "$archive" "*/$file" >"$target/$name/$(basename -- "$file")" ||
            die "$archive holds no $file"
    done
}

# Copies the licences into a directory, a directory for each library.
copy_licenses() {
    local target="$1" entry package file
    for entry in "${LICENSE_FILES[@]}"; do
        read -r -a entry <<<"$entry"
        copy_licenses_of_source "$target" "${entry[@]}"
    done
    for package in "${LICENSE_PACKAGES[@]}"; do
        mkdir -p -- "$target/$package"
        cp -L -- "/usr/share/doc/$package/copyright" "$target/$package/"
    done
    for file in "${COMMON_LICENSES[@]}"; do
        cp -- "$file" "$target/"
    done
}
