#pragma once

#include "presets/video/base/KVTabulatedVideoPreset.h"
#include "presets/video/other/KVVideoPresetTable.h"

class KVProResPreset : public KVTabulatedVideoPreset<KVVideoPresetTable::proRes> {
  public:
    KVProResFormat::Profile profile = KVProResFormat::Profile::none;

    std::unique_ptr<KVVideoFormat> videoFormat() const override;
    QVariantMap dictionaryRepresentation() const override;
    void loadFromDictionary(const QVariantMap &dictionary) override;

  protected:
    KVOptionList _additionalOptions() override;
};
