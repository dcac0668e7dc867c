#!/usr/bin/env bash
# A form of the kernel has one symbol, the form, and calls nothing but what copies and fills memory:
# a function that it shared with others, an inline one of a header, say, would be linked once for
# all of them, and might be the one for another processor.
# Usage: kernelsymbols.sh NM OBJECT
set -euo pipefail
nm=$1
object=$2

status=0
symbols=$("$nm" "$object")
shared=$(awk 'NF > 1 && $(NF - 1) ~ /^[WwVvuCi]$/' <<<"$symbols")
[ -z "$shared" ] || { printf 'shared with other objects:\n%s\n' "$shared"; status=1; }
own=$(awk '$(NF - 1) ~ /^[TDRBSG]$/' <<<"$symbols" | wc -l)
[ "$own" = 1 ] || { printf 'symbols that others see: %s, not 1\n' "$own"; status=1; }
foreign=$(awk '$(NF - 1) == "U" { print $NF }' <<<"$symbols" |
  grep -vxE 'mem(cpy|move|set)|_GLOBAL_OFFSET_TABLE_|__stack_chk_fail' || true)
[ -z "$foreign" ] || { printf 'called from elsewhere:\n%s\n' "$foreign"; status=1; }
exit $status
