#!/usr/bin/env bash
# Runs a Windows program under Wine, in a prefix of the project's own.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEARCH=win32
export WINEPREFIX="${ZQVOTE_WINEPREFIX:-$root/build/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p "$WINEPREFIX"
exec wine "$@"
