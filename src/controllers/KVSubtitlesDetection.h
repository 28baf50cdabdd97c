#pragma once

class KVVideoFile;

/// The text encoding of subtitles that were found beside a video.
namespace KVSubtitlesDetection {

/// Sets `subtitlesFileEncoding` to the encoding that the video's subtitles file most likely has. If none
/// fits, the file is not used, and the video has a warning. Reads the file; any thread.
void settleEncoding(KVVideoFile &video);

} // namespace KVSubtitlesDetection
