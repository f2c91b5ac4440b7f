#!/usr/bin/env bash
# Installs what is missing, builds the release and draws the example pictures into pictures/.
set -euo pipefail
cd "$(dirname "$0")"
tools/install-packages.sh run
tools/build.sh release
tools/draw-examples.sh build/release/cli/tessara build/release/examples/flory/program/flory pictures
