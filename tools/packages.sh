#!/usr/bin/env bash
# Installs those of the named Debian packages that are missing. Silent and quick when all are there.
# Usage: tools/packages.sh PACKAGE...
set -euo pipefail
as_root=$(dirname "$0")/asroot.sh

missing=()
for package in "$@"; do
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
    missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0
echo "installing: ${missing[*]}"
"$as_root" apt-get update -qq
"$as_root" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
