# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# A Wine prefix to run the programs in.

# In a prefix made here: only such a one is ever removed.
readonly WINE_MARK=.nolvexlibwx-wine-prefix

# Wine links the user's folders for documents and the like to those of this machine, where programs
# under test have no business.
unlink_home() {
    local link
    find "$1/drive_c/users" -type l | while read -r link; do
        rm -- "$link"
        mkdir -- "$link"
    done
}

make_wine_prefix() {
    local directory="$1" status=0
    if [[ -e $directory && ! -e $directory/$WINE_MARK ]]; then
        if [[ ! -d $directory || -n "$(ls -A -- "$directory")" ]]; then
            die "$directory is there already and is no Wine prefix made by this script"
        fi
    fi
    rm -rf -- "$directory"
    mkdir -p -- "$directory"
    directory="$(cd -- "$directory" && pwd)"
    : >"$directory/$WINE_MARK"

    log_to "$directory/prepare.log"
    export WINEPREFIX="$directory" WINEARCH=win64 WINEDEBUG=-all
    # Without the offers to install Mono and Gecko, and without entries in the user's menus.
    export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
    at_end wineserver -k
    run timeout 300 wineboot -i || status=$?
    # The registry is on the disk when the server has ended, not before.
    run timeout 120 wineserver -w || status=$?
    if ((status != 0)) || [[ ! -s $directory/system.reg || ! -s $directory/drive_c/windows/system32/kernel32.dll ]]; then
        die_with_log "wineboot made no usable prefix in $directory (exit status $status)"
    fi
    at_end
    unlink_home "$directory"
    printf '%s\n' "$directory"
}
