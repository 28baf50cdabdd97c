#pragma once

#include "conversion/conversions/KVVideoConversion.h"

/// The conversion of a DVD folder: an image is made of it as it stands.
class KVDVDConversion : public KVVideoConversion {
  public:
    using KVVideoConversion::KVVideoConversion;

    int numberOfTasks() const override { return 1; }
    bool performTaskNumber(int number) override;

  protected:
    QUrl _dvdFolderURL() const override;
};
