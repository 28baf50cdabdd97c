#pragma once

#include "presets/picture/KVBMPPreset.h"
#include "presets/picture/KVGIFPreset.h"
#include "presets/picture/KVJPEGPreset.h"
#include "presets/picture/KVPNGPreset.h"
#include "presets/picture/KVTIFFPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPictures.h"
#include "util/KVPictureLibrary.h"
#include "util/KVSizeFitting.h"
#include "video_info/media_file/KVPictureFile.h"

/// Converts pictures of the test's folder into its folder "out".
class KVPictureTestCase : public KVTestCase {
  protected:
    void SetUp() override { QDir().mkpath(path("out")); }

    KVResult<QUrl> convert(const KVPicturePreset &preset, const QString &source) const {
        const auto file = std::make_shared<KVPictureFile>(QUrl::fromLocalFile(source));
        return preset.convertPictureFile(file, url("out"), stop.get_token());
    }

    /// The new file's path.
    QString converted(const KVPicturePreset &preset, const QString &source) const {
        const auto output = convert(preset, source);
        EXPECT_TRUE(output) << source.toStdString() << ": " << output.error().reason.toStdString();
        return output ? output->toLocalFile() : QString();
    }

    template <class Preset>
    vips::VImage convertedPicture(const QString &source) const {
        return KVTestPictures::load(converted(*KVPreset::make<Preset>(), source));
    }

    /// Why there is no new file.
    QString failure(const KVPicturePreset &preset, const QString &source) const {
        const auto output = convert(preset, source);
        EXPECT_FALSE(output) << source.toStdString();
        return output ? QString() : output.error().reason;
    }

    std::stop_source stop;

    QStringList outputNames() const {
        return QDir(path("out"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    static QByteArray textOf(const vips::VImage &picture, const char *field) {
        if (!picture.get_typeof(field)) return {};
        std::size_t size = 0;
        const void *text = picture.get_blob(field, &size);
        return QByteArray(static_cast<const char *>(text), qsizetype(size));
    }

    static KVSize sizeOf(const QString &path) {
        const auto header = KVPictureLibrary::header(path);
        EXPECT_TRUE(header) << path.toStdString();
        return header ? KVSize{double(header->width), double(header->height)} : KVSize();
    }
};
