#pragma once

#include <QString>
#include <QStringList>

/// Whether burnt-in subtitles can be drawn with the fonts of this machine.
namespace KVSubtitleFonts {

/// The writing systems in `text` that no installed font covers, in the user's language: "Thai". Empty if that
/// cannot be found out. Blocks while fontconfig's `fc-list` runs, once for each writing system beyond Latin.
/// Any thread.
QStringList missingWritingSystems(const QString &text);

} // namespace KVSubtitleFonts
