# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# The sources of the libraries, from the source packages of the machine's own Debian mirror.

readonly SOURCES="$CACHE/sources"

# Name, upstream version, checksum of the original archive. Debian's revisions of one upstream
# version share that archive, so a revision published later changes nothing here.
readonly SOURCE_PACKAGES=(
    "libpng1.6     1.6.39     a00e9d2f2f664186e4202db9299397f851aea71b36a35e74910b8820e380d441"
    "libjpeg-turbo 2.1.5      254f3642b04e309fee775123133c6464181addc150499561020312ec61c1bf7c"
    "libwebp       1.2.4      7bf5a8a28cc69bcfa8cb214f2c3095703c6b73ac5fba4d5480c205331d9494df"
    "tiff          4.5.0      638f43d7dea33948d5dee7f39572fc0194d9cc3c74195de9dd26a4388a1f880a"
    "imath         3.1.6      ea5592230f5ab917bea3ceab266cf38eb4aa4a523078d46eac0f5a89c52304db"
    "openexr       3.1.5      93925805c1fc4f8162b35f0ae109c4a75344e6decae5a240afdfce25f8a433ec"
    "pugixml       1.13       5c5ad5d7caeb791420408042a7d88c2c6180781bf218feca259fd9d840a888e1"
    "benchmark     1.7.1      6430e4092653380d9dc4ccb45a1e2dc9259d581f4866dc0759713126056bc1d7"
    "wxwidgets3.2  3.2.2+dfsg e825125ac61f68548a3faae0fd5b3fc5377c0538961f02ac7cc2f0eae4e4f3e4"
)

# Copies the source lists of this machine, which stay as they are, with source packages in place of
# binary ones.
copy_source_lists() {
    local target="$1" sourcelist='' sourceparts='' file
    # Gives values to the two variables.
    eval "$(apt-config shell sourcelist Dir::Etc::sourcelist/f sourceparts Dir::Etc::sourceparts/d)"

    mkdir -p -- "$target"
    for file in "$sourceparts"/*.sources; do
        [[ -f $file ]] || continue
        sed -E 's/^[Tt]ypes:.*/Types: deb-src/' "$file" >"$target/$(basename -- "$file")"
    done
    # One file for all one-line entries: an entry may be there for both kinds of packages, and apt
    # complains about what is listed twice.
    for file in "$sourcelist" "$sourceparts"/*.list; do
        [[ -f $file ]] || continue
        sed -nE 's/^[[:space:]]*deb(-src)?[[:space:]]+/deb-src /p' "$file"
    done | sort -u >"$target/one-line.list"
}

# Gives apt lists and archives of its own, so that nothing of the machine's is touched and no
# rights are needed. The file apt.conf is the result.
set_up_apt() {
    local apt="$WORK/apt"
    mkdir -p -- "$apt/lists/partial" "$apt/cache/archives/partial"
    copy_source_lists "$apt/sources"
    cat >"$apt/apt.conf" <<CONF
Dir::Etc::sourcelist "/dev/null";
Dir::Etc::sourceparts "$apt/sources";
Dir::State::lists "$apt/lists";
Dir::Cache "$apt/cache";
Acquire::Retries "3";
// What the machine does after its own updates is not for these lists.
#clear APT::Update::Pre-Invoke;
#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
CONF
    if ((EUID == 0)); then
        # The user apt has for downloads cannot look into root's directories.
        printf 'APT::Sandbox::User "root";\n' >>"$apt/apt.conf"
    fi
    # Lists of third parties may lack source packages; whether those needed are there shows later.
    run apt-get -c "$apt/apt.conf" -q update || true
}

checksum_is() {
    [[ -f $1 && "$(sha256sum <"$1")" == "$2  -" ]]
}

# Prints the names under which apt may deliver the original archive of an upstream version: all of
# its revisions, the newest one first, and then whatever the suites of this release have. More than
# one, because a mirror does not always hold all files of all entries.
apt_names() {
    local name="$1" version="$2" revision upstream codename
    apt-cache -c "$WORK/apt/apt.conf" showsrc --only-source "$name" 2>>"$LOG" |
        sed -n 's/^Version: //p' | sort -u -r -V |
        while read -r revision; do
            upstream="${revision#*:}"
            if [[ ${upstream%-*} == "$version" ]]; then
                printf '%s=%s\n' "$name" "$revision"
            fi
        done
    codename="$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)"
    printf '%s\n' "$name/$codename" "$name/$codename-security" "$name/$codename-updates"
}

# Puts the original archive of a source package into the cache.
download_source() {
    local name="$1" version="$2" checksum="$3" download="$WORK/download" apt_name file
    [[ -e $WORK/apt/apt.conf ]] || set_up_apt
    say "downloading the source of $name $version"
    while read -r apt_name; do
        rm -rf -- "$download"
        mkdir -p -- "$download"
        printf '\n=== downloading %s\n' "$apt_name" >>"$LOG"
        # The archive alone: Debian's packaging is not used.
        run env -C "$download" apt-get -c "$WORK/apt/apt.conf" -q \
            source --download-only --tar-only "$apt_name" || true
        for file in "$download/${name}_$version.orig.tar."*; do
            if checksum_is "$file" "$checksum"; then
                mkdir -p -- "$SOURCES"
                mv -f -- "$file" "$SOURCES/"
                return 0
            fi
        done
    done < <(apt_names "$name" "$version")
    die_with_log "no entry of this machine's source lists delivered the source of $name $version"
}

# Sets the variable archive to the original archive of a source package, which is downloaded unless
# an undamaged one is in the cache.
find_source() {
    local name="$1" version="$2" checksum="$3"
    archive="$(echo "$SOURCES/${name}_$version.orig.tar."*)"
    if ! checksum_is "$archive" "$checksum"; then
        if [[ -e $archive ]]; then
            say "$(basename -- "$archive") in the cache is damaged"
        fi
        rm -f -- "$SOURCES/${name}_$version.orig.tar."*
        download_source "$@"
        archive="$(echo "$SOURCES/${name}_$version.orig.tar."*)"
    fi
}

# Unpacks the sources of all libraries below $WORK/source.
unpack_sources() {
    local entry name version checksum archive
    for entry in "${SOURCE_PACKAGES[@]}"; do
        read -r name version checksum <<<"$entry"
        find_source "$name" "$version" "$checksum"
        mkdir -p -- "$WORK/source/$name"
        must "unpacking $name" tar -x --strip-components=1 --no-same-owner \
            -C "$WORK/source/$name" -f "$archive"
    done
}
