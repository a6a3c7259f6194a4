#!/usr/bin/env bash
# Makes a picture of a report, as a browser shows it.
# Usage: tools/picture.sh [--palette] REPORT.html OUT.png     CODEPAGE names the report's code page (windows-1252)
#
# A report gives each bar's colour as a decimal number, which browsers take for hexadecimal digits. With --palette the
# bars have the colours that are meant, as in the module's windows.
set -euo pipefail

palette=""
if [ "${1:-}" = --palette ]; then
  palette=yes
  shift
fi
if [ $# != 2 ]; then
  echo "usage: tools/picture.sh [--palette] REPORT.html OUT.png" >&2
  exit 2
fi
report=$1
picture=$2
[ -r "$report" ] || { echo "picture: $report can't be read" >&2; exit 2; }

"$(dirname "$0")/setup.sh" --pictures
command -v convert >/dev/null || { echo "picture: ImageMagick is missing, see tools/setup.sh --windows" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Turns bgcolor="DECIMAL" of 0x00BBGGRR into the colour that it stands for.
intended_colours() {
  [ -n "$palette" ] || { cat; return; }
  awk '{
    while (match($0, /bgcolor="[0-9]+"/)) {
      number = substr($0, RSTART + 9, RLENGTH - 10)
      colour = sprintf("#%02x%02x%02x", number % 256, int(number / 256) % 256, int(number / 65536) % 256)
      $0 = substr($0, 1, RSTART - 1) "bgcolor=\"" colour "\"" substr($0, RSTART + RLENGTH)
    }
    print
  }'
}

# Reports are in their writer's code page and don't say which. A mark at the front settles it, in a copy.
{
  printf '\xef\xbb\xbf'
  iconv -f "${CODEPAGE:-windows-1252}" -t UTF-8 "$report" | intended_colours
} >"$work/report.html"

# A page is as long as its report: the window is taken long enough for any, and what stays white is cut off.
questions=$(grep -c '<strong>' "$work/report.html" || true)
lines=$(grep -c '<tr>' "$work/report.html" || true)
height=$((400 + questions * 200 + lines * 40))
[ "$height" -le 16000 ] || height=16000
chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --no-first-run --disable-background-networking \
  --disable-component-update --disable-sync --user-data-dir="$work/profile" --window-size="1120,$height" \
  --screenshot="$work/shot.png" "file://$work/report.html" >/dev/null 2>&1

mkdir -p "$(dirname "$picture")"
convert "$work/shot.png" -bordercolor white -border 1 -trim +repage -bordercolor white -border 24 -strip \
  +dither -colors 255 -define png:compression-level=9 "$picture"
