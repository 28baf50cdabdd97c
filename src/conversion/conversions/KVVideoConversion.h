#pragma once

#include "conversion/conversions/KVAudioConversion.h"

/// The conversion of a video file. Differs from one of sound by a note while external subtitles are read.
class KVVideoConversion : public KVAudioConversion {
  public:
    using KVAudioConversion::KVAudioConversion;

  protected:
    using KVAudioConversion::_handleTaskOutputForMediaFiles;
    void _handleTaskOutputForMediaFiles(const KVAudioFileList &files) override;
};
