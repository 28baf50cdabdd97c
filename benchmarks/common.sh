# shellcheck shell=bash
# Shared by the benchmarks. Sourced; sets up `work` (a folder that goes with the script), `bin` and the measuring tools.

set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
bin=$root/build/release/bin
work=$(mktemp -d)
trap 'cd /; rm -rf "$work"' EXIT
export HOME=$work/home XDG_CONFIG_HOME=$work/home/config XDG_DATA_HOME=$work/home/data XDG_CACHE_HOME=$work/home/cache
mkdir -p "$HOME"

# Sets wall, own, children and peak for a command whose output is thrown away.
measure() {
    local result
    result=$("$bin/kvmeasure" "$@" 2>"$work/measured.log") || { cat "$work/measured.log" >&2; return 1; }
    # shellcheck disable=SC2034
    { wall=0 own=0 children=0 peak=0; }
    eval "$result"
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.3f", a / b }'; }
percent() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", 100 * a / b }'; }
smaller() { awk -v a="$1" -v b="$2" 'BEGIN { print (a < b ? a : b) }'; }

# conversions_at_once TYPE PRESET: how many of them run side by side on this machine.
conversions_at_once() {
    local threads
    threads=$("$bin/kalvoractl" presets --json --type "$1" | tr -d '\n' |
        sed -E 's/.*"name": *"'"$2"'"[^}]*\}[^}]*"threadCountArgument": *"?([0-9]+).*/\1/')
    awk -v p="$(nproc)" -v t="$threads" 'BEGIN { n = int(p / t); if (n * t < p) n++; print (n ? n : 1) }'
}

# Both have written the same files; encoders with several threads and a limited rate are not the same to the byte each time.
is_same_work() {
    diff <(cd "$work/ours" && find . -type f | sort) <(cd "$work/theirs" && find . -type f | sort)
    awk -v a="$(du -sb "$work/ours" | cut -f 1)" -v b="$(du -sb "$work/theirs" | cut -f 1)" \
        'BEGIN { exit !(a < 1.01 * b && b < 1.01 * a) }'
}

# against_xargs TYPE PRESET WHAT WANTED ROUNDS: converts the files of $work/in with the preset, and has xargs run the same
# command lines with as many jobs, so many times in turn, and prints the line with the best of each. Options that this machine's ffmpeg does not know are left
# out of the lists as well: the program does so at each launch.
against_xargs() {
    local type=$1 preset=$2 what=$3 wanted=$4 rounds=$5 jobs file best_ours=9999 best_theirs=9999 own_share
    jobs=$(conversions_at_once "$type" "$preset")
    mkdir -p "$work/ours" "$work/theirs"
    for file in "$work"/in/*; do
        "$bin/kalvoractl" arguments --preset "$preset" --to "$work/theirs" "$file" 2>/dev/null
    done >"$work/lists"
    ffmpeg -hide_banner -h full 2>/dev/null | grep -q -e '-allow_sw' || sed -i 's/ -allow_sw 1//' "$work/lists"
    for _ in $(seq "$rounds"); do
        rm -f "$work"/ours/* "$work"/theirs/*
        measure "$bin/kalvoractl" convert --preset "$preset" --to "$work/ours" "$work/in"
        best_ours=$(smaller "$wall" "$best_ours") own_share=$(percent "$own" "$children")
        # shellcheck disable=SC2016
        measure xargs -P "$jobs" -d '\n' -n 1 -a "$work/lists" sh -c 'exec sh -c "exec $0"'
        best_theirs=$(smaller "$wall" "$best_theirs")
        is_same_work
    done
    echo "$type: $what, $jobs at once: $best_ours s against $best_theirs s of xargs, ratio $(ratio "$best_ours" "$best_theirs") (wanted $wanted); own processor time $own_share % of the children's"
}

# program_with_stand_in FOLDER: a copy of the program whose tool is a script, for what the real tool would hide. It tells the
# real tool's options and answers probes at once, about a song of 20 seconds. Standard input may define what it does at each
# start, `started`, and for a conversion, `convert`.
program_with_stand_in() {
    local resources=$1/share/kalvora/resources
    mkdir -p "$1/bin" "$1/share/kalvora"
    cp "$bin/kalvoractl" "$1/bin/"
    cp -rL "$root/build/release/share/kalvora/resources" "$1/share/kalvora/"
    {
        printf '#!/bin/sh\nstarted() { :; }\nconvert() { :; }\n'
        cat
        cat <<'TOOL'
case "$*" in
*"-h full"*) exec /usr/bin/ffmpeg -hide_banner -h full ;;
*videotoolbox*) exit 1 ;;
esac
started
[ "$1" != -i ] || { printf '  Duration: 00:00:20.00, start: 0.000000, bitrate: 1411 kb/s\n  Stream #0:0: Audio: pcm_s16le ([1][0][0][0] / 0x0001), 44100 Hz, 2 channels, s16, 1411 kb/s\n' >&2; exit 1; }
convert
TOOL
    } >"$work/tool"
    install -m 755 "$work/tool" "$resources/ffmpeg"
}
