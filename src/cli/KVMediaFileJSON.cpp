#include "cli/KVMediaFileJSON.h"

#include "cli/KVJSONValue.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

#include <QJsonArray>

namespace {

template <class Track>
QJsonValue numberOrNull(const std::optional<Track> &track) {
    return track ? QJsonValue(track->trackNumber) : QJsonValue();
}

QJsonObject object(const KVAudioTrack &track) {
    return {{"trackNumber", track.trackNumber},
            {"trackName", KVJSONValueOrNull(track.trackName)},
            {"format", track.format},
            {"frequency", track.frequency},
            {"numberOfChannels", track.numberOfChannels},
            {"bitrate", track.bitrate}};
}

QJsonObject object(const KVVideoTrack &track) {
    return {{"trackNumber", track.trackNumber},
            {"format", track.format},
            {"width", track.width},
            {"height", track.height},
            {"framesPerSecond", track.framesPerSecond},
            {"numberOfFrames", track.numberOfFrames},
            {"bitrate", track.bitrate}};
}

QJsonObject object(const KVSubtitleTrack &track) {
    return {{"trackNumber", track.trackNumber},
            {"trackName", KVJSONValueOrNull(track.trackName)},
            {"format", track.format}};
}

template <class Track>
QJsonArray array(const QList<Track> &tracks) {
    QJsonArray array;
    for (const Track &track : tracks)
        array.append(object(track));
    return array;
}

void add(const KVAudioFile &file, QJsonObject &json) {
    json.insert("seconds", file.seconds);
    json.insert("audioTracks", array(file.audioTracks));
    json.insert("selectedAudioTrack", numberOrNull(file.selectedAudioTrack));
}

void add(const KVVideoFile &file, QJsonObject &json) {
    json.insert("videoTracks", array(file.videoTracks));
    json.insert("subtitleTracks", array(file.subtitleTracks));
    json.insert("selectedVideoTrack", numberOrNull(file.selectedVideoTrack));
}

void add(const KVPictureFile &file, QJsonObject &json) {
    json.insert("width", file.width);
    json.insert("height", file.height);
}

} // namespace

QJsonObject KVMediaFileJSON::ofFile(const KVMediaFile &file) {
    QJsonObject json{{"path", file.url().toLocalFile()},
                     {"type", KVMediaFileTypes::caseName(file.mediaFileType())},
                     {"isDRMProtected", file.isDRMProtected()}};
    if (const auto *audio = dynamic_cast<const KVAudioFile *>(&file)) add(*audio, json);
    if (const auto *video = dynamic_cast<const KVVideoFile *>(&file)) add(*video, json);
    if (const auto *picture = dynamic_cast<const KVPictureFile *>(&file)) add(*picture, json);
    return json;
}

QJsonObject KVMediaFileJSON::ofRefusal(const QString &path, const KVError &error) {
    return {{"path", path},
            {"error", QJsonObject{{"domain", error.domain}, {"code", error.code}, {"reason", error.reason}}}};
}
