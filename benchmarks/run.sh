#!/usr/bin/env bash
# Builds the release preset and runs the benchmarks named, or all; each prints one line with its ratio.
#   benchmarks/run.sh [audio] [video] [probe] [queue] [chatty] [pictures] [window]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=scripts/common.sh
. "$root/scripts/common.sh"

ensure_packages run build bench
build release bin/kalvoractl
build release kvmeasure
[ $# -gt 0 ] || set -- audio video probe queue chatty pictures window
case " $* " in *" window "*) build release bin/kalvora kvwindowmeasure kvemptywindow kvpainted ;; esac
for name in "$@"; do "$root/benchmarks/$name.sh"; done
