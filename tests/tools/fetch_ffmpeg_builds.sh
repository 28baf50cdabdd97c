#!/bin/sh
# Puts two further real builds of the external tool, 4.1 and 7.1, into a folder, for the tests of the tool's dialect.
# usage: fetch_ffmpeg_builds.sh <target folder>
# Quiet when all goes well, and done at once when the builds are there already.
set -eu

target=${1:?usage: fetch_ffmpeg_builds.sh <target folder>}
packages='@ffmpeg-installer/linux-x64 @remotion/compositor-linux-x64-gnu'

is_complete() {
    for package in $packages; do
        [ -f "$target/node_modules/$package/ffmpeg" ] || return 1
    done
}

if ! is_complete; then
    command -v npm >/dev/null || {
        echo 'fetch_ffmpeg_builds: npm is not installed. Install the package "npm".' >&2
        exit 1
    }
    mkdir -p "$target"
    # Both in one call: a later one would take away what it does not name. The packages carry plain programs, nothing of
    # theirs has to run.
    npm install --prefix "$target" --no-save --no-package-lock --no-audit --no-fund --ignore-scripts \
        --loglevel=error $packages >/dev/null
    is_complete || { echo "fetch_ffmpeg_builds: the packages lack the tool" >&2; exit 1; }
fi
for package in $packages; do
    [ -x "$target/node_modules/$package/ffmpeg" ] || chmod +x "$target/node_modules/$package/ffmpeg"
done
