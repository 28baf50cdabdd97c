#!/usr/bin/env bash
# 10,000 queued files: resident memory (wanted: under 150 MB), and the time from start to the first child (under 150 ms).
# A script stands in for the tool: it answers probes at once and "converts" nothing.
. "$(dirname "$0")/common.sh"

program_with_stand_in "$work/program" </dev/null

mkdir "$work/in" "$work/out"
for i in $(seq 10000); do : >"$work/in/$i.wav"; done
measure "$work/program/bin/kalvoractl" convert --preset MP3 --to "$work/out" "$work/in"
memory=$(awk -v k="$peak" 'BEGIN { printf "%.0f", k / 1000 * 1.024 }')

program_with_stand_in "$work/program" <<'TOOL'
started() { date +%s%N >>"${0%/*}/started"; }
TOOL
started=$work/program/share/kalvora/resources/started
best=999999
for _ in 1 2 3 4 5; do
    rm -f "$started"
    begin=$(date +%s%N)
    "$work/program/bin/kalvoractl" convert --preset MP3 --to "$work/out" "$work/in/1.wav" 2>/dev/null
    took=$((($(head -n 1 "$started") - begin) / 1000000))
    [ "$took" -lt "$best" ] && best=$took
done
echo "queue: 10,000 queued files: $memory MB resident (wanted under 150), ratio $(ratio "$memory" 150); start to first child $best ms (wanted under 150), ratio $(ratio "$best" 150)"
