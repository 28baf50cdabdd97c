#pragma once

// Made by letting the programs fail; addresses are shortened.

/// What a program printed when it failed.
struct KVFailureExcerpt {
    const char *output;
    const char *cause; ///< The beginning of the text.
    int status = 1;
};

#define ENCODER_FAILED                                                                                       \
    "Error initializing output stream 0:0 -- Error while opening encoder for output stream #0:0 - maybe "    \
    "incorrect parameters such as bit_rate, rate, width or height\nConversion failed!\n"
#define HEADER_FAILED                                                                                        \
    "Could not write header for output file #0 (incorrect codec parameters ?): Invalid argument\n"           \
    "Error initializing output stream 0:0 -- \n"
#define FILTER_FAILED                                                                                        \
    "Error reinitializing filters!\nFailed to inject frame into filter network: Invalid argument\n"          \
    "Error while processing the decoded data for stream #0:0\n[aac @ 0x5] Qavg: 102.568\n"                   \
    "[aac @ 0x5] 2 frames left in the queue on closing\nConversion failed!\n"

/// Ends of what ffmpeg 5.1 printed.
inline const KVFailureExcerpt excerptsOfFFmpeg[]{
    {"video:86kB audio:16kB\nError closing file /out/a.mkv: No space left on device\n",
     "There is no more space"},
    {"The destination folder is gone.\n", "The destination folder has been moved or removed"},
    {"/in/a.mp4: No such file or directory\n", "The file to be converted cannot be found: it"},
    {"[in#0 @ 0x1] Error opening input: No such file or directory\nError opening input file /in/a.mp4.\n",
     "The file to be converted cannot be found: it", 254},
    {"Error closing file /out/a.mkv: File too large\n", "The result is larger than a file"},
    {"", "The result is larger than a file", 153},
    {"/out/a.mkv: Read-only file system\n", "The disk of the destination folder is write"},
    {"/out/a.mkv: Permission denied\n", "You have no permission to write"},
    {"/out/a.mkv: No such file or directory\n", "The destination folder does not exist."},
    {"/out/a.mkv: Is a directory\n", "A folder has the name"},
    {"/out/a.mkv: File name too long\n", "The name of the result is too long"},
    {"Output v.mp4 same as Input #0 - exiting\nFFmpeg cannot edit existing files in-place.\n",
     "The result would replace"},
    {"/in/a.mp4: Permission denied\n", "You have no permission to read the file"},
    {"/in/a.mp4: Is a directory\n", "This is a folder"},
    {"ffmpeg: error while loading shared libraries: libshine.so.3: failed to map segment from shared "
     "object\n",
     "There is not enough memory.", 127},
    {"ffmpeg: error while loading shared libraries: libavdevice.so.59: cannot open shared object file: No "
     "such file or directory\n",
     "A library that ffmpeg needs", 127},
    {"/usr/share/kalvora/resources/ffmpeg: Permission denied\n", "A program that the conversion needs", 127},
    {"/out/a.mkv: Too many open files\n", "Too many files are open"},
    {"[libx264 @ 0x5] using SAR=1/1\n", "The converter was ended by the system", 137},
    {"[libx264 @ 0x5] using SAR=1/1\n", "The converter crashed.", 139},
    {"[libx264 @ 0x5] using SAR=1/1\n", "The converter has used all the processor time", 152},
    {"video:6kB audio:7kB\n[aac @ 0x5] Qavg: 101.349\nExiting normally, received signal 15.\n",
     "Another program or the system asked", 255},
    {"[AVFilterGraph @ 0x5] No such filter: 'foo'\n" FILTER_FAILED, "The installed ffmpeg lacks a filter"},
    {"[AVFilterGraph @ 0x5] No such filter: 'subtitles'\n" FILTER_FAILED,
     "The installed ffmpeg cannot draw subtitles"},
    {"Unknown encoder 'libopencore_amrnb'\n", "The installed ffmpeg lacks the encoder"},
    {"Unrecognized option 'foo'.\nError splitting the argument list: Option not found\n",
     "The installed ffmpeg does not know a setting"},
    {"[NULL @ 0x5] Unable to find a suitable output format for 'o.xyz'\no.xyz: Invalid argument\n",
     "The installed ffmpeg cannot write this format"},
    {"[h264_nvenc @ 0x5] Cannot load libcuda.so.1\n" ENCODER_FAILED, "The graphics processor"},
    {"[h264_qsv @ 0x5] Error initializing an internal MFX session: unsupported (-3)\n" ENCODER_FAILED,
     "The graphics processor"},
    {"[mov,mp4 @ 0x5] Could not find codec parameters for stream 0 (Video: none (encv / 0x76636E65), none, "
     "320x240): unknown codec\nDecoder (codec none) not found for input stream #0:0\n",
     "The file is protected"},
    {"[mov,mp4 @ 0x5] Could not find codec parameters for stream 0 (Video: none (zzz1 / 0x317A7A7A), none, "
     "320x240): unknown codec\nDecoder (codec none) not found for input stream #0:0\n",
     "The installed ffmpeg cannot decode"},
    {"[srt @ 0x5] Invalid UTF-8 in decoded subtitles text; maybe missing -sub_charenc option\n" FILTER_FAILED,
     "The text of the subtitles is in another encoding"},
    {"[mp4 @ 0x5] Could not find tag for codec subrip in stream #2, codec not currently supported in "
     "container\n" HEADER_FAILED,
     "The format of the result cannot hold these subtitles."},
    {"Error initializing output stream 0:2 -- Subtitle encoding currently only possible from text to text or "
     "bitmap to bitmap\n",
     "The format of the result cannot hold these subtitles."},
    {"[libx264 @ 0x5] width not divisible by 2 (321x241)\n" ENCODER_FAILED,
     "The encoder takes only pictures"},
    {"[wmv2 @ 0x5] width must be multiple of 2\n" ENCODER_FAILED, "The encoder takes only pictures"},
    {"x265 [error]: Picture width must be an integer multiple of the specified chroma subsampling\n"
     "[libx265 @ 0x5] Cannot open libx265 encoder.\n" ENCODER_FAILED,
     "The encoder takes only pictures"},
    {"[Parsed_scale_0 @ 0x5] [IMGUTILS @ 0x7] Picture size 100000x100000 is invalid\n" FILTER_FAILED,
     "The picture is too large for the encoder."},
    {"[dvvideo @ 0x5] Found no DV profile for 320x240 yuv420p video. Valid DV profiles are:\n" ENCODER_FAILED,
     "The format allows only a few sizes"},
    {"x264 [error]: baseline profile doesn't support 4:4:4\n" ENCODER_FAILED, "The encoder's profile"},
    {"[mpeg1video @ 0x5] MPEG-1/2 does not support 5/1 fps\n" ENCODER_FAILED,
     "The format does not allow this number"},
    {"[ac3 @ 0x5] Specified sample rate 96000 is not supported\n" ENCODER_FAILED,
     "The format does not allow this sample rate."},
    {"[flac @ 0x5] 12 channels not supported (max 8)\n" ENCODER_FAILED,
     "The format cannot hold this number of audio"},
    {"[wmav2 @ 0x5] too many channels: got 8, need 2 or fewer\n" ENCODER_FAILED,
     "The format cannot hold this number of audio"},
    {"[aac @ 0x5] Unsupported channel layout \"12 channels\"\n[aac @ 0x5] Qavg: nan\n" ENCODER_FAILED,
     "The format cannot hold this number of audio"},
    {"[libopus @ 0x5] The bit rate 900000 bps is unsupported. Please choose a value between 500 and "
     "256000.\n" ENCODER_FAILED,
     "The format does not allow this bit rate."},
    {"[Parsed_crop_0 @ 0x5] Invalid too big or non positive size for width '0' or height '0'\n" FILTER_FAILED,
     "The part to be cut out"},
    {"[AVFilterGraph @ 0x5] Error initializing filter 'atempo' with args '0.1'\n" FILTER_FAILED,
     "The volume or speed"},
    {"[matroska @ 0x5] Can't write packet with unknown timestamp\nav_interleaved_write_frame(): Invalid "
     "argument\nConversion failed!\n",
     "The times of a track"},
    {"[ogg @ 0x5] Unsupported codec id in stream 0\n" HEADER_FAILED,
     "The format of the result cannot hold a track"},
    {"[webm @ 0x5] Only VP8 or VP9 or AV1 video and Vorbis or Opus audio and WebVTT subtitles are supported "
     "for WebM.\n" HEADER_FAILED,
     "The format of the result cannot hold a track"},
    {"[Parsed_concat_0 @ 0x5] Input link in0:v0 parameters (size 321x241, SAR 1:1) do not match the "
     "corresponding output link in0:v0 parameters (320x240, SAR 1:1)\n" FILTER_FAILED,
     "The files differ in size"},
    {"Stream specifier ':a' in filtergraph description [0:v][0:a][1:v][1:a]concat=n=2:v=1:a=1[v][a] matches "
     "no streams.\n",
     "One of the files lacks a track"},
    {"Stream map '0:1' matches no streams.\nTo ignore this, add a trailing '?' to the map.\n",
     "The chosen track is not"},
    {"Output file #0 does not contain any stream\n", "The file has no track of the kind"},
    {"[avi @ 0x5] dimensions not set\n" HEADER_FAILED, "The file does not tell the size"},
    {"Cannot determine format of input stream 0:0 after EOF\n", "A track of the file holds nothing"},
    {"[mov,mp4 @ 0x5] moov atom not found\n/in/a.mp4: Invalid data found when processing input\n",
     "The file is incomplete: the index"},
    {"/in/a.mp4: End of file\n", "The file cannot be read to its end"},
    {"[matroska,webm @ 0x5] EBML header parsing failed\n/in/a.mp4: Invalid data found when processing "
     "input\n",
     "The file is damaged, or it is no media"},
    {"[aac @ 0x5] Input buffer exhausted before END element found\nError while decoding stream #0:0: Invalid "
     "data found when processing input\nConversion failed!\n",
     "Most of the file could not be decoded", 69},
    {"[libfoo @ 0x5] bad luck\n" ENCODER_FAILED, "The encoder does not accept the settings"},
};

inline const KVFailureExcerpt excerptsOfMkisofs[]{
    {"genisoimage: No space left on device. cannot fwrite 2048*1\n", "There is no more space", 28},
    {"genisoimage: No such file or directory. Invalid node - '/in/a.mp4'.\n",
     "The file to be converted cannot be found", 2},
    {"genisoimage: Permission denied. Unable to open disc image file '/out/a.iso'.\n",
     "You have no permission to write", 13},
    {"genisoimage: No such file or directory. Unable to open disc image file '/out/a.iso'.\n",
     "The destination folder does not exist", 2},
    {"genisoimage: Permission denied. Failed to open VIDEO_TS.IFO\ngenisoimage: Can't open VMG info for "
     "'dmg9/'.\n",
     "You have no permission to read files of the DVD", 255},
    {"genisoimage: No such file or directory. Failed to open VIDEO_TS.IFO\ngenisoimage: Can't open VMG info "
     "for 'noifo/'.\ngenisoimage: Could not find correct 'VIDEO_TS' directory.\n",
     "The DVD folder is incomplete", 255},
    {"genisoimage: Giving up this is not a valid IFO file\ngenisoimage: Could not find correct 'VIDEO_TS' "
     "directory.\n",
     "The DVD folder is damaged", 255},
    {"genisoimage: Could not find correct 'VIDEO_TS' directory.\nPossible reasons:\n  - a\n",
     "The folder holds no DVD", 255},
    {"File dmg8/VIDEO_TS/VTS_01_1.VOB is larger than 4GiB-1.\n-allow-limited-size was not specified.\n",
     "A file of the disc is larger than"},
    {"genisoimage: Volume ID string too long\n", "The name of the disc is too long", 255},
};

inline const KVFailureExcerpt excerptsOfDVDAuthor[]{
    {"STAT: Processing a.vob...\nERR:  Error 0 -- Success -- writing data\n",
     "The disc could not be written"},
    {"ERR:  cannot create dir ro/disc: Permission denied\n", "The disc could not be written"},
    {"ERR:  2 opening input video file \"gone.vob\" -- No such file or directory\n",
     "An intermediate file has been removed"},
    {"WARN: Skipping sector at inoffset 0, waiting for first VOBU...\nSTAT: VOBU 0 at 0MB, 1 PGCs\nERR:  no "
     "VOBUs found.\n",
     "There is no film"},
    {"ERR:  no titles defined\n", "There is no film"},
    {"bad.xml:2: parser error : Couldn't find end of Start Tag vmgm\nERR:  Error in parsing XML\n",
     "The disc program dvdauthor does not understand"},
};

/// Ends of the reasons that pictures fail with; the beginning is the program's.
inline const KVFailureExcerpt reasonsOfPictures[]{
    {"/out/good.png: No space left on device", "There is no more space"},
    {"/out/nowhere: No such file or directory", "The destination folder does not exist"},
    {"The picture is too large: 2000000 x 2000000 pixels, where 500 million pixels are the limit.",
     "The picture is too large: 2000000"},
    {"This format allows at most 65500 pixels on a side, but the picture would have 66000 x 20.",
     "This format allows at most 65500"},
    {"The picture cannot be read: Lab colors are not supported.", "The picture uses a color model"},
    {"The picture cannot be read: magick2vips: unsupported colorspace 5", "The picture uses a color model"},
    {"The picture cannot be read: magick2vips: libMagick error: improper image header `' @ "
     "error/psd.c/ReadPSDImage/2246 magick2vips: unable to read buffer",
     "The picture is damaged, or of a kind"},
    {"The picture cannot be read: The helper program \"kalvora-picture\" does not start: "
     "/lib/kalvora-picture: Permission denied",
     "The picture cannot be read: The helper program"},
    {"The picture cannot be read: /in/a.mp4: No such file or directory", "The file to be converted cannot"},
    {"The picture cannot be read: This is no picture of a known kind.", "The file holds no picture"},
    {"The destination folder /out is missing or cannot be written to.", "The destination folder /out is"},
    {"The frame size of \"a.mp4\" is unknown, so it cannot be merged with other videos.",
     "The frame size of \"a.mp4\""},
    {"The picture cannot be converted: VipsJpeg: Premature end of input file", "The picture is incomplete"},
    {"The picture cannot be converted: vipspng: libpng read error", "The picture is incomplete"},
    {"The picture cannot be read: IHDR: CRC error", "The picture is damaged"},
    {"The picture cannot be read: VipsJpeg: Corrupt JPEG data: 482 extraneous bytes before marker 0x09",
     "The picture is damaged"},
    {"The picture cannot be read: /in/a.mp4: bad seek to 32 heif: Invalid input: No 'meta' box (2.104)",
     "The picture is damaged"},
    {"The result is empty: nothing in the source could be converted.", "The result is empty"},
    {"something new", "something new"},
};
