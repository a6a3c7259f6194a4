#!/usr/bin/env bash
# Builds the fuzz targets and runs each, two at a time. Fails if one of them finds anything.
# Usage: tools/fuzz.sh [SECONDS] [TARGET...]     (5 seconds for each, all targets)
# What was learnt is kept in build/fuzz-corpus, findings in build/fuzz-findings.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${1:-5}"
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(events_fuzz vote_file_fuzz records_fuzz text_fuzz format_fuzz)

build="${ZQVOTE_FUZZ_BUILD:-build/fuzz}"
if [ -z "${ZQVOTE_FUZZ_BUILD:-}" ]; then
  cmake --preset fuzz >/dev/null
  ninja -C "$build" make_seeds "${targets[@]}" >"$build/build.log" || { cat "$build/build.log" >&2; exit 1; }
fi
corpus="build/fuzz-corpus"
findings="build/fuzz-findings"
"$build/fuzz/make_seeds" "$corpus"

run() {
  local target="$1" longest=4096
  [ "$target" = vote_file_fuzz ] && longest=16384
  mkdir -p "$findings/$target"
  if "$build/fuzz/$target" -max_total_time="$seconds" -max_len="$longest" -timeout=20 -rss_limit_mb=2048 \
    -close_fd_mask=1 -print_final_stats=1 -artifact_prefix="$findings/$target/" "$corpus/$target" \
    >"$findings/$target.log" 2>&1; then
    printf 'fuzz: %-16s clean, %s inputs\n' "$target" \
      "$(sed -n 's/^stat::number_of_executed_units: //p' "$findings/$target.log")"
  else
    printf 'fuzz: %-16s FOUND SOMETHING, see %s\n' "$target" "$findings/$target.log"
    return 1
  fi
}

failed=0
for ((i = 0; i < ${#targets[@]}; i += 2)); do
  pids=()
  for target in "${targets[@]:i:2}"; do
    run "$target" &
    pids+=($!)
  done
  for pid in "${pids[@]}"; do wait "$pid" || failed=1; done
done
exit "$failed"
