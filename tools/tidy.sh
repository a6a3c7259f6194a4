#!/usr/bin/env bash
# Lints the portable core with clang-tidy, by the sanitizer build's compile commands.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -e build/asan/compile_commands.json ] || cmake --preset asan >/dev/null
git ls-files -co --exclude-standard 'JW_Base/*.cpp' 'votedata/*.cpp' 'files/*.cpp' 'module/*.cpp' 'platform/posix/*.cpp' |
  grep -v '^module/library/' |
  xargs -P 2 -n 2 clang-tidy --quiet -p build/asan
