#!/usr/bin/env bash
# Runs a command with a virtual display of its own, and with Wine's server kept between its programs.
# Usage: tools/with_display.sh COMMAND [ARGUMENTS]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$number" >/dev/null 2>&1 &
xvfb=$!
cleanup() {
  WINEPREFIX="${ZQVOTE_WINEPREFIX:-$root/build/wine}" wineserver -k >/dev/null 2>&1 || true
  kill "$xvfb" 2>/dev/null || true
  rm -f "$number"
}
trap cleanup EXIT
for _ in $(seq 100); do
  [ ! -s "$number" ] || break
  sleep 0.1
done
DISPLAY=":$(cat "$number")"
export DISPLAY

"$root/tools/wine.sh" cmd /c exit >/dev/null 2>&1 || true
WINEARCH=win32 WINEPREFIX="${ZQVOTE_WINEPREFIX:-$root/build/wine}" WINEDEBUG=-all wineserver -p >/dev/null 2>&1 || true
"$@"
