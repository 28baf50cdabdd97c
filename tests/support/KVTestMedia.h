#pragma once

#include <QString>
#include <QStringList>

/// Media for tests, made by the real tool at test time.
namespace KVTestMedia {

/// Runs the system's `ffmpeg` with these arguments ("-y -hide_banner -loglevel error" stand in front) and
/// fails the test if it fails.
void make(const QStringList &arguments);

/// A sine tone; the format follows from the extension. Answers `path`.
QString tone(const QString &path, double seconds = 1, int frequency = 44100, int channels = 2);

/// A moving test picture with a tone, H.264 and AAC where the container takes them. Answers `path`.
QString clip(const QString &path, double seconds = 1, const QString &size = QStringLiteral("160x120"),
             const QStringList &furtherOutputArguments = {});

} // namespace KVTestMedia
