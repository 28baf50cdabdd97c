#pragma once

#include <QString>

/// One line of what ffmpeg prints about a file.
namespace KVFFmpegProbeLine {

/// The line in the form that the parsers know. A display matrix may become two lines; every other line stays
/// one.
QString inOurForm(const QString &line);

/// The number of channels of a layout that ffmpeg names: "quad" has 4, "ambisonic 1+stereo" 6, "9
/// channels" 9. 0 if the name is unknown.
int channelsOfLayout(const QString &layout);

} // namespace KVFFmpegProbeLine
