#!/usr/bin/env bash
# clang-tidy over the program's sources. Parsing the headers takes most of its time, so sources of one folder are looked at
# together; where their own helpers have the same name, one by one.
#   scripts/tidy.sh           all sources
#   scripts/tidy.sh FILE...   these
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
[ -f build/release/compile_commands.json ] || cmake --preset release >/dev/null
batches=build/tidy
rm -rf "$batches"
mkdir -p "$batches"

# The compiler of the build is GCC: its own warning flags are no business of clang's. In a batch a name of one source seems
# to hide that of another; GCC looks at each alone.
tidy() { # SOURCE FLAGS-OF
    local flags
    flags=$(grep -F -- "-c $root/$2\"" build/release/compile_commands.json | sed 's/^ *"command": "[^ ]* //; s/ -o .*//; s/\\\([\\"]\)/\1/g')
    eval "clang-tidy --quiet '$1' -- $flags -Wno-unknown-warning-option -Wno-shadow" 2>&1 |
        grep -vE 'warnings? (and [0-9]+ errors? )?generated|^Suppressed|^Use -header-filter|^Error while processing'
    return "${PIPESTATUS[0]}"
}

tidy_batch() { # LIST
    local list=$1 first source failed=0 found
    mapfile -t sources <"$list"
    first=${sources[0]}
    if [ ${#sources[@]} -gt 1 ]; then
        printf '#include "%s"\n' "${sources[@]/#/$root/}" >"$list.cpp"
        found=$(tidy "$list.cpp" "$first") && return 0
        grep -qF 'clang-diagnostic-error' <<<"$found" || { printf '%s\n' "$found"; return 1; }
    fi
    for source in "${sources[@]}"; do tidy "$source" "$source" || failed=1; done
    return $failed
}

if [ $# -eq 0 ]; then
    mapfile -t files < <(git ls-files 'src/*.cpp')
    set -- "${files[@]}"
fi
printf '%s\n' "$@" | awk -v batches="$batches" '
    { folder = $0; sub("/[^/]*$", "", folder) }
    folder != last || count == 12 { ++batch; count = 0; last = folder }
    { ++count; print > sprintf("%s/%03d", batches, batch) }'
export root
export -f tidy tidy_batch
printf '%s\n' "$batches"/* | xargs -P "$(nproc)" -I{} bash -c 'tidy_batch {}'
