#!/usr/bin/env bash
# Probing 200 files: `kalvoractl probe` against a shell loop of `ffmpeg -i`. Wanted: at most 1.05 times.
. "$(dirname "$0")/common.sh"

mkdir "$work/in"
ffmpeg -y -nostdin -loglevel error -f lavfi -i testsrc2=duration=1 -f lavfi -i sine=duration=1 "$work/in/000.mp4"
for i in $(seq 1 199); do cp "$work/in/000.mp4" "$work/in/$(printf %03d "$i").mp4"; done

measure "$bin/kalvoractl" probe --json "$work"/in/*
ours=$wall
# shellcheck disable=SC2016
measure sh -c 'for f in "$1"/*; do ffmpeg -i "$f"; done; true' sh "$work/in"
echo "probe: 200 files: $ours s against $wall s of a shell loop, ratio $(ratio "$ours" "$wall") (wanted 1.05)"
