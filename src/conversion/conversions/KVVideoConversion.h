#pragma once

#include "conversion/conversions/KVAudioConversion.h"

class KVDiscTool;
class KVDVDPreset;
class KVOutputClaim;

/// The conversion of a video file. Differs from one of sound by a note while external subtitles are read; and
/// under a KVDVDPreset it is a plan of several tasks: each file is converted into a temporary folder, a DVD
/// folder is authored from them, and an image is made of that.
///
/// The disc tools can be neither paused nor cancelled: a cancel is seen when the running one has ended.
class KVVideoConversion : public KVAudioConversion {
  public:
    using KVAudioConversion::KVAudioConversion;

    /// The name of the disc; the first file's, unless it was set before the start. False if the row can no
    /// longer be changed.
    QString dvdName() const;
    bool setDVDName(const QString &name);

    void start() override;
    int numberOfTasks() const override;
    bool performTaskNumber(int number) override;
    void killChildren() override;

  protected:
    using KVAudioConversion::_handleTaskOutputForMediaFiles;
    void _warnOfMissingSubtitles(const KVAudioFileList &files);
    void _handleTaskOutputForMediaFiles(const KVAudioFileList &files) override;

    virtual bool _authorDVD();
    virtual bool _createISOImage();
    /// The folder that is authored, and that the image is made of.
    virtual QUrl _dvdFolderURL() const;
    /// `dvdName` as a disc can carry it: 32 capital letters, digits and underscores at most.
    virtual QString _dvdVolumeName() const;
    virtual void _processDVDAuthoringTaskOutputFromFileHandle(KVDiscTool &tool, KVFileHandle &handle);

  private:
    /// Where the image goes.
    struct Image {
        QUrl url;
        std::shared_ptr<KVOutputClaim> claim;
    };

    std::shared_ptr<KVDVDPreset> _dvdPreset() const;
    QString _videoFormatOfDisc() const;
    std::optional<QUrl> _imageFolder() const;
    std::optional<Image> _image() const;
    int _runImageTool(KVDiscTool &tool);
    bool _endImage(const Image &image, KVDiscTool &tool, int status);
    bool _refuseImage();
    void _recordToolError(KVDiscTool &tool, int status, const QString &reason = {});
    void _setDiscTool(const std::shared_ptr<KVDiscTool> &tool);

    mutable std::mutex _discMutex; ///< Guards the fields below.
    QString _dvdName = "Kalvora DVD";
    std::shared_ptr<KVDiscTool> _discTool; ///< The one that runs.
    bool _isQuitting = false;              ///< No further tool may run.

    /// The folder of a DVD run; it stays until the temporary directory is cleaned. Worker thread.
    std::optional<QUrl> _stitchingTemporaryURL;
};
