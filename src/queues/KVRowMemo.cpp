#include "queues/KVRowMemo.h"

#include "conversion/conversions/KVVideoConversion.h"
#include "queues/KVConversionQueue.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

std::shared_ptr<KVVideoFile> asVideo(const std::shared_ptr<KVMediaFile> &file) {
    return std::dynamic_pointer_cast<KVVideoFile>(file);
}

} // namespace

KVRowMemo::KVRowMemo(const Row &row)
    : _row(row)
    , _hadFinished(row->isFinished() && !row->isCancelled())
    , _files(row->mediaFiles())
    , _customPreset(row->customPreset())
    , _outputFileName(row->outputFileName())
    , _destinationFolder(row->destinationFolder()) {
    for (const auto &file : std::as_const(_files)) {
        const auto video = asVideo(file);
        _subtitles.push_back(video ? Subtitles{video->subtitlesFileURL, video->subtitlesFileEncoding,
                                               video->unreadableSubtitlesURL()}
                                   : Subtitles{});
    }
    if (const auto video = std::dynamic_pointer_cast<KVVideoConversion>(row)) _dvdName = video->dvdName();
}

void KVRowMemo::_fill(const Row &row) const {
    for (qsizetype number = 0; number < _files.size(); ++number) {
        const auto video = asVideo(_files.at(number));
        if (!video) continue;
        const auto &[url, encoding, unreadableURL] = _subtitles[size_t(number)];
        video->setSubtitles(url, encoding);
        if (unreadableURL) video->setUnreadableSubtitles(*unreadableURL);
    }
    row->setMediaFiles(_files);
    row->setCustomPreset(_customPreset);
    row->setOutputFileName(_outputFileName);
    row->setDestinationFolder(_destinationFolder);
    const auto video = std::dynamic_pointer_cast<KVVideoConversion>(row);
    if (video && _dvdName) video->setDVDName(*_dvdName);
}

void KVRowMemo::restore(const Row &row) const {
    _fill(row);
    for (const auto &delegate : row->delegates().allValues()) {
        delegate->conversionDidUpdateFiles(row);
        delegate->conversionDidChangePreset(row);
    }
}

KVRowMemo::Row KVRowMemo::rowToInsert() const {
    const auto queue = std::dynamic_pointer_cast<KVConversionQueue>(_row->queue());
    if (_hadFinished) return _row;
    auto row = queue->createConversion(_files.first(), _customPreset, false);
    _fill(row);
    return row;
}
