#!/usr/bin/env bash
# Configures and builds a preset: build.sh PRESET
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1

# ccache keeps its files in the home directory; who has none gets them in the build folder.
if [[ ! -w ${HOME:-/none} ]]; then
    export CCACHE_DIR=$PWD/build/ccache
fi
cmake --preset "$preset"
cmake --build --preset "$preset" --parallel "$(nproc)"
