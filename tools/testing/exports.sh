#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# exports.sh LIBRARY...: checks that a shared library exports only the symbols that are marked for export. On Linux weak
# symbols are ignored, because every library that uses templates of other libraries contains some.
set -euo pipefail

exported() {
  case $1 in
    *.dll)
      x86_64-w64-mingw32-objdump -p "$1" |
        awk '/\[Ordinal\/Name Pointer\] Table/ { names = 1; next } NF == 0 { names = 0 } names { print $NF }' | c++filt
      ;;
    *) nm -DC --defined-only "$1" | awk '$2 ~ /[TDBR]/ && $3 !~ /^(_end|_edata|__bss_start|_init|_fini)$/ { $1 = $2 = ""; print }' ;;
  esac
}

status=0
for library in "$@"; do
  names=$(exported "$library")
  if [ -z "$names" ]; then
    echo "$library exports nothing"
    status=1
  fi
  # Symbols of other libraries, and symbols of this project that must stay internal.
  strangers=$(grep -viE 'nolvex' <<<"$names" || true)$(grep -E 'Platform::(ExactStrokes|announce|setClipboardImage|NativeWindow)|WindowDisabling|CrispLines|GammaTable|XmlForm|XmlCharacters' <<<"$names" || true)
  if [ -n "$strangers" ]; then
    echo "$library exports what is not its own:"
    head -n 10 <<<"$strangers"
    status=1
  fi
done
exit $status
