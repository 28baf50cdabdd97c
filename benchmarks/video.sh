#!/usr/bin/env bash
# 12 video clips of 10 seconds to MP4: `kalvoractl convert` against xargs running the same argument lists with as many jobs.
# Wanted: at most 1.03 times the wall time.
. "$(dirname "$0")/common.sh"

mkdir "$work/in"
ffmpeg -y -nostdin -loglevel error -f lavfi -i testsrc2=size=640x360:rate=25:duration=10 -f lavfi -i sine=duration=10 \
    -vf noise=alls=8 -c:v mpeg4 -q:v 3 -c:a mp2 "$work/in/00.avi"
for i in $(seq 1 11); do cp "$work/in/00.avi" "$work/in/$(printf %02d "$i").avi"; done
against_xargs video MP4 "12 clips to MP4" 1.03 3
