#pragma once

#include "cli/KVCommandOption.h"
#include "presets/KVPreset.h"

#include <QList>
#include <QUrl>

#include <tl/expected.hpp>

#include <optional>

class KVParsedWords;

/// What "arguments" and "convert" are asked to do, read from their common options.
struct KVConversionRequest {
    std::shared_ptr<KVPreset> preset;
    std::optional<QUrl> destination;
    std::optional<QUrl> subtitles;
    QString subtitlesEncoding; ///< Empty where none is given.
    std::optional<qint64> audioTrack;
    QList<QUrl> inputs;             ///< Files and folders.
    std::optional<QUrl> firstInput; ///< Nothing where the first word is no UTF-8.
    QStringList unreadableInputs;   ///< Words that are no UTF-8, in a form that can be shown.

    static QList<KVCommandOption> options();

    /// What is wrong with the command line comes as one sentence. Paths become absolute here, before anything
    /// else happens.
    static tl::expected<KVConversionRequest, QString> make(const KVParsedWords &words);

    /// Gives the first file its subtitles; answers why it cannot have them.
    std::optional<QString> prepareFirstFile(KVMediaFile &file) const;

    /// Waits for the test that decides about the encoder of a video. Returns why it cannot be made.
    std::optional<QString> prepareEncoder() const;

    /// Makes the destination hold for this process. Asks the user where no preference tells one; false if
    /// that gave none.
    bool settleDestination() const;
};
