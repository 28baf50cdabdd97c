#pragma once

#include <QUrl>

#include <stop_token>

/// Looks into files whose description alone does not say whether they can be converted. Functions with
/// `stop` block while ffmpeg runs; once it is requested their result means nothing. Any thread.
namespace KVMediaCheck {

/// Whether any track holds data. The header of a fragmented MP4 and a WAV without samples describe tracks
/// only. True if ffmpeg cannot be run.
bool hasMediaData(const QUrl &url, const std::stop_token &stop = {});

/// Whether the file begins as an MP4 or a MOV does, whatever its name says.
bool hasMP4Header(const QUrl &url);

/// Whether the file is an MP4 that declares a track as encrypted.
bool declaresEncryption(const QUrl &url);

/// Whether the sound or the picture of a file that declares encryption cannot be decoded, at its beginning or
/// in its middle. `seconds` is the duration.
bool isEncrypted(const QUrl &url, double seconds, const std::stop_token &stop = {});

} // namespace KVMediaCheck
