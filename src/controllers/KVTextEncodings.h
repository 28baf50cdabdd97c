#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A text encoding that a subtitles file may have.
struct KVTextEncoding {
    QString name;          ///< The name by which it is stored and looked up: "windows-1251".
    QString localizedName; ///< For a menu: "Cyrillic (windows-1251)".
    bool isLikely = false; ///< Detection thinks that this file has it.
};

/// The encodings that can decode `text`, sorted by their localised names; none where no encoding can.
QList<KVTextEncoding> KVTextEncodingsThatDecode(const QByteArray &text);
