#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A text encoding that a subtitles file may have.
struct KVTextEncoding {
    QString name;          ///< The name by which it is stored and looked up: "windows-1251".
    QString localizedName; ///< For a menu: "Cyrillic (windows-1251)".
    int likelihood = 0;    ///< From 0 to 100: how sure detection is that this file has it.

    bool isLikely() const { return likelihood >= 25; }
};

/// The encodings that can decode `text`, sorted by their localised names; none where no encoding can.
QList<KVTextEncoding> KVTextEncodingsThatDecode(const QByteArray &text);
