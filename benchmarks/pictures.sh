#!/usr/bin/env bash
# 60 JPEG pictures of 12 megapixels to JPEG at 50 %: `kalvoractl convert` against vipsthumbnail run by xargs with one job for
# each processor, and against ImageMagick's mogrify, as one command and with one job for each processor as well. Then one picture of 20,000 x 20,000 pixels.
# Wanted: at most 1.10 times the wall time of vipsthumbnail, at least 4 times as fast as mogrify; peak memory under 400 MB, and
# under 500 MB for the large picture.
. "$(dirname "$0")/common.sh"

mkdir "$work/in" "$work/ours" "$work/theirs"
ffmpeg -y -nostdin -loglevel error -f lavfi -i mandelbrot=size=4000x3000:rate=1 -frames:v 1 \
    -vf noise=alls=12,format=yuvj420p -q:v 3 "$work/in/00.jpg"
for i in $(seq 1 59); do cp "$work/in/00.jpg" "$work/in/$(printf %02d "$i").jpg"; done
half=(--set ZRHasPercentageScaling=true --set ZRPercentageScaling=50)
jobs=$(nproc)

best_ours=9999 best_theirs=9999 highest=0
for _ in 1 2 3; do
    rm -f "$work"/ours/* "$work"/theirs/*
    measure "$bin/kalvoractl" convert --preset JPEG "${half[@]}" --to "$work/ours" "$work/in"
    best_ours=$(smaller "$wall" "$best_ours") highest=$((peak > highest ? peak : highest))
    measure sh -c "ls $work/in/*.jpg | xargs -P $jobs -n $(((60 + jobs - 1) / jobs)) vipsthumbnail --size 2000x1500 -o '$work/theirs/%s.jpg[Q=95]'"
    best_theirs=$(smaller "$wall" "$best_theirs")
done
[ "$(ls "$work/ours" | wc -l)" = 60 ] && [ "$(ls "$work/theirs" | wc -l)" = 60 ]
cp -r "$work/in" "$work/mogrified"
measure sh -c "mogrify -resize 50% -quality 95 $work/mogrified/*.jpg"
mogrify=$wall
rm -r "$work/mogrified" && cp -r "$work/in" "$work/mogrified"
measure sh -c "ls $work/mogrified/*.jpg | xargs -P $jobs -n $(((60 + jobs - 1) / jobs)) mogrify -resize 50% -quality 95"
mogrify_jobs=$wall

ffmpeg -y -nostdin -loglevel error -f lavfi -i mandelbrot=size=4000x4000:rate=1 -frames:v 1 "$work/tile.png"
large() { # a picture of 20,000 x 20,000 pixels in the format of its name, with options of the encoder
    vips replicate "$work/tile.png" "$work/$1${2-}" 5 5
    measure "$bin/kalvoractl" convert --preset JPEG "${half[@]}" --to "$work/ours" "$work/$1"
    printf '%s %s MB in %s s' "${1##*.}${2:+ progressive}" $((peak / 1000)) "$wall"
}
echo "pictures: 60 of 12 megapixels to JPEG at 50 %: $best_ours s against $best_theirs s of vipsthumbnail, ratio $(ratio "$best_ours" "$best_theirs") (wanted 1.10), and $mogrify s of mogrify, $(ratio "$mogrify" "$best_ours") times as fast (wanted 4; $(ratio "$mogrify_jobs" "$best_ours") times with $jobs jobs); peak $((highest / 1000)) MB (wanted 400); 20,000 x 20,000: $(large large.jpg), $(large progressive.jpg "[interlace]"), $(large large.png), $(large large.tif) (wanted 500 MB)"
