#!/usr/bin/env bash
# Installs those of the named Debian packages that are missing, and says first how many that makes
# and how large they are. Silent and quick when all are there.
# Usage: tools/packages.sh [--print] PACKAGE...   (--print: only says it, with each one's size)
set -euo pipefail
as_root=$(dirname "$0")/asroot.sh
print=
if [ "${1:-}" = --print ]; then
  print=yes
  shift
fi

# A package may be there for other processors too, or for them alone.
native=$(dpkg --print-architecture)
installed=$(dpkg-query -W -f '${Package} ${Architecture} ${db:Status-Status}\n' "$@" 2>/dev/null |
  sed -nE "s/ (all|$native) installed\$//p" || true)
missing=()
for package in "$@"; do
  grep -qxF -e "$package" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

# What apt would install, a line each: bytes to fetch, bytes on the disk, name.
sizes() {
  local names
  names=$(apt-get -s -qq --no-install-recommends install "${missing[@]}" |
    sed -nE 's/^Inst ([^ ]+) .*/\1/p') || return 1
  [ -n "$names" ] || return 0  # there, and not set up yet
  LC_ALL=C apt-cache show --no-all-versions $names | awk '
    $1 == "Package:" { name = $2; disk = 0 }
    $1 == "Installed-Size:" { disk = $2 * 1024 }
    $1 == "Size:" { fetch = $2 }
    $0 == "" && name != "" { print fetch, disk, name; name = "" }
    END { if (name != "") print fetch, disk, name }'
}
in_all() {
  awk 'NF { ++count; fetch += $1; disk += $2 }
    END { printf "%d package%s: %.1f MB to fetch, %.1f MB on the disk\n",
          count, count == 1 ? "" : "s", fetch / 1e6, disk / 1e6 }'
}

if [ -n "$print" ]; then
  if table=$(sizes 2>/dev/null); then
    sort -k 2nr <<<"$table" | awk 'NF { printf "%8.1f MB  %s\n", $2 / 1e6, $3 }'
    in_all <<<"$table"
  else
    echo "missing, of sizes that apt knows after an update: ${missing[*]}"
  fi
  exit 0
fi

if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
  echo "packages are missing, and without sudo root has to install them:" >&2
  echo "  apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
  exit 1
fi
"$as_root" apt-get update -qq
table=$(sizes)
echo "installing $(in_all <<<"$table") (${missing[*]} and what they need)"
"$as_root" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
