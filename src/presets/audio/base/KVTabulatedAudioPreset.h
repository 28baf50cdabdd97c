#pragma once

#include "kvcore/KVLocalizationCenter.h"
#include "presets/audio/base/KVAudioPresetRow.h"
#include "util/KVThreadCount.h"

/// An audio preset that answers by its row and otherwise as `Base`.
template <class Base, const KVAudioPresetRow &row>
class KVTabulatedAudioPreset : public Base {
  public:
    KVAudioFormatClass audioFormatClass() const override { return row.audioFormatClass; }
    QString defaultName() const override { return KVLocalizationCenter::localized(row.defaultName); }
    std::optional<QString> fileType() const override {
        return row.fileType ? std::optional(QString(row.fileType)) : std::nullopt;
    }
    QString localizedFormatDescription() const override {
        return KVLocalizationCenter::localized(row.description);
    }
    std::optional<QString> pathExtension() const override { return QString(row.pathExtension); }
    std::optional<QString> threadCountArgument() const override {
        if (row.threads == 0) return std::nullopt;
        return QString::number(KVThreadCount(row.threads, 2));
    }
};
