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

# The command line that a conversion of one file runs, as one shell command.
command_line() { "$bin/kalvoractl" arguments "$@" 2>/dev/null; }

# A copy of the program whose tool is the given script: for what the real tool would hide.
program_with_tool() {
    local folder=$1 script=$2
    mkdir -p "$folder/bin" "$folder/share/kalvora"
    cp "$bin/kalvoractl" "$folder/bin/"
    cp -rL "$root/build/release/share/kalvora/resources" "$folder/share/kalvora/"
    cp "$script" "$folder/share/kalvora/resources/ffmpeg"
    chmod +x "$folder/share/kalvora/resources/ffmpeg"
}
