#!/usr/bin/env bash
# Takes the pictures of the window anew, on a display of its own.
#   docs/screenshots/make.sh [FOLDER]     FOLDER is this one unless given
#   KALVORA_FONT=1.25                     larger text
#   LANG=de_DE.UTF-8                      another language
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
out=$(realpath -m "${1:-$here}")
# shellcheck source=scripts/common.sh
. "$root/scripts/common.sh"
ensure_packages run build shots
[ -n "${KALVORA_BUILT:-}" ] || KALVORA_TESTS=${KALVORA_TESTS:-ON} build release kvscreenshots

work=$root/build/screenshots # the media stay for the next time
media=$work/Media
mkdir -p "$out"

make_media() {
    rm -rf "$work"
    mkdir -p "$media/Folder"
    picture() { ffmpeg -y -nostdin -loglevel error -f lavfi -i "$1" -frames:v 1 "$2"; }
    video() { # NAME SECONDS SOURCE
        ffmpeg -y -nostdin -loglevel error -f lavfi -i "$3" -f lavfi -i sine=frequency=330:sample_rate=44100 -t "$2" \
            -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac -ac 2 "$media/$1"
    }
    video "Harbour at dawn.mov" 60 "gradients=s=320x180:c0=0xf6a960:c1=0x2d4f7c:c2=0xd96b6b:nb_colors=3:speed=0.02:seed=3"
    video "Through the fjords.mkv" 40 "mandelbrot=s=320x180:start_scale=1.2:end_scale=0.3:rate=25"
    video "Birthday.mp4" 60 "gradients=s=320x180:c0=0x5fa777:c1=0xf1e3a0:c2=0x3b6e8f:nb_colors=3:speed=0.02:seed=11"
    picture "gradients=s=400x400:c0=0x39306b:c1=0xe38fb1:nb_colors=2:seed=5" "$work/cover.jpg"
    ffmpeg -y -nostdin -loglevel error -f lavfi -i sine=frequency=220:sample_rate=44100:duration=600 -i "$work/cover.jpg" \
        -map 0 -map 1 -c:v copy -disposition:v attached_pic "$media/01 Prelude.mp3"
    ffmpeg -y -nostdin -loglevel error -f lavfi -i sine=frequency=262:sample_rate=44100:duration=900 "$media/Interview.wav"
    picture "gradients=s=1500x1000:c0=0x88b7d5:c1=0x2f5d50:c2=0xe9d8a6:nb_colors=3:seed=21" "$media/Mountain lake.png"
    picture "mandelbrot=s=1200x800:start_scale=0.4" "$media/Poster.png"
    mkdir -p "$media/Mixed/VIDEO_TS"
    ln "$media/Mountain lake.png" "$media/Mixed/Poster of the fjords.png"
    : > "$media/Mixed/Empty recording.wav"
    echo "no film" > "$media/Mixed/Half a download.mkv"
    touch "$media/Mixed/Locked song.m4p" "$media/Mixed/"{Cover,Notes}.txt "$media/Mixed/VIDEO_TS/VIDEO_TS.IFO"
    for name in "Two languages" "Two more"; do
        ffmpeg -y -nostdin -loglevel error -i "$media/Through the fjords.mkv" -t 2 -map 0:v -map 0:a -map 0:a -c copy \
            -metadata:s:a:0 language=eng -metadata:s:a:1 language=nor "$media/$name.mkv"
    done
    for number in $(seq -w 1 80); do ln "$media/Interview.wav" "$media/Folder/Track $number.wav"; done
    iconv -f UTF-8 -t WINDOWS-1251 > "$media/Through the fjords.srt.txt" <<'TEXT'
1
00:00:01,000 --> 00:00:04,000
Добро пожаловать на борт.

2
00:00:05,000 --> 00:00:08,500
Мы выходим в море на рассвете.

3
00:00:09,000 --> 00:00:13,000
Впереди — тысяча фьордов
и ни одного облака.
TEXT
    cp "$media/Through the fjords.srt.txt" "$media/Voyage.srt" # found beside its video, and of its encoding
    ln "$media/Through the fjords.mkv" "$media/Voyage.mkv"
    # The end is missing: four minutes by its header, and 17 seconds of sound.
    ffmpeg -y -nostdin -loglevel error -f lavfi -i sine=frequency=294:sample_rate=44100:duration=240 "$work/whole.wav"
    head -c 1500000 "$work/whole.wav" > "$media/Concert.wav"
}
[ -e "$media/Concert.wav" ] || make_media

# A home folder whose name is short enough for the pictures, where the results go beside copies of the sources.
HOME=$(mktemp -d /tmp/kalvora-XXXX)
trap 'rm -rf "$HOME"' EXIT
export HOME XDG_CONFIG_HOME=$HOME/config XDG_CACHE_HOME=$HOME/cache XDG_DATA_HOME=$HOME/data
export XDG_RUNTIME_DIR=$HOME/run DBUS_SESSION_BUS_ADDRESS=disabled: QT_QPA_PLATFORM=xcb
mkdir -p "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
cp -al "$media" "$HOME/Media" 2>/dev/null || cp -a "$media" "$HOME/Media"
xvfb-run -a -s "-screen 0 1280x1000x24" "$root/build/release/bin/kvscreenshots" "$HOME/Media" "$out" 2>"$work/log"
say "pictures in $out"
