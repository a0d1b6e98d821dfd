#!/usr/bin/env bash
# Line coverage of src/ by the whole test suite (core and window): builds
# build-cov/ with gcc's coverage instrumentation, runs every test and prints
# gcovr's summary; scripts/coverage.sh --files also lists each file.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
TESSALY_PACKAGES+=(gcovr)
tessaly_install_deps
export QT_QPA_PLATFORM=offscreen

tessaly_configure build-cov -DCMAKE_BUILD_TYPE=Debug -DTESSALY_BUILD_BENCH=OFF \
  -DCMAKE_CXX_FLAGS=--coverage -DCMAKE_EXE_LINKER_FLAGS=--coverage
cmake --build build-cov -j "$TESSALY_JOBS"
find build-cov -name '*.gcda' -delete
# Notes of sources that no longer exist (their object is gone) would confuse gcovr.
find build-cov -name '*.gcno' | while read -r notes; do
  [ -e "${notes%.gcno}.o" ] || rm -f "$notes"
done
(cd build-cov && ctest --no-tests=error -j "$TESSALY_JOBS" >/dev/null) || echo "Some tests failed; coverage counts what ran." >&2
# The per-file table goes to build-cov/coverage.txt (printed with --files);
# gcovr replaces its output file, so it must never be a device.
gcovr -r . --filter 'src/' --object-directory build-cov --txt build-cov/coverage.txt -s
if [ "${1:-}" = "--files" ]; then cat build-cov/coverage.txt; fi
