#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests.
set -euo pipefail
cd "$(dirname "$0")"
tools/install-packages.sh run test
tools/build.sh dev
ctest --preset dev --parallel "$(nproc)"
