#!/usr/bin/env bash
# Runs a Windows program under Wine, in a prefix of the project's own that is made at the first call.
# Usage: tools/wine.sh PROGRAM [ARGUMENTS]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEARCH=win32
export WINEPREFIX="${ZQVOTE_WINEPREFIX:-$root/build/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree=;mshtml="

make_prefix() {
  [ ! -e "$WINEPREFIX/zqvote-ready" ] || return 0
  wine wineboot --init >/dev/null 2>&1
  # The 32-bit half doesn't look into the folder where the distribution puts Wine's fonts.
  local fonts="$WINEPREFIX/drive_c/windows/Fonts"
  mkdir -p "$fonts"
  cp /usr/share/wine/fonts/*.ttf "$fonts/" 2>/dev/null || true
  # Chinese texts have glyphs: the face that the texts ask for, and a fall-back for the western ones.
  cat >"$WINEPREFIX/fonts.reg" <<'REG'
Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]
"Microsoft YaHei"="WenQuanYi Micro Hei"
"SimSun"="WenQuanYi Micro Hei"

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink]
"Tahoma"=hex(7):77,00,71,00,79,00,2d,00,6d,00,69,00,63,00,72,00,6f,00,68,00,65,\
  00,69,00,2e,00,74,00,74,00,63,00,2c,00,57,00,65,00,6e,00,51,00,75,00,61,00,6e,\
  00,59,00,69,00,20,00,4d,00,69,00,63,00,72,00,6f,00,20,00,48,00,65,00,69,00,00,\
  00,00,00
REG
  wine regedit /S "$(winepath -w "$WINEPREFIX/fonts.reg" 2>/dev/null)" >/dev/null 2>&1 || true
  touch "$WINEPREFIX/zqvote-ready"
}

mkdir -p "$WINEPREFIX"
# Several tests may start at once: one of them makes the prefix.
exec 9>"$WINEPREFIX.lock"
flock 9
make_prefix
exec 9>&-

exec wine "$@"
