#!/usr/bin/env bash
# A child that prints 100 MB of status text: our processor time against `cat` and `tr` reading the same text.
. "$(dirname "$0")/common.sh"

program_with_stand_in "$work/program" <<'TOOL'
convert() { yes 'size=     256kB time=00:00:10.00 bitrate= 209.7kbits/s speed=  20x' | head -c 100000000 >&2; }
TOOL
: >"$work/song.wav"
measure "$work/program/bin/kalvoractl" convert --preset MP3 "$work/song.wav"
ours=$own ours_peak=$((peak / 1000))
measure sh -c "yes 'size=     256kB time=00:00:10.00 bitrate= 209.7kbits/s speed=  20x' | head -c 100000000 | tr a-z A-Z | wc -c"
echo "chatty: 100 MB of status text: own processor time $ours s against $children s of a shell pipe over the same text, ratio $(ratio "$ours" "$children"), $ours_peak MB resident"
