#!/usr/bin/env bash
# Programs that render files through the effect as LV2: FFmpeg, GStreamer and lv2file. Every sample
# is compared with widen's.
# Usage: tests/hosts/lv2-renders.sh BUILD-FOLDER
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
lv2_world
needs ffmpeg gst-launch-1.0 lv2file

names=(width baseFreq emphasis process phase)

# render HOST URI IN OUT VALUE...: of a file of single precision.
render() {
  local host=$1 uri=$2 in=$3 out=$4 i
  shift 4
  local values=("$@") controls=()
  rm -f "$out"
  case $host in
    ffmpeg)
      for i in "${!names[@]}"; do controls+=("${names[i]}=${values[i]}"); done
      timeout 60 ffmpeg -v error -y -i "$in" -c:a pcm_f32le \
        -af "lv2=p=${uri//:/\\\\:}:c=$(IFS='|'; echo "${controls[*]}")" "$out"
      ;;
    gstreamer)
      for i in "${!names[@]}"; do controls+=("${names[i]}=${values[i]}"); done
      timeout 60 gst-launch-1.0 -q filesrc location="$in" ! wavparse ! \
        "${uri//:/-}" "${controls[@]}" ! wavenc ! filesink location="$out"
      ;;
    lv2file)
      for i in "${!names[@]}"; do controls+=(-p "${names[i]}:${values[i]}"); done
      timeout 60 lv2file --ignore-clipping -i "$in" -o "$out" "${controls[@]}" "$uri"
      ;;
  esac
}

sound make "$work/stereo.wav" 48000 3 2
for values in "0.75 0.25 0.3 1 1" "1 0.777 0.5 1 0" "0.9 0.61 0.2 0 0"; do
  read -ra each <<<"$values"
  check "widen renders $values" widen_render "$work/stereo.wav" "$work/widen.wav" --single \
    --width "${each[0]}" --base-freq "${each[1]}" --emphasis "${each[2]}" --process "${each[3]}" \
    --phase "${each[4]}"
  for host in ffmpeg gstreamer lv2file; do
    check "$host renders $values" \
      render $host urn:orv:trelvan "$work/stereo.wav" "$work/$host.wav" "${each[@]}"
    check "$host's and widen's are the same" sound same "$work/$host.wav" "$work/widen.wav"
  done
done
finish
