#pragma once

#include "kvcore/KVPreferences.h"
#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVAudioFile.h"

/// Base of the preset tests: an empty store, and sound files that exist in memory alone.
class KVPresetTestCase : public KVTestCase {
  protected:
    void SetUp() override {
        for (const QString &key : KVPreferences::shared().allKeys())
            KVPreferences::shared().setValue({}, {key});
    }

    /// Stereo MP3 at 44100 Hz and 192 kb/s.
    static KVAudioTrack track() {
        KVAudioTrack track;
        track.format = "mp3";
        track.frequency = 44100;
        track.numberOfChannels = 2;
        track.bitrate = 192;
        return track;
    }

    /// The first track is the selected one.
    static std::shared_ptr<KVAudioFile> audioFile(const QString &path, const QList<KVAudioTrack> &tracks) {
        const auto file = std::make_shared<KVAudioFile>(QUrl::fromLocalFile(path));
        file->audioTracks = tracks;
        if (!tracks.isEmpty()) file->selectedAudioTrack = tracks.first();
        return file;
    }
    static std::shared_ptr<KVAudioFile> audioFile(const QString &path) { return audioFile(path, {track()}); }
};
