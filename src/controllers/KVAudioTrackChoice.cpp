#include "controllers/KVAudioTrackChoice.h"

#include <QRegularExpression>

#include <algorithm>

KVAudioTrackChoice::KVAudioTrackChoice(const QList<KVAudioTrack> &tracks, qsizetype index)
    : _language(languageOf(tracks.at(index)))
    , _position(index) {}

std::optional<qsizetype> KVAudioTrackChoice::indexIn(const QList<KVAudioTrack> &tracks) const {
    if (!_position) return std::nullopt;
    const auto isOfLanguage = [this](const KVAudioTrack &track) { return languageOf(track) == _language; };
    const bool isPositionThere = *_position < tracks.size();
    if (_language.isEmpty() ||
        std::ranges::all_of(tracks, [](const auto &track) { return languageOf(track).isEmpty(); }))
        return isPositionThere ? _position : std::nullopt;
    if (isPositionThere && isOfLanguage(tracks.at(*_position))) return _position;
    const auto found = std::ranges::find_if(tracks, isOfLanguage);
    return found == tracks.end() ? std::nullopt : std::optional(found - tracks.begin());
}

QString KVAudioTrackChoice::languageOf(const KVAudioTrack &track) {
    // A track without a language is named "Track 1 (2)".
    static const QRegularExpression code(QStringLiteral("^([A-Za-z]{2,3})(?: \\(|$)"));
    const QString language = code.match(track.trackName.value_or(QString())).captured(1).toLower();
    return language == QLatin1String("und") ? QString() : language;
}
