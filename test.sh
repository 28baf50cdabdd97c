#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests. Arguments go to ctest: ./test.sh -R Preset
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/common.sh
. "$root/scripts/common.sh"

ensure_packages run build test
quietly "$root/tests/tools/fetch_ffmpeg_builds.sh" "$root/build/ffmpeg-builds" ||
    say "no further builds of the tool: the tests on them are skipped"
build release
run_tests release "$@"
