#!/usr/bin/env bash
# Installs what building and testing need on a Debian machine, skipping what is there.
# Usage: tools/setup.sh [--windows] [--pictures] [--bench] [--lint]     (always: the native tool chain)
set -euo pipefail
cd "$(dirname "$0")/.."

sudo=""
[ "$(id -u)" = 0 ] || sudo="sudo"

say() { printf 'setup: %s\n' "$*" >&2; }

have_package() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

missing() {
  local name
  for name in "$@"; do have_package "$name" || printf '%s ' "$name"; done
}

updated=""
update_once() {
  [ -z "$updated" ] || return 0
  updated=yes
  # A stale index is a warning: the packages may well resolve from the lists that are there.
  $sudo apt-get update -qq >/dev/null 2>&1 || say "warning: apt-get update failed, going on with the lists at hand"
}

install() {
  local want
  want=$(missing "$@")
  [ -n "$want" ] || return 0
  say "installing $want"
  update_once
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $want >/dev/null
}

# A foreign architecture can leave the indexes in a state in which wine32:i386 can't be resolved. The second way
# asks only the main suites, with lists of its own, made from the machine's own entries.
install_from_main_suite() {
  local lists sources
  lists=$(mktemp -d)
  sources="$lists/sources.list"
  mkdir -p "$lists/lists/partial"
  {
    cat /etc/apt/sources.list 2>/dev/null || true
    cat /etc/apt/sources.list.d/*.list 2>/dev/null || true
    awk -v RS='' '/(^|\n)Types:/ {
      uri = ""; suites = ""; parts = ""; key = ""
      n = split($0, line, "\n")
      for (i = 1; i <= n; i++) {
        value = line[i]; sub(/^[^:]*: */, "", value)
        if (line[i] ~ /^URIs:/) uri = value
        if (line[i] ~ /^Suites:/) suites = value
        if (line[i] ~ /^Components:/) parts = value
        if (line[i] ~ /^Signed-By:/) key = value
      }
      m = split(suites, suite, " ")
      for (i = 1; i <= m; i++) print "deb " (key ? "[signed-by=" key "] " : "") uri " " suite[i] " " parts
    }' /etc/apt/sources.list.d/*.sources 2>/dev/null || true
  } | grep -E '^deb ' | grep -E 'debian' | grep -vE 'security' >"$sources" || true
  local options=(-o "Dir::Etc::sourcelist=$sources" -o Dir::Etc::sourceparts=/dev/null
    -o "Dir::State::lists=$lists/lists")
  $sudo apt-get "${options[@]}" update -qq >/dev/null 2>&1 || say "warning: the private apt-get update failed too"
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get "${options[@]}" install -y -qq --no-install-recommends "$@" >/dev/null
  $sudo rm -rf "$lists"
}

install_foreign() {
  local want
  want=$(missing "$@")
  [ -n "$want" ] || return 0
  say "installing $want"
  if ! dpkg --print-foreign-architectures | grep -qx i386; then
    $sudo dpkg --add-architecture i386
    updated=""
  fi
  update_once
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $want >/dev/null 2>&1 && return 0
  say "the plain way did not resolve $want, trying the main suite alone"
  # shellcheck disable=SC2086
  install_from_main_suite $want
}

# The sanitizers' and the fuzzer's runtime goes with the machine's clang.
clang_major=$(command -v clang >/dev/null 2>&1 && clang -dumpversion | cut -d. -f1 || echo 14)
clang_runtime="libclang-rt-$clang_major-dev"

windows="" pictures="" bench="" lint=""
for option in "$@"; do
  case "$option" in
    --windows) windows=yes ;;
    --pictures) pictures=yes ;;
    --bench) bench=yes ;;
    --lint) lint=yes ;;
    *) say "unknown option $option"; exit 2 ;;
  esac
done

# Tools that may have come another way than as the Debian package of their name.
install_tool() { command -v "$1" >/dev/null 2>&1 || install "$2"; }

install ca-certificates ninja-build g++ clang "$clang_runtime" googletest libgmock-dev libgtest-dev
install_tool cmake cmake
install_tool npm npm
install_tool python3 python3
[ -z "$windows" ] || install g++-mingw-w64-i686-posix mingw-w64-tools wine librsvg2-bin imagemagick
[ -z "$windows" ] || install_foreign wine32:i386
[ -z "$windows" ] || install fonts-wine fonts-wqy-microhei xvfb xauth
[ -z "$pictures" ] || install chromium fonts-liberation
[ -z "$bench" ] || install libbenchmark-dev libprotobuf-dev protobuf-compiler libmsgpack-cxx-dev
[ -z "$lint" ] || install clang-format clang-tidy
