#!/usr/bin/env bash
# Builds Corvan with its tests and runs them all.
set -euo pipefail
cd "$(dirname "$0")"

packaging/install-missing.sh packaging/debian-build.txt packaging/debian-test.txt
cmake --preset release
cmake --build --preset release
ctest --preset release -j "$(nproc)"
