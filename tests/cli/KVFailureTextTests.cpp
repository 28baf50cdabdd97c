#include "cli/KVFailureText.h"

#include "core/KVErrorCenter.h"

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
         "Error initializing filter 'subtitles' with args '/a.srt'"},
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
         "Cannot determine format of input stream 0:0 after EOF"},
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
