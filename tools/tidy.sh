#!/usr/bin/env bash
# Reads all sources with clang-tidy and fails on any finding: tidy.sh [BUILD_FOLDER] [REGEX_OF_FILES]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev} files=${2:-.}
[[ -f $build/compile_commands.json ]] || cmake --preset dev -B "$build"

sed -nE 's|^ *"file": "(.*)",?$|\1|p' "$build/compile_commands.json" | sort -u | grep -E -- "$files" |
    xargs -d '\n' -n1 -P"$(nproc)" clang-tidy -p "$build" --quiet 2> >(grep -v 'warnings* generated' >&2) ||
    { echo "clang-tidy: see the findings above" >&2; exit 1; }
echo "clang-tidy: no findings"
