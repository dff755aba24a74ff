#!/usr/bin/env bash
# capture.sh PICTURE PROGRAM [ARGS...]: runs a program on a virtual display with a window manager, takes a picture once its
# window stands still, and ends it.
set -euo pipefail
picture=$1
shift
size=${VELM_ECRAN:-1280x860}
number=$((90 + RANDOM % 900))
temp=$(mktemp -d)
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$temp"
}
trap cleanup EXIT

# Without -noreset the server starts afresh when its last client leaves, and takes the window manager with it.
Xvfb ":$number" -screen 0 "${size}x24" -nolisten tcp -noreset >/dev/null 2>&1 &
pids+=($!)
export DISPLAY=":$number" QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$temp/run"
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY
for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
openbox >/dev/null 2>&1 &
pids+=($!)
# A window shown before the manager stands may never be mapped.
for _ in $(seq 100); do xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break; sleep 0.1; done
"$@" &
program=$!
pids+=("$program")

# The picture is taken when two shots in a row are equal and show more than an empty screen.
last=""
for _ in $(seq 60); do
  sleep 0.5
  kill -0 "$program" 2>/dev/null || { echo "the program ended before its window stood" >&2; exit 1; }
  import -silent -window root "$temp/shot.png"
  xdotool search --onlyvisible --pid "$program" >/dev/null 2>&1 || continue
  [ "$(identify -format '%k' "$temp/shot.png")" -gt 16 ] || continue
  now=$(identify -format '%#' "$temp/shot.png")
  [ "$now" = "$last" ] && break
  last=$now
done
mkdir -p "$(dirname "$picture")"
mv "$temp/shot.png" "$picture"
echo "$picture"
