#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

/// A text encoding that a subtitles file may have.
struct KVTextEncoding {
    QString name;          ///< The name by which it is stored and looked up: "windows-1251".
    QString localizedName; ///< For a menu: "Cyrillic (windows-1251)".
    int likelihood = 0;    ///< From 0 to 100: how sure detection is that this file has it.

    bool isLikely() const { return likelihood >= 25; }
};

/// The encodings that can decode `text`, sorted by their localised names; empty if no encoding can. A
/// character that is cut off at the end of `text` is ignored unless `isWhole`. `isUnwanted` is asked between
/// two encodings and ends the search early. Any thread.
QList<KVTextEncoding> KVTextEncodingsThatDecode(const QByteArray &text, bool isWhole = true,
                                                const std::function<bool()> &isUnwanted = {});

/// The encodings that detection considers possible for `text`, the likeliest first. They need not decode it.
/// Any thread.
QList<KVTextEncoding> KVTextEncodingsByLikelihood(const QByteArray &text);
