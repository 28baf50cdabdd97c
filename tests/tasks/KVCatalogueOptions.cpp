#include "tasks/KVCatalogueOptions.h"

const std::vector<KVCatalogueOptions> &KVCatalogueOptions::all() {
    static const std::vector<KVCatalogueOptions> rows{
        {"still frame", "-ss 0 -i {video} -frames:v 1 {out}.jpg", "encoder mjpeg, muxer image2"},
        {"hardware test",
         "-y -i {video} -enable_drefs 1 -s 40x40 -aspect 1:1 -threads 16 -c:v libx264 -b:v 6900k "
         "-maxrate 8M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 -flags +loop -g "
         "250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method umh -me_range 51 -level 51 -profile:v baseline -an -sn -f "
         "mp4 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         ""},
        {"MP4 of a movie",
         "-y -enable_drefs 1 -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v "
         "600k -maxrate 800k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 "
         "-flags +loop -g 250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k "
         "-keyint_min 250 -sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high "
         "-c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k -sn -f mp4 -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         ""},
        {"MP4 copied",
         "-y -i {video} -threads 8 -c:v copy -c:a:0 copy -sn -f mp4 -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         ""},
        {"MP4 with subtitles",
         "-y -i {video} -sub_charenc UTF-8 -i {subtitles} -s 160x120 -aspect 160:120 -threads 8 "
         "-c:v libx264 -b:v 600k -maxrate 800k -bufsize 4M -allow_sw 1 -copyts -movflags "
         "+faststart -qmin 5 -qmax 31 -flags +loop -g 250 -i_qfactor 0.71 -refs 1 -trellis 2 "
         "-coder 0 -bf 0 -bt 256k -keyint_min 250 -sc_threshold 40 -me_method umh -me_range 7 "
         "-level 51 -profile high -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k -map 1 "
         "-c:s mov_text -f mp4 -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 "
         "-map_metadata 0 {out}.mp4",
         "demuxer srt"},
        {"MP4 with subtitles in the picture",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate 800k "
         "-bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 -flags +loop -g "
         "250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high -c:a:0 aac -ac:a:0 2 "
         "-aq:a:0 512 -strict -2 -b:a:0 128k -vf subtitles='{subtitles}' -f mp4 -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "filter subtitles"},
        {"MP4 deinterlaced, with a stereo track",
         "-y -i {video} -vf yadif -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -r 29.97 -b:v "
         "600k -maxrate 800k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 "
         "-flags +loop -g 250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k "
         "-keyint_min 250 -sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high "
         "-c:a:0 aac -ac:a:0 2 -ar:a:0 48000 -aq:a:0 512 -strict -2 -b:a:0 128k -c:a:1 aac -ac:a:1 "
         "2 -aq:a:1 512 -strict -2 -b:a:1 128k -sn -f mp4 -map 0:0 -map 0:1 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "filter yadif"},
        {"MP4 without sound",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate 800k "
         "-bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 -flags +loop -g "
         "250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high -an -sn -f mp4 -map "
         "0:0 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         ""},
        {"stitched",
         "-y -i {video} -i {large} -filter_complex "
         "[1:v]scale=width=160:height=120,~pad=160:120:0:0[v1];~[0:v:0]~[0:a:0]~[v1]~[1:a:0]~concat=n=2:v=1:"
         "a=1:unsafe=1~[v]~[a] "
         "-map [v] -map [a] -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate "
         "800k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 -flags +loop "
         "-g 250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high -an -sn -f mp4 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "filter pad, filter concat"},
        {"MKV",
         "-y -i {subtitled} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate "
         "800k -bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 5 -qmax 31 -flags +loop "
         "-g 250 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method umh -me_range 7 -level 51 -profile high -c:a:0 aac -ac:a:0 2 "
         "-aq:a:0 512 -strict -2 -b:a:0 128k -c:s ass -f matroska -map 0:0 -map 0:1 -map 0:2 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mkv",
         ""},
        {"MKV with copied subtitles",
         "-y -i {subtitled} -threads 8 -c:v copy -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 "
         "-b:a:0 128k -c:s copy -f matroska -map 0:0 -map 0:1 -map 0:2 -max_muxing_queue_size "
         "40000 -map_chapters 0 -map_metadata 0 {out}.mkv",
         ""},
        {"HEVC",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 16 -c:v libx265 -b:v 580k -preset "
         "medium -tag:v hvc1 -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k -sn -f mov "
         "-map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mov",
         ""},
        {"ProRes",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 16 -c:v prores -b:v 23600k -profile:v "
         "0 -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k -sn -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mov",
         ""},
        {"Ogg",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 16 -c:v libtheora -b:v 980k -c:a:0 "
         "libvorbis -ac:a:0 2 -b:a:0 128k -sn -map 0:0 -map 0:1 -max_muxing_queue_size 40000 "
         "-map_chapters 0 -map_metadata 0 {out}.ogg",
         "muxer ogg"},
        {"WebM",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 16 -c:v libvpx -r 24.00 -b:v 980k "
         "-qmin 20 -qmax 48 -rc_lookahead 20 -c:a:0 libvorbis -ac:a:0 2 -b:a:0 128k -sn -map 0:0 "
         "-map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.webm",
         ""},
        {"WMV",
         "-y -i {video} -s 160x120 -aspect 160:120 -c:v wmv2 -b:v 780k -c:a:0 wmav2 -ac:a:0 2 "
         "-b:a:0 128k -sn -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 "
         "-map_metadata 0 {out}.wmv",
         "muxer asf"},
        {"FLV",
         "-y -i {video} -s 160x120 -aspect 160:120 -c:v flv -b:v 1000k -g 200 -qmin 5 -async 50 "
         "-c:a:0 libmp3lame -ac:a:0 2 -ar:a:0 44100 -b:a:0 128k -sn -f flv -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.flv",
         "muxer flv"},
        {"DivX",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 6 -c:v mpeg4 -r 25.00 -b:v 940k "
         "-fflags +igndts -g 300 -q 1 -async 50 -vtag DX50 -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k "
         "-sn -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 "
         "{out}.avi",
         "muxer avi"},
        {"MPEG-1",
         "-y -i {video} -s 160x120 -aspect 160:120 -c:v mpeg1video -r pal -b:v 1160k -c:a:0 mp2 "
         "-ac:a:0 2 -b:a:0 128k -sn -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 "
         "-map_metadata 0 {out}.mpeg",
         "muxer mpeg"},
        {"MPEG-2",
         "-y -i {video} -s 160x120 -aspect 160:120 -c:v mpeg2video -r ntsc -b:v 1360k -ps "
         "2000000000 -c:a:0 ac3 -ac:a:0 2 -b:a:0 192k -sn -f dvd -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.vob",
         "muxer dvd"},
        {"DVD",
         "-y -i {video} -filter:v "
         "scale='w=min(720,trunc((576*11/12*dar)/2+0.5)*2):h=min(576,trunc((720*12/11/dar)/"
         "2+0.5)*2)',pad='w=720:h=576:x=(ow-iw)/2:y=(oh-ih)/2',setsar='r=12/11' "
         "-c:v mpeg2video -r pal -b:v 3200k -ps 2000000000 -target pal-dvd -c:a:0 ac3 -ac:a:0 2 "
         "-ar:a:0 48000 -b:a:0 192k -sn -f dvd -map 0:0 -map 0:1 -max_muxing_queue_size 40000 "
         "-map_chapters 0 -map_metadata 0 {out}.vob",
         "muxer dvd, filter pad, filter setsar"},
        {"a telephone",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate 800k "
         "-bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 10 -qmax 51 -flags +loop+mv4 "
         "-g 250 -i_qfactor 0.71 -refs 5 -trellis 1 -coder 0 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method hex -me_range 16 -level 13 -profile baseline -qdiff 4 "
         "-vprofile baseline -cmp 256 -subq 7 -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 "
         "128k -sn -f ipod -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 "
         "-map_metadata 0 {out}.mp4",
         "muxer ipod"},
        {"a game console",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate 800k "
         "-bufsize 4M -allow_sw 1 -copyts -movflags +faststart -qmin 25 -qmax 40 -flags +loop -g "
         "300 -i_qfactor 0.71 -refs 1 -trellis 2 -coder 1 -bf 0 -bt 256k -keyint_min 250 "
         "-sc_threshold 40 -me_method epzs -me_range 16 -level 30 -profile baseline -qdiff 4 -mbd "
         "2 -cmp 2 -subcmp 2 -cmp +chroma -subq 1 -rc_eq 'blurCplx^(1-qComp)' -c:a:0 aac -ac:a:0 2 "
         "-aq:a:0 512 -strict -2 -b:a:0 128k -sn -f psp -map 0:0 -map 0:1 -max_muxing_queue_size "
         "40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "muxer psp"},
        {"a game console in MPEG-4",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 6 -c:v mpeg4 -b:v 940k -fflags +igndts "
         "-g 300 -q 1 -async 50 -mbd 2 -flags +4mv -trellis 2 -aic 2 -cmp 2 -subcmp 2 -c:a:0 "
         "libmp3lame -ac:a:0 2 -b:a:0 128k -sn -f psp -map 0:0 -map 0:1 -max_muxing_queue_size "
         "40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "muxer psp"},
        {"remux",
         "-y -i {video} -c:v copy -c:a:0 copy -bsf:v h264_mp4toannexb -sn -f avi -map 0:0 -map 0:1 "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.avi",
         "muxer avi"},
        {"remux with new sound",
         "-y -i {video} -c:v copy -c:a:0 libmp3lame -ac:a:0 2 -b:a:0 128k -bsf:v h264_mp4toannexb "
         "-sn -f matroska -max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mkv",
         ""},
        {"crop",
         "-y -i {video} -r 25.00 -vf crop=100:80:10:10 -b:v 800k -c:a:0 copy "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "encoder libx264, filter crop"},
        {"crop of a file without a rate",
         "-y -i {video} -r -vf crop=100:80:10:10 -b:v 4500k -c:a:0 copy -max_muxing_queue_size "
         "40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "encoder libx264, filter crop"},
        {"pad",
         "-y -i {video} -r 25.00 -vf pad=320:240:80:60 -b:v 800k -c:a:0 copy "
         "-max_muxing_queue_size 40000 -map_chapters 0 -map_metadata 0 {out}.mp4",
         "encoder libx264, filter pad"},
        {"turned", "-y -i {video} -vf transpose=1 -max_muxing_queue_size 40000 -c:a:0 copy {out}.mp4",
         "encoder libx264, filter transpose"},
        {"mirrored", "-y -i {video} -vf hflip -max_muxing_queue_size 40000 -c:a:0 copy {out}.mp4",
         "encoder libx264, filter hflip"},
        {"web optimization",
         "-i {video} -y -movflags +faststart -c:v copy -c:a:0 copy -map_chapters 0 -map_metadata 0 "
         "-max_muxing_queue_size 40000 {out}.mp4",
         ""},
        {"streaming",
         "-y -i {video} -s 160x120 -aspect 160:120 -threads 8 -c:v libx264 -b:v 600k -maxrate 800k "
         "-bufsize 4M -allow_sw 1 -qmin 5 -qmax 31 -flags +loop -g 250 -i_qfactor 0.71 -refs 1 "
         "-trellis 2 -coder 0 -bf 0 -bt 256k -keyint_min 250 -sc_threshold 40 -me_method umh "
         "-me_range 7 -level 51 -profile baseline -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 "
         "-b:a:0 128k -sn -map 0:0 -map 0:1 -max_muxing_queue_size 40000 -map_chapters 0 "
         "-map_metadata 0 -map 0 -f segment -bsf h264_mp4toannexb -vbsf h264_mp4toannexb -flags "
         "-global_header -segment_format mpegts -segment_list {out}.m3u8 -segment_time 10 "
         "-max_muxing_queue_size 40000 {out}-%03d.ts",
         "muxer segment"},
        {"animation",
         "-y -i {video} -s 80x60 -aspect 80:60 -gifflags +transdiff -vf scale=-1:-1:sws_dither=ed "
         "-max_muxing_queue_size 40000 {out}.gif",
         "encoder gif"},
        {"ringtone",
         "-y -i {video} -vn -t 40 -ac 1 -ab 128k -f mp4 -acodec aac -metadata genre=Ringtone "
         "-strict -2 -max_muxing_queue_size 40000 {out}.m4r",
         ""},
        {"volume of sound",
         "-y -i {sound} -vn -af volume=+0.10dB -bufsize 8000k -aq 100 -max_muxing_queue_size 40000 "
         "-map_metadata 0 {out}.wav",
         ""},
        {"volume of a video",
         "-y -i {video} -c:v copy -af volume=+1.00dB -bufsize 8000k -aq 100 -strict -2 "
         "-max_muxing_queue_size 40000 -map_metadata 0 {out}.mp4",
         ""},
        {"AAC",
         "-y -i {sound} -threads 8 -vn -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k "
         "-map_metadata 0 {out}.aac",
         ""},
        {"AAC from one of several tracks",
         "-y -i {video} -threads 8 -vn -c:a:0 aac -ac:a:0 2 -aq:a:0 512 -strict -2 -b:a:0 128k "
         "-map 0:1 -map_metadata 0 {out}.m4a",
         "muxer ipod"},
        {"copied sound", "-y -i {video} -threads 8 -vn -c:a:0 copy -map_metadata 0 {out}.m4a", "muxer ipod"},
        {"MP2", "-y -i {sound} -threads 8 -vn -c:a:0 mp2 -ac:a:0 2 -b:a:0 128k -map_metadata 0 {out}.mp2",
         "muxer mp2"},
        {"MP3",
         "-y -i {sound} -threads 8 -vn -c:a:0 libmp3lame -ac:a:0 2 -ar:a:0 32000 -b:a:0 128k "
         "-map_metadata 0 {out}.mp3",
         ""},
        {"Ogg sound",
         "-y -i {sound} -threads 8 -vn -c:a:0 libvorbis -ac:a:0 2 -b:a:0 128k -map_metadata 0 "
         "{out}.ogg",
         "muxer ogg"},
        {"WMA", "-y -i {sound} -vn -c:a:0 wmav2 -ac:a:0 2 -b:a:0 128k -map_metadata 0 {out}.wma",
         "muxer asf"},
        {"FLAC", "-y -i {sound} -vn -c:a:0 flac -ac:a:0 2 -map_metadata 0 {out}.flac", "muxer flac"},
        {"WAV", "-y -i {sound} -vn -c:a:0 pcm_s24le -ac:a:0 2 -ar:a:0 48000 -map_metadata 0 {out}.wav", ""},
        {"AIFF", "-y -i {sound} -vn -c:a:0 pcm_s24be -ac:a:0 2 -map_metadata 0 {out}.aiff", "muxer aiff"},
        {"Apple Lossless",
         "-y -i {sound} -vn -c:a:0 alac -ac:a:0 2 -sample_fmt s16p -b:a:0 700k -map_metadata 0 "
         "{out}.m4a",
         "muxer ipod"},
        {"stitched sound",
         "-y -i {sound} -i {sound} -filter_complex [0:a:0]~[1:a:0]~concat=n=2:v=0:a=1[a] -map [a] "
         "-max_muxing_queue_size 40000 -vn -c:a:0 pcm_s24le -ac:a:0 2 {out}.wav",
         "filter concat"},
        // Options of codecs that not every build has, on codecs that every build has.
        {"options of other lists",
         "-y -i {video} -c:v libx264 -b:v 800k -ps 2000000000 -fflags +igndts -g 300 -q 1 -async 50 "
         "-mbd 2 -flags +4mv -trellis 2 -aic 2 -cmp 2 -subcmp 2 -cmp +chroma -subq 1 -rc_eq "
         "'blurCplx^(1-qComp)' -qdiff 4 -rc_lookahead 20 -vtag H264 -c:a:0 libmp3lame -ac:a:0 2 "
         "-sample_fmt s16p -ar:a:0 44100 -b:a:0 128k -vbsf h264_mp4toannexb -f matroska {out}.mkv",
         ""},
    };
    return rows;
}
