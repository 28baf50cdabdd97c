#!/usr/bin/env bash
# Installs what is missing, builds and runs Kalvora.
#   ./run.sh                opens the window; without a display it converts a small sample
#   ./run.sh FILE|FOLDER... opens them in the window
#   ./run.sh convert ...    the command line: ./run.sh --help
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/common.sh
. "$root/scripts/common.sh"

ensure_packages run build
# The tests are not needed to run; a tree that test.sh has set up keeps them.
grep -qs 'KALVORA_TESTS:BOOL=ON' "$root/build/release/CMakeCache.txt" && tests=ON || tests=OFF
KALVORA_TESTS=$tests build release bin/kalvora bin/kalvoractl kv_translations

bin=$root/build/release/bin
has_display() { [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; }
case ${1:-} in
    "") if has_display; then exec "$bin/kalvora"; fi ;;
    -* | probe | presets | arguments | convert | preferences | start | pause | select-preset | add)
        exec "$bin/kalvoractl" "$@" ;;
    *)
        [ -e "$1" ] || exec "$bin/kalvoractl" "$@" # which says what is wrong with the word
        if has_display; then exec "$bin/kalvora" "$@"; fi
        say "no display: ./run.sh convert --preset NAME FILE... does without"
        exit 1 ;;
esac

sample=${XDG_CACHE_HOME:-$HOME/.cache}/kalvora/sample
mkdir -p "$sample"
say "no display: converting a small sample"
quietly ffmpeg -y -nostdin -f lavfi -i sine=frequency=440:duration=3 "$sample/sample.wav"
rm -f "$sample"/*.mp3
"$bin/kalvoractl" convert --preset MP3 "$sample/sample.wav"
say "the result: $sample/sample.mp3"
say "more: ./run.sh --help"
