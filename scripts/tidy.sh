#!/usr/bin/env bash
# clang-tidy over the sources in which faults hide: threads, processes, stores, queues, intake. Tables and tests are the
# compiler's and the sanitizers' matter.
#   scripts/tidy.sh           those sources
#   scripts/tidy.sh FILE...   these
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
[ -f build/release/compile_commands.json ] || cmake --preset release >/dev/null
if [ $# -eq 0 ]; then
    mapfile -t files < <(git ls-files 'src/*.cpp' | grep -E '^src/(kvcore|platform|tasks|core|conversion|queues|controllers)/')
    set -- "${files[@]}"
fi
# The compiler of the build is GCC: its own warning flags are no business of clang's.
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/release --quiet \
    --extra-arg=-Wno-unknown-warning-option 2> >(grep -vE 'warnings generated|Suppressed|Use -header-filter' >&2)
