#include "cli/KVFailureText.h"

#include "core/KVErrorCenter.h"
#include "util/KVTempDirectory.h"
#include "video_info/media_file/KVVideoFile.h"

#include <gtest/gtest.h>

TEST(KVFailureTextTest, TellsTheCauseAndNotWhatFollowsFromIt) {
    struct Row {
        const char *output;
        const char *want;
    };
    const Row rows[]{
        {"[Parsed_subtitles_0 @ 0x1] Unable to open /a.srt\n[AVFilterGraph @ 0x2] Error initializing filter "
         "'subtitles' with args '/a.srt'\nError reinitializing filters!\nFailed to inject frame into filter "
         "network: "
         "Invalid data\nError while processing the decoded data for stream #0:0\n[aac @ 0x3] Qavg: "
         "285.3\n[aac @ 0x3] "
         "2 frames left in the queue on closing\nConversion failed!",
         "Unable to open /a.srt"},
        {"[Parsed_crop_0 @ 0x1] Invalid too big or non positive size for width '0' or height "
         "'0'\n[Parsed_crop_0 @ 0x1] "
         "Failed to configure input pad on Parsed_crop_0\nError reinitializing filters!\nConversion "
         "failed!\n",
         "Invalid too big or non positive size for width '0' or height '0'"},
        {"frame=    1 fps=0.0\r/a.avi: Invalid data found\nvideo:1kB audio:2kB muxing overhead: "
         "\nunknown\n\nConversion "
         "failed!\n",
         "/a.avi: Invalid data found"},
        {"[Parsed_crop_0 @ 0x1f]\nInvalid too big or non positive size\n[Parsed_crop_0 @ 0x1f]\n"
         "Failed to configure input pad on Parsed_crop_0\nConversion failed!",
         "Invalid too big or non positive size"},
        {"Cannot determine format of input stream 0:0 after EOF\nError marking filters as finished\n"
         "[aac @ 0x3] \nQavg: 1.5\nConversion failed!",
         "A track of the file holds nothing that can be decoded."},
        {"[avi @ 0x1] the true cause\nError initializing output stream 0:1 -- \nStream mapping:\n"
         "  Stream #0:0 -> #0:0 (copy)\n    Last message repeated 1 times\n",
         "the true cause"},
        {"I: -input-charset not specified\ngenisoimage: No such file or directory. Failed to open "
         "VIDEO_TS.IFO\n"
         "genisoimage: Can't open VMG info for '/a/'.\ngenisoimage: Unable to parse DVD-Video structures.\n"
         "genisoimage: Could not find correct 'VIDEO_TS' directory.\nPossible reasons:\n  - a\n  - b\n",
         "genisoimage: No such file or directory. Failed to open VIDEO_TS.IFO"},
        {"genisoimage: Could not find correct 'VIDEO_TS' directory.\ngenisoimage: Unable to make a DVD-Video "
         "image.\nPossible reasons:\n  - a\n",
         "genisoimage: Could not find correct 'VIDEO_TS' directory."},
        {"", "The conversion failed."},
    };
    for (const Row &row : rows) {
        KVConversionError error;
        error.taskArguments = QStringList{"-y"};
        error.taskOutput = row.output;
        error.terminationStatus = 1;
        EXPECT_EQ(KVFailureText(error).toStdString(), row.want);
    }
}

TEST(KVFailureTextTest, NamesTheSubtitlesOfTheUserAndNotTheirCopy) {
    const auto video = std::make_shared<KVVideoFile>(QUrl::fromLocalFile("/in/a.mkv"));
    video->subtitlesFileURL = QUrl::fromLocalFile("/in/mine.srt");
    const QString copy = KVTempDirectoryPath() + "/35C3AFBE.srt";
    for (const QStringList &arguments : {QStringList{"-sub_charenc", "UTF-8", "-i", copy, "/out/a.mp4"},
                                         QStringList{"-vf", "subtitles='" + copy + "'", "/out/a.avi"}}) {
        KVConversionError error;
        error.mediaFiles = {video};
        error.taskArguments = arguments;
        error.taskOutput = "[x @ 0x1] " + copy + ": Invalid data found\nConversion failed!\n";
        EXPECT_EQ(KVFailureText(error).toStdString(), "/in/mine.srt: Invalid data found");
    }
}
