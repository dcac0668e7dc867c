#!/usr/bin/env bash
# Tries on a fresh Debian what README promises to who has nothing yet. The system is made by
# debootstrap below FOLDER, from the mirror that this machine's apt is set to, and kept there.
# Usage: tools/fresh.sh FOLDER SUITE STEP...     (as root; SUITE: bookworm, trixie)
#   packages   those of build/release-VERSION (tools/release.sh): installed, used, updated under a
#              running host, removed
#   root       ./run, ./run --install and --uninstall as root
#   user       the same as a user with sudo, whose files are nobody else's to read
#   test       ./test
# None of the last three may leave anything in the home folder or where temporary files are. Prints
# a line for each step, and what went wrong.
set -euo pipefail
cd "$(dirname "$0")/.."
refuse() { sed -n 's/^# Usage: /usage: /p' tools/fresh.sh >&2; exit 2; }
[ $# -ge 3 ] || refuse
for step in "${@:3}"; do
  case $step in packages | root | user | test) ;; *) refuse ;; esac
done
[ "$(id -u)" = 0 ] || { echo "debootstrap needs root" >&2; exit 1; }
base=$1
suite=$2
shift 2
root=$base/$suite
commit=$(git rev-parse --short HEAD)
version=$(sed -n 's/^project(Trelvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# inside COMMAND...: in the fresh system, with processes and mounts that end with it: terminals and
# shared memory are there, as wherever somebody works.
inside() {
  # shellcheck disable=SC2016 # the inner shell's
  unshare --mount --pid --fork --mount-proc="$root/proc" \
    bash -c 'mkdir -p "$0/dev/pts" "$0/dev/shm" &&
      mount -t devpts -o newinstance,ptmxmode=0666,mode=620 devpts "$0/dev/pts" &&
      mount -t tmpfs tmpfs "$0/dev/shm" && exec chroot "$0" "$@"' \
    "$root" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}
if [ ! -f "$root.made" ]; then
  # The main archive is the one with the suite that this system is of.
  mirror=$(apt-get indextargets --format '$(REPO_URI)' "Codename: $(. /etc/os-release &&
    echo "$VERSION_CODENAME")" | head -n 1)
  mkdir -p "$base"
  debootstrap --variant=minbase --include=ca-certificates "$suite" "$root" "$mirror" \
    >"$root.log" 2>&1 || { tail -n 20 "$root.log" >&2; exit 1; }
  touch "$root.made"
fi
cp /etc/resolv.conf "$root/etc/resolv.conf"

# What is tried: the last commit, as somebody unpacks it.
unpack_for() {
  local home=$1
  rm -rf "${root:?}$home/trelvan"
  mkdir -p "$root$home/trelvan"
  git archive "$commit" | tar -x -C "$root$home/trelvan"
}

# leaving_nothing HOME COMMAND...: runs it, and fails where there is more or less than before in the
# home folder and where temporary files are. What was built in the tree is where it belongs, and
# elsewhere the folder of the X servers is there from the start.
leaving_nothing() {
  local home=$1
  shift
  lie_there "$home" >"$root.before"
  "$@"
  lie_there "$home" >"$root.after"
  diff "$root.before" "$root.after" || { echo "the step left this" >&2; return 1; }
}
lie_there() {
  (cd "$root" && find ".$1" ./tmp ./var/tmp \
    \( -path ".$1/trelvan" -o -path ./tmp/.X11-unix \) -prune -o -print | sort)
}

try_packages() {
  rm -rf "$root/tmp/packages"
  mkdir -p "$root/tmp/packages"
  cp "build/release-$version"/*.deb tools/freshpackages.sh "$root/tmp/packages"
  inside /tmp/packages/freshpackages.sh
}
try_root() {
  unpack_for /root
  leaving_nothing /root inside bash -c 'cd ~/trelvan && ./run && [ -s build/demo/widened.wav ] &&
    ./run --install && /usr/local/bin/widen --info && ./run --uninstall &&
    [ ! -e /usr/local/bin/widen ] && [ ! -e /usr/local/lib/vst ]'
}
try_user() {
  inside bash -c 'apt-get update -qq && apt-get install -y -qq sudo >/dev/null &&
    { id somebody >/dev/null 2>&1 || useradd --create-home --shell /bin/bash somebody; } &&
    echo "somebody ALL=(ALL) NOPASSWD: ALL" >/etc/sudoers.d/somebody'
  unpack_for /home/somebody
  inside chown -R somebody: /home/somebody/trelvan
  leaving_nothing /home/somebody inside su - somebody -c 'umask 077 && cd ~/trelvan && ./run &&
    [ -s build/demo/widened.wav ] && ./run --install && ~/.local/bin/widen --info &&
    [ -d ~/.vst/Trelvan.vst ] && ./run --uninstall && [ ! -e ~/.vst ] && [ ! -e ~/Documents ]'
}
try_test() {
  unpack_for /root
  leaving_nothing /root inside bash -c 'cd ~/trelvan && ./test'
}

failed=0
for step in "$@"; do
  since=$SECONDS
  log=$root.$step.log
  verdict=pass
  # In a process of its own: -e does not hold within a condition.
  set +e
  (set -e; "try_$step") >"$log" 2>&1
  [ $? = 0 ] || { verdict=FAIL; failed=1; tail -n 20 "$log"; }
  set -e
  printf '%-10s %-10s %s  %s  %d s\n' "$suite" "$step" "$verdict" \
    "$commit" $((SECONDS - since))
done
exit "$failed"
