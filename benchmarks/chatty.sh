#!/usr/bin/env bash
# A child that prints 100 MB of status text: our processor time against `cat` and `tr` reading the same text.
. "$(dirname "$0")/common.sh"

cat >"$work/tool" <<'TOOL'
#!/bin/sh
case "$*" in
*"-h full"*) exec /usr/bin/ffmpeg -hide_banner -h full ;;
*videotoolbox*) exit 1 ;;
"-i "*) printf '  Duration: 00:00:20.00, start: 0.000000, bitrate: 1411 kb/s\n  Stream #0:0: Audio: pcm_s16le ([1][0][0][0] / 0x0001), 44100 Hz, 2 channels, s16, 1411 kb/s\n' >&2; exit 1 ;;
*) yes 'size=     256kB time=00:00:10.00 bitrate= 209.7kbits/s speed=  20x' | head -c 100000000 >&2 ;;
esac
TOOL
program_with_tool "$work/program" "$work/tool"
: >"$work/song.wav"
measure "$work/program/bin/kalvoractl" convert --preset MP3 "$work/song.wav"
ours=$own ours_peak=$((peak / 1000))
measure sh -c "yes 'size=     256kB time=00:00:10.00 bitrate= 209.7kbits/s speed=  20x' | head -c 100000000 | tr a-z A-Z | wc -c"
echo "chatty: 100 MB of status text: own processor time $ours s against $children s of a shell pipe over the same text, ratio $(ratio "$ours" "$children"), $ours_peak MB resident"
