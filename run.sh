#!/usr/bin/env bash
# Installs what is missing, builds and runs Kalvora.
#   ./run.sh                opens the window; without a display it converts a small sample
#   ./run.sh convert ...    the command line: ./run.sh --help
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/common.sh
. "$root/scripts/common.sh"

ensure_packages run build
# The tests are not needed to run; a tree that test.sh has set up keeps them.
grep -qs 'KALVORA_TESTS:BOOL=ON' "$root/build/release/CMakeCache.txt" && tests=ON || tests=OFF
KALVORA_TESTS=$tests build release bin/kalvoractl

bin=$root/build/release/bin
[ $# -gt 0 ] && exec "$bin/kalvoractl" "$@"

sample=${XDG_CACHE_HOME:-$HOME/.cache}/kalvora/sample
mkdir -p "$sample"
say "no display: converting a small sample"
quietly ffmpeg -y -nostdin -f lavfi -i sine=frequency=440:duration=3 "$sample/sample.wav"
rm -f "$sample"/*.mp3
"$bin/kalvoractl" convert --preset MP3 "$sample/sample.wav"
say "the result: $sample/sample.mp3"
say "more: ./run.sh --help"
