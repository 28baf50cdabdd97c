#pragma once

#include "conversion/conversions/KVConversion.h"

/// Converts one still picture within the program: no child, no progress inside the one task, no pause. A
/// cancel takes effect only before the task starts.
class KVPictureConversion : public KVConversion {
  public:
    using KVConversion::KVConversion;

    bool performTaskNumber(int number) override;

  private:
    std::optional<QUrl> _destinationFolder(const KVMediaFile &file) const;
    void _recordError(const std::shared_ptr<KVPreset> &preset, const QString &output,
                      const QString &reason) const;
};
