#!/usr/bin/env bash
# 40 WAV files of 20 seconds to MP3: `kalvoractl convert` against xargs running the same argument lists with as many jobs.
# Wanted: at most 1.05 times the wall time; own processor time at most 2 % of the children's.
. "$(dirname "$0")/common.sh"

mkdir "$work/in" "$work/ours" "$work/theirs"
ffmpeg -y -nostdin -loglevel error -f lavfi -i anoisesrc=duration=20:sample_rate=44100:amplitude=0.3 -ac 2 "$work/in/00.wav"
for i in $(seq 1 39); do cp "$work/in/00.wav" "$work/in/$(printf %02d "$i").wav"; done

threads=$("$bin/kalvoractl" presets --json --type audio |
    tr -d ' \n' | sed -E 's/.*"name":"MP3"[^}]*\}[^}]*"threadCountArgument":"([0-9]+)".*/\1/')
jobs=$(awk -v p="$(nproc)" -v t="$threads" 'BEGIN { n = int(p / t); if (n * t < p) n++; print (n ? n : 1) }')

for file in "$work"/in/*.wav; do command_line --preset MP3 --to "$work/theirs" "$file"; done >"$work/lists"
best_ours=999 best_theirs=999
for _ in 1 2 3; do
    rm -f "$work"/ours/* "$work"/theirs/*
    measure "$bin/kalvoractl" convert --preset MP3 --to "$work/ours" "$work/in"
    best_ours=$(awk -v a="$wall" -v b="$best_ours" 'BEGIN { print (a < b ? a : b) }') own_share=$(percent "$own" "$children")
    measure xargs -P "$jobs" -d '\n' -n 1 -a "$work/lists" sh -c 'exec sh -c "exec $0"'
    best_theirs=$(awk -v a="$wall" -v b="$best_theirs" 'BEGIN { print (a < b ? a : b) }')
done
echo "audio: 40 files to MP3, $jobs jobs: $best_ours s against $best_theirs s of xargs, ratio $(ratio "$best_ours" "$best_theirs") (wanted 1.05); own processor time $own_share % of the children's (wanted 2 %)"
