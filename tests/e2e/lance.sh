#!/usr/bin/env bash
# lance.sh PROGRAM [ARGS...]: runs a program on a display of its own with a window manager, and ends both after it. The
# answer is the program's; 77 when a tool is missing. VELM_ECRAN is the size of the screen, VELM_ECHELLE what a pixel of
# the layout takes of it.
set -euo pipefail
for tool in Xvfb openbox xdotool xprop; do
  command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is not installed"; exit 77; }
done

temp=$(mktemp -d)
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$temp"
}
trap cleanup EXIT
trap 'exit 143' TERM INT

# The server takes a free number and tells it once it listens. Without -noreset it starts afresh when its last client
# leaves, and takes the window manager with it.
mkfifo "$temp/number"
Xvfb -displayfd 3 -screen 0 "${VELM_ECRAN:-1280x900}x24" -dpi 96 -nolisten tcp -noreset 3>"$temp/number" >/dev/null 2>"$temp/xvfb" &
pids+=($!)
if ! read -r -t 60 number <"$temp/number"; then
  echo "the display did not start:" >&2
  cat "$temp/xvfb" >&2
  exit 1
fi

mkdir -m 700 "$temp/run"
export DISPLAY=":$number" QT_QPA_PLATFORM=xcb QT_FONT_DPI=96 QT_SCALE_FACTOR="${VELM_ECHELLE:-1}" NO_AT_BRIDGE=1
export HOME="$temp" XDG_RUNTIME_DIR="$temp/run" XDG_CONFIG_HOME="$temp/config" XDG_DATA_HOME="$temp/data"
export XDG_CACHE_HOME="$temp/cache"
export LSAN_OPTIONS="suppressions=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/fuites.supp:print_suppressions=0"
unset WAYLAND_DISPLAY QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME

openbox >/dev/null 2>&1 &
pids+=($!)
# A window shown before the manager stands may never be mapped.
for _ in $(seq 600); do
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done

"$@" &
program=$!
pids+=("$program")
status=0
wait "$program" || status=$?
exit "$status"
