#!/usr/bin/env bash
# Makes and checks what a release has, of the last commit, and names it: source, Debian's packages,
# the tarball, the manual in both forms and their sums, in build/release-VERSION. All of it is built
# in two folders and has to be the same bytes. Linux; what a Mac makes is cpack's pkg there.
# Usage: tools/release.sh [--once]   (--once: without the second build)
set -euo pipefail
umask 022
cd "$(dirname "$0")/.."
fail() { echo "$1" >&2; exit 1; }
[ $# = 0 ] || [ "$*" = --once ] || fail "usage: tools/release.sh [--once]"

version=$(sed -n 's/^project(Trelvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
[ -z "$(git status --porcelain)" ] || fail "there are changes that are not committed"
grep -qE "^## \[$version\] - [0-9]{4}-[0-9]{2}-[0-9]{2}$" CHANGELOG.md ||
  fail "CHANGELOG.md has no section of $version with a date"
[ -z "$(sed -n '/^## \[Unreleased\]/,/^## \[[0-9]/{/^## /d;/./p}' CHANGELOG.md)" ] ||
  fail "CHANGELOG.md has changes that are in no release"
tools/dependencies.sh test
toolkit=$PWD/$(echo .deps/vstgui-*/)
[ -f "${toolkit}vstgui/vstgui.h" ] || fail "the toolkit's source is not in .deps"

out=$PWD/build/release-$version
rm -rf "$out"
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
source=trelvan-$version
git archive --format=tar --prefix="$source/" HEAD | gzip -9n >"$out/$source.tar.gz"

# make_in FOLDER: builds of the source's tarball what a user gets, into FOLDER/packages.
make_in() {
  mkdir -p "$1"
  tar -xzf "$out/$source.tar.gz" -C "$1"
  (
    cd "$1/$source"
    quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }; }
    quietly cmake --preset release -DTRELVAN_TESTS=OFF "-DTRELVAN_TOOLKIT_SOURCE=${toolkit%/}"
    quietly cmake --build --preset release
    quietly cpack --config build/release/CPackConfig.cmake -B "$1/packages"
  )
}
echo "building $source"
make_in "$work/first"
built=$work/first/$source/build/release
cp "$work"/first/packages/*.deb "$work"/first/packages/*.tar.gz "$out"
cp "$built/Trelvan.vst/Contents/Resources/Trelvan Operation Manual.pdf" \
  "$built/share/doc/trelvan/Trelvan Operation Manual.html" "$out"
if [ "${1:-}" != --once ]; then
  echo "building it again elsewhere"
  make_in "$work/another-folder"
  for file in "$work"/first/packages/*.deb "$work"/first/packages/*.tar.gz; do
    cmp "$file" "$work/another-folder/packages/${file##*/}" || fail "two builds are not the same"
  done
fi

echo "checking"
tests=$work/first/$source/tests/install
python3 "$tests/versiontest.py" "$work/first/$source" "$built"
python3 "$tests/noticestest.py" "$built" "$work/first/$source" "${toolkit%/}"
python3 "$tests/packagestest.py" "$work/first/$source" "$built" "$(command -v cpack)"
tar -xzf "$out/$source-linux-$(uname -m).tar.gz" -C "$work"
"$work/$source-linux-$(uname -m)/bin/widen" --validate >"$work/log" ||
  { cat "$work/log" >&2; exit 1; }
tail -n 1 "$work/log"

(cd "$out" && sha256sum -- * >SHA256SUMS)
echo "$source, in $out:"
(cd "$out" && du -b -- * | sed 's/\t/  /')
echo "to name it: git tag -a v$version -m 'Trelvan $version'"
