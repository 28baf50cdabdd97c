#include "presets/KVPresetClasses.h"
#include "presets/formats/video_track/variable_bitrate/KVH264Format.h"
#include "presets/video/variable_bitrate/KViProductPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "support/KVTestSources.h"
#include "tasks/KVHardwareAcceleration.h"
#include "util/KVThreadCount.h"

using namespace KVTestPresets;
using namespace KVTestSources;

namespace {

class KVVideoPresetCatalogueTest : public KVTestCase {
  protected:
    void SetUp() override { KVHardwareAcceleration::setResult(false); }
};

/// One preset, its cells parted by bars: class, base, name, extension, file type, video and audio encoder,
/// bitrates of the video, of its maximum and of the audio, threads, subtitle encoder, description. A dash is
/// nothing.
// clang-format off
constexpr const char *presets[]{
    "KVMP4Preset|KVSizeRestrictedVideoPreset|MP4|mp4|mp4|libx264|aac|800|1200|128|16|mov_text|H.264, AAC",
    "KVMP4MPEG4BasedPreset|KVMP4Preset|MP4 (MPEG-4)|mp4|mp4|mpeg4|libmp3lame|800|1200|128|6|mov_text|MPEG4, MP3",
    "KVMKVPreset|KVMP4Preset|MKV|mkv|matroska|libx264|aac|800|1200|128|16|ass|H.264, AAC",
    "KVHEVCPreset|KVSizeRestrictedVideoPreset|HEVC (H.265)|mov|mov|libx265|aac|1000|1200|128|16|mov_text|HEVC, AAC",
    "KVProResPreset|KVSizeRestrictedVideoPreset|ProRes|mov|-|prores|aac|50000|100000|256|16|-|ProRes, AAC",
    "KVTheoraPreset|KVSizeRestrictedVideoPreset|Ogg (Video)|ogg|-|libtheora|libvorbis|1200|1800|128|16|-|Theora, Vorbis",
    "KVWebMPreset|KVSizeRestrictedVideoPreset|WebM|webm|-|libvpx|libvorbis|1200|1800|128|16|-|VP8, Vorbis",
    "KVWMVPreset|KVSizeRestrictedVideoPreset|WMV|wmv|-|wmv2|wmav2|600|1200|128|-|-|WMV (v2), WMA (v2)",
    "KVFLVPreset|KVSizeRestrictedVideoPreset|FLV|flv|flv|flv|libmp3lame|750|1200|64|-|-|FLV, MP3",
    "KVDivXPreset|KVSizeRestrictedVideoPreset|DivX (AVI)|avi|-|mpeg4|libmp3lame|1024|1200|128|6|-|MPEG4 (DivX), MP3",
    "KVXvidPreset|KVSizeRestrictedVideoPreset|Xvid (AVI)|avi|-|mpeg4|libmp3lame|1024|1200|128|6|-|MPEG4 (Xvid), MP3",
    "KVMPEG1Preset|KVSizeRestrictedVideoPreset|MPEG-1|mpeg|-|mpeg1video|mp2|1000|1200|128|-|-|MPEG 1, MP2",
    "KVMPEG2Preset|KVSizeRestrictedVideoPreset|MPEG-2|vob|dvd|mpeg2video|ac3|7500|8000|192|16|-|MPEG 2 (DVD compatible), AC3",
    "KVDVDPreset|KVMPEG2Preset|DVD|vob|dvd|mpeg2video|ac3|7500|8000|192|16|-|Creates an ISO file that you can burn right away.",
    "KVPS3Preset|KVSizeRestrictedVideoPreset|PS3|mp4|ipod|libx264|aac|3000|4500|128|16|-|H.264 (limited to 640 x 480), AAC",
    "KVXboxPreset|KVSizeRestrictedVideoPreset|Xbox|mp4|mp4|mpeg4|aac|2500|1200|192|16|mov_text|MPEG4, AAC",
    "KVHTTPLiveStreamingPreset|KVMP4Preset|HTTP Live Streaming|mp4|mp4|libx264|aac|800|1200|128|16|mov_text|H.264, AAC\nOutput split into parts.",
    "KViPodPreset|KViProductPreset|iPod|mp4|ipod|libx264|aac|500|768|128|16|mov_text|H.264 (limited to 320 x 240), AAC",
    "KViPodNanoPreset|KViProductPreset|iPod Nano|mp4|ipod|libx264|aac|400|768|128|16|mov_text|H.264 (limited to 376 x 240), AAC",
    "KViPodNano5GPreset|KViProductPreset|iPod Nano 5G|mp4|ipod|libx264|aac|400|768|128|16|mov_text|H.264 (limited to 320 x 240), AAC",
    "KViPhonePreset|KViProductPreset|iPhone|mp4|ipod|libx264|aac|700|900|128|16|mov_text|H.264 (limited to 480 x 320), AAC",
    "KViPhone4Preset|KViProductPreset|iPhone 4|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 960 x 640), AAC",
    "KViPhone5Preset|KViPhone4Preset|iPhone 5|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 960 x 640), AAC",
    "KViPhone5SPreset|KViPhone5Preset|iPhone 5S|mp4|ipod|libx264|aac|1200|2100|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPhone5CPreset|KViPhone5SPreset|iPhone 5C|mp4|ipod|libx264|aac|1200|2100|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPhoneSEPreset|KViPhone5SPreset|iPhone SE|mp4|ipod|libx264|aac|1200|2100|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPhone6Preset|KViProductPreset|iPhone 6|mp4|ipod|libx264|aac|1600|2200|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPhone6SPreset|KViPhone6Preset|iPhone 6S|mp4|ipod|libx264|aac|1600|2200|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPhone7Preset|KViPhone6Preset|iPhone 7|mp4|ipod|libx264|aac|1600|2200|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KViPadPreset|KViProductPreset|iPad|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 1024 x 768), AAC",
    "KViPad3Preset|KVAppleTV3Preset|iPad 3|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KVAppleTVPreset|KViProductPreset|AppleTV|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 1280 x 720), AAC",
    "KVAppleTV2Preset|KViProductPreset|AppleTV 2|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 1280 x 720), AAC",
    "KVAppleTV3Preset|KViProductPreset|AppleTV 3|mp4|ipod|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KVAppleTV4Preset|KViProductPreset|AppleTV 4|mp4|ipod|libx264|aac|1200|2000|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KVAppleTV4KPreset|KViProductPreset|AppleTV 4K|mp4|ipod|libx264|aac|1200|2000|128|16|mov_text|H.264 (limited to 3840 x 2160), AAC",
    "KVRokuPreset|KViProductPreset|Roku TV|mp4|ipod|libx264|aac|1200|2000|128|16|mov_text|H.264 (limited to 1920 x 1080), AAC",
    "KVPSPPreset|KViProductPreset|PSP|mp4|psp|libx264|aac|1000|1800|128|16|mov_text|H.264 (limited to 480 x 272), AAC",
};
// clang-format on

QString orDash(const std::optional<QString> &text) {
    return text.value_or("-");
}

/// The preset's own answers in the form of a row.
QString answersOf(const KVVideoPreset &preset, const QStringList &row) {
    QString description = preset.localizedFormatDescription();
    description.replace("Video: ", "").replace("\nAudio: ", ", ");
    const bool isOfBase = KVPresetClasses::classForStoredName("Kalvora." + row.value(1))->isInstance(preset);
    QString threads = "-";
    for (const int maximum : {6, 16})
        if (preset.threadCountArgument() == QString::number(KVThreadCount(maximum, 2)))
            threads = row.value(10) == "-" ? "some" : row.value(10); // Equal on a machine of few processors.
    return QStringList{row.value(0),
                       isOfBase ? row.value(1) : "not " + row.value(1),
                       preset.name,
                       orDash(preset.pathExtension()),
                       orDash(preset.fileType()),
                       preset.videoFormat()->codec(),
                       preset.audioFormat()->codec(),
                       QString::number(preset.defaultVideoBitrate()),
                       QString::number(preset.defaultVideoMaxBitrate()),
                       QString::number(preset.defaultAudioBitrate()),
                       threads,
                       preset.supportsSubtitleMuxing() ? preset.defaultSubtitleFormat() : "-",
                       description}
        .join('|');
}

/// One device: class, limits with H.264 and with MPEG-4, surround, multiplier, profile, level, quantizers
/// with H.264 and with MPEG-4, motion search.
struct DeviceRow {
    const char *presetClass;
    qint64 limits[2], mpeg4Limits[2];
    bool surround;
    double multiplier;
    const char *profile;
    qint64 level, quantizers[2], mpeg4Quantizers[2];
    const char *method;
    qint64 range;
};

// clang-format off
constexpr DeviceRow devices[]{
    {"KViPodPreset",       {320, 240},   {320, 240},  false, 0.5,  "baseline", 13, {5, 23},  {5, 23},  "umh", 7},
    {"KViPodNanoPreset",   {376, 240},   {376, 240},  false, 0.5,  "baseline", 13, {5, 31},  {5, 31},  "umh", 7},
    {"KViPodNano5GPreset", {320, 240},   {320, 240},  false, 0.5,  "baseline", 13, {5, 31},  {5, 31},  "umh", 7},
    {"KViPhonePreset",     {480, 320},   {480, 320},  false, 0.75, "baseline", 13, {10, 51}, {10, 51}, "hex", 16},
    {"KViPhone4Preset",    {960, 640},   {720, 432},  false, 1.0,  "baseline", 31, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone5Preset",    {960, 640},   {720, 432},  false, 1.0,  "baseline", 31, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone5SPreset",   {1920, 1080}, {640, 480},  false, 1.0,  "baseline", 42, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone5CPreset",   {1920, 1080}, {640, 480},  false, 1.0,  "baseline", 42, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhoneSEPreset",   {1920, 1080}, {640, 480},  false, 1.0,  "baseline", 42, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone6Preset",    {1920, 1080}, {720, 432},  false, 1.0,  "baseline", 41, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone6SPreset",   {1920, 1080}, {720, 432},  false, 1.0,  "baseline", 41, {21, 41}, {5, 31},  "umh", 7},
    {"KViPhone7Preset",    {1920, 1080}, {720, 432},  false, 1.0,  "baseline", 41, {21, 41}, {5, 31},  "umh", 7},
    {"KViPadPreset",       {1024, 768},  {1024, 768}, false, 1.0,  "baseline", 31, {20, 35}, {20, 35}, "umh", 7},
    {"KViPad3Preset",      {1920, 1080}, {720, 432},  false, 1.2,  "baseline", 41, {21, 51}, {21, 51}, "hex", 16},
    {"KVAppleTVPreset",    {1280, 720},  {720, 432},  true,  1.0,  "baseline", 31, {21, 51}, {21, 51}, "umh", 7},
    {"KVAppleTV2Preset",   {1280, 720},  {720, 432},  true,  1.0,  "baseline", 31, {21, 51}, {21, 51}, "hex", 16},
    {"KVAppleTV3Preset",   {1920, 1080}, {720, 432},  true,  1.2,  "baseline", 41, {21, 51}, {21, 51}, "hex", 16},
    {"KVAppleTV4Preset",   {1920, 1080}, {640, 480},  true,  1.4,  "baseline", 42, {21, 51}, {21, 51}, "hex", 16},
    {"KVAppleTV4KPreset",  {3840, 2160}, {640, 480},  true,  1.4,  "main",     42, {21, 51}, {21, 51}, "hex", 16},
    {"KVRokuPreset",       {1920, 1080}, {640, 480},  true,  1.4,  "baseline", 42, {21, 51}, {21, 51}, "hex", 16},
    {"KVPSPPreset",        {480, 272},   {480, 272},  true,  1.0,  "baseline", 30, {25, 40}, {25, 40}, "epzs", 16},
};
// clang-format on

} // namespace

TEST_F(KVVideoPresetCatalogueTest, EveryPresetAnswersByItsFigures) {
    for (const char *line : presets) {
        const QStringList row = QString(line).split('|');
        const auto preset = make<KVVideoPreset>(row.value(0));
        ASSERT_TRUE(preset) << line;
        EXPECT_EQ(answersOf(*preset, row), QString(line));
        EXPECT_TRUE(preset->supportsStitching()) << line;
        EXPECT_EQ(preset->presetType(), row.value(2) == "DVD" ? KVMediaFileType::dvd : KVMediaFileType::video)
            << line;
    }
}

TEST_F(KVVideoPresetCatalogueTest, EveryDeviceAnswersByItsFigures) {
    for (const DeviceRow &row : devices) {
        for (const bool usesH264 : {true, false}) {
            // What is stored for a device's size has no effect.
            const auto preset = make<KViProductPreset>(
                row.presetClass,
                {{"ZRUsesH264", usesH264}, {"ZRMaxWidth", 1}, {"ZRHasSizeConstrains", false}});
            ASSERT_TRUE(preset) << row.presetClass;
            const auto &limits = usesH264 ? row.limits : row.mpeg4Limits;
            const auto &quantizers = usesH264 ? row.quantizers : row.mpeg4Quantizers;
            EXPECT_EQ(preset->maxWidth(), limits[0]) << row.presetClass << usesH264;
            EXPECT_EQ(preset->maxHeight(), limits[1]) << row.presetClass << usesH264;
            EXPECT_TRUE(preset->hasSizeConstrains()) << row.presetClass;
            EXPECT_EQ(preset->qmin(), quantizers[0]) << row.presetClass << usesH264;
            EXPECT_EQ(preset->qmax(), quantizers[1]) << row.presetClass << usesH264;
            EXPECT_EQ(preset->deviceSupportsSurroundSound(), row.surround) << row.presetClass;
            EXPECT_TRUE(preset->videoFormat()->doesNotAllowCustomSize) << row.presetClass;
            EXPECT_EQ(preset->tags(), QStringList({"Video", QString("%1x%2").arg(limits[0]).arg(limits[1]),
                                                   usesH264 ? "H.264" : "MPEG4"}));
        }
        const auto preset = make<KViProductPreset>(row.presetClass);
        const auto format = preset->videoFormat();
        const auto *h264 = dynamic_cast<KVH264Format *>(format.get());
        ASSERT_TRUE(h264) << row.presetClass;
        EXPECT_EQ(h264->bitrateMultiplier, row.multiplier) << row.presetClass;
        EXPECT_EQ(KVH264Format::nameOfProfile(h264->profile), row.profile) << row.presetClass;
        EXPECT_EQ(h264->level, row.level) << row.presetClass;
        EXPECT_EQ(h264->meMethod, row.method) << row.presetClass;
        EXPECT_EQ(h264->meRange, row.range) << row.presetClass;
    }
}

TEST_F(KVVideoPresetCatalogueTest, NamesAreUniqueAmongAllBuiltInPresets) {
    QSet<QString> names;
    int classes = 0;
    for (const KVPresetClass &presetClass : KVPresetClasses::all()) {
        if (presetClass.isAbstractPreset()) continue;
        names.insert(presetClass.make()->name);
        ++classes;
    }
    EXPECT_EQ(classes, 61);
    EXPECT_EQ(names.size(), classes);
}

TEST_F(KVVideoPresetCatalogueTest, ContainerOfHEVCDecidesItsFile) {
    struct Row {
        int container;
        const char *pathExtension, *fileType, *subtitleFormat;
    };
    for (const Row &row : {Row{0, "mov", "mov", "mov_text"}, Row{1, "mkv", "matroska", "ass"},
                           Row{2, "mp4", "mp4", "mov_text"}, Row{3, "mov", "mov", "mov_text"}}) {
        const auto preset = make<KVVideoPreset>("KVHEVCPreset", {{"ContainerFormat", row.container}});
        EXPECT_EQ(preset->pathExtension(), row.pathExtension);
        EXPECT_EQ(preset->fileType(), row.fileType);
        EXPECT_EQ(preset->defaultSubtitleFormat(), row.subtitleFormat);
        EXPECT_EQ(preset->videoFormat()->additionalArguments(*video(), KVTrackQualitySetting::medium).size(),
                  row.container % 3 == 0 ? 4 : 2);
    }
}

TEST_F(KVVideoPresetCatalogueTest, EverySettingSurvivesStorage) {
    for (const KVPresetClass &presetClass : KVPresetClasses::videoPresetClasses()) {
        if (presetClass.isAbstractPreset()) continue;
        QVariantMap dictionary = presetClass.make()->dictionaryRepresentation();
        const bool isDevice = dynamic_cast<KViProductPreset *>(presetClass.make().get());
        for (auto entry = dictionary.begin(); entry != dictionary.end(); ++entry) {
            const bool isFixed = entry.key().startsWith("ZRPreset") || entry.key() == "KVPresetType" ||
                                 (isDevice && entry.key().contains("Constrains")) ||
                                 entry.key().startsWith("ZRMax") || entry.key() == "ZRUsesH264";
            if (isFixed) continue;
            if (entry->typeId() == QMetaType::Bool) *entry = !entry->toBool();
            if (entry->typeId() == QMetaType::LongLong) *entry = entry->toLongLong() == 1 ? 2 : 1;
            if (entry->typeId() == QMetaType::Double) *entry = 24.0;
        }
        if (dictionary.contains("ZRRemuxFormat")) dictionary["ZRRemuxFormat"] = "matroska";
        if (dictionary.contains("ZRRemuxAudioFormat")) dictionary["ZRRemuxAudioFormat"] = "aac";
        const bool hasFixedSize = presetClass.name == "KVPS3Preset" || presetClass.name == "KVXboxPreset";
        if (hasFixedSize) dictionary["ZRHasSizeConstrains"] = true;
        const auto loaded = presetClass.make();
        loaded->loadFromDictionary(dictionary);
        EXPECT_EQ(loaded->dictionaryRepresentation(), dictionary) << presetClass.name;
    }
}
