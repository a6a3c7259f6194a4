#!/usr/bin/env bash
# Brings SQLite's amalgamation from the pinned npm package that carries it, and checks its hash.
# Usage: tools/fetch_sqlite.sh FOLDER
set -euo pipefail

package="better-sqlite3@12.11.1"
sha256="ebf0ed75a7a59dbcb3b24bbd014ef49d9f15bc328e4adcbf516f2a8fadfa2835"

target="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

(cd "$work" && npm pack --silent "$package" >/dev/null)
archive=$(ls "$work"/*.tgz)
if ! echo "$sha256  $archive" | sha256sum --check --status; then
  echo "fetch_sqlite: $package isn't what it was when it was pinned, its hash differs" >&2
  exit 1
fi
mkdir -p "$target"
tar -xzf "$archive" -C "$target" --strip-components=3 package/deps/sqlite3/sqlite3.h package/deps/sqlite3/sqlite3.c
