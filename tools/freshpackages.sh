#!/usr/bin/env bash
# Run by tools/fresh.sh inside a fresh system, beside the packages: installs, uses, updates under a
# running host and removes them.
set -euxo pipefail
cd "$(dirname "$0")"
fail() { echo "$1" >&2; exit 1; }

apt-get update -qq
find / -xdev \( -path /proc -o -path /tmp \) -prune -o -iname '*trelvan*' -print >before
apt-get install -y -qq --no-install-recommends ./*.deb
for package in trelvan-vst trelvan-lv2 widen trelvan-doc; do dpkg --verify "$package"; done

# Two seconds of noise as a WAV of unknown length: 48 kHz, two channels, 16 bits.
header='RIFF\xff\xff\xff\xffWAVEfmt \x10\0\0\0\x01\0\x02\0\x80\xbb\0\0\0\xee\x02\0\x04\0\x10\0'
header+='data\xff\xff\xff\xff'
head -c 384000 /dev/urandom >noise
{ printf "$header"; cat noise; } >noise.wav
export HOME=$PWD
widen --info | grep -F /usr/lib/vst/Trelvan.vst
widen noise.wav -o wide.wav --preset "mix 1" --gain -12dB --plot wide.png
widen --preset "/usr/share/trelvan/presets/guitar 1.orv" --list-params
gzip -dc /usr/share/man/man1/widen.1.gz /usr/share/man/man7/trelvan.7.gz | grep -c TH

# A host that has read half of its sound goes on with the plug-in that it has.
dpkg-deb -R trelvan-vst_*.deb newer
sed -i 's/^Version: .*/&+newer/' newer/DEBIAN/control
module=$(find newer -name Trelvan.so)
printf 'newer' >>"$module"
dpkg-deb --root-owner-group -b newer newer.deb
mkfifo sound
widen - -o - --preset "mix 1" --gain -12dB <sound >under.wav &
host=$!
exec 3>sound
{ printf "$header"; head -c 16000 noise; } >&3
until [ "$(stat -c %s under.wav)" -gt 44 ]; do sleep 0.1; done
grep -F Trelvan.so "/proc/$host/maps"
dpkg -i newer.deb
tail -c +16001 noise >&3
exec 3>&-
wait "$host"
cmp <(tail -c +45 under.wav) <(tail -c 384000 wide.wav) || fail "the update was heard"
widen noise.wav -o wide2.wav --preset "mix 1" --gain -12dB
cmp wide.wav wide2.wav

apt-get purge -y -qq trelvan-vst trelvan-lv2 widen trelvan-doc
find / -xdev \( -path /proc -o -path /tmp \) -prune -o -iname '*trelvan*' -print >after
diff before after || fail "something was left"
[ ! -e /usr/lib/vst ] || fail "the plug-ins' folder was left"
