#include "presets/KVPresetClasses.h"
#include "presets/KVPresetRegistry.h"
#include "presets/KVPresetTestCase.h"
#include "presets/audio/KVAudioPresets.h"
#include "util/KVPreferenceKeys.h"

#include <QSet>

#include <thread>

namespace Keys = KVPreferenceKeys;

class KVPresetRegistryTest : public KVPresetTestCase {
  protected:
    static QVariantMap stored() { return KVPreferences::shared().value(Keys::PresetSettings).toMap(); }
    static void store(const QVariantMap &entries, bool isMigrated = true) {
        KVPreferences::shared().setValue(entries, Keys::PresetSettings);
        KVPreferences::shared().setBoolean(isMigrated, Keys::DidUpdateTypeInDefaults);
    }

    static QStringList names(KVPresetRegistry &registry) {
        QStringList names;
        for (const auto &preset : registry.allPresets())
            names.append(preset->name);
        return names;
    }

    static std::shared_ptr<KVPreset> customMP3(const QString &name) {
        const auto preset = KVPreset::make<KVMP3Preset>();
        preset->name = name;
        preset->isCustom = true;
        preset->audioBitrate = 100;
        return preset;
    }
};

TEST_F(KVPresetRegistryTest, HasOneBuiltInPresetOfEachConcreteClass) {
    KVPresetRegistry registry;
    QSet<QString> classNames;
    QStringList wanted;
    for (const KVPresetClass &presetClass : KVPresetClasses::all()) {
        classNames.insert(KVPresetClasses::storedName(presetClass));
        if (presetClass.isAbstractPreset()) continue;
        const auto preset = presetClass.make();
        EXPECT_EQ(&preset->presetClass(), &presetClass);
        EXPECT_TRUE(presetClass.isInstance(*preset));
        EXPECT_FALSE(preset->isCustom);
        EXPECT_FALSE(preset->localizedFormatDescription().isEmpty());
        wanted.append(preset->name);
    }
    EXPECT_EQ(classNames.size(), qsizetype(KVPresetClasses::all().size())) << "a class name is used twice";
    QStringList found = names(registry);
    EXPECT_EQ(found.removeDuplicates(), 0);
    wanted.sort();
    found.sort();
    EXPECT_EQ(found, wanted);
}

TEST_F(KVPresetRegistryTest, BuiltInPresetsKeepTheNamesThatScriptsKnow) {
    KVPresetRegistry registry;
    EXPECT_EQ(
        names(registry).join('|'),
        "AAC|AIFF|Apple Lossless|AppleTV|AppleTV 2|AppleTV 3|AppleTV 4|AppleTV 4K|BMP|Crop|DivX (AVI)|DVD|"
        "FLAC|FLV|GIF|GIF Animation|HEVC (H.265)|HTTP Live Streaming|iPad|iPad 3|iPhone|iPhone 4|iPhone 5|"
        "iPhone 5C|iPhone 5S|iPhone 6|iPhone 6S|iPhone 7|iPhone Ringtone|iPhone SE|iPod|iPod Nano|"
        "iPod Nano 5G|JPEG|M4A|MKV|MP2|MP3|MP4|MP4 (MPEG-4)|MPEG-1|MPEG-2|Ogg (Audio)|Ogg (Video)|PNG|"
        "ProRes|PS3|PSP|Remux|Remux With Audio Conversion|Roku TV|TIFF|Transform Preset|"
        "Volume Adjustment|WAV|Web Optimization|WebM|WMA|WMV|Xbox|Xvid (AVI)");
}

TEST_F(KVPresetRegistryTest, SettingsKeepTheKeysThatFilesHold) {
    struct Row {
        const char *preset;
        const char *keys; // beside those of every preset
    };
    const Row rows[]{
        {"WAV", "KVAudioTrackQuality KVFrequency ZRAudioChannels ZRWAVSampleBits ZRWAVUsesBigEndian "
                "ZRWAVUsesUnsignedIntegers"},
        {"AIFF", "KVAudioTrackQuality KVFrequency KVSampleBits ZRAudioChannels"},
        {"Apple Lossless", "KVAudioTrackQuality KVFrequency KVSampleBits ZRAudioChannels"},
        {"JPEG", "ZRAlsoScaleUp ZRHasPercentageScaling ZRHasSizeConstrains ZRJPEGCompression ZRMaxHeight "
                 "ZRMaxWidth ZRPercentageScaling"},
        {"PNG",
         "ZRAlsoScaleUp ZRHasPercentageScaling ZRHasSizeConstrains ZRMaxHeight ZRMaxWidth ZRPNGInterlaced "
         "ZRPercentageScaling"},
    };
    for (const Row &row : rows) {
        QStringList keys = KVPreset::presetNamed(row.preset)->dictionaryRepresentation().keys();
        for (const char *key :
             {"KVPresetType", "ZRPresetClass", "ZRPresetIsCustom", "ZRPresetIsEnabled", "ZRPresetName"})
            EXPECT_TRUE(keys.removeOne(key)) << row.preset << key;
        EXPECT_EQ(keys.join(' '), row.keys);
    }
}

TEST_F(KVPresetRegistryTest, EverySettingSurvivesStorage) {
    const QSet<QString> identity{"ZRPresetClass", "ZRPresetName", "KVPresetType"};
    // Some presets have fixed sizes or one codec; their values cannot be changed.
    const QSet<QString> fixedInSome{"ZRHasSizeConstrains", "ZRMaxWidth", "ZRMaxHeight", "ZRUsesH264"};
    for (const KVPresetClass &presetClass : KVPresetClasses::all()) {
        if (presetClass.isAbstractPreset()) continue;
        const auto written = presetClass.make();
        QVariantMap dictionary = written->dictionaryRepresentation();
        const bool isFixed =
            presetClass.name != "KVMP4Preset" && written->presetType() != KVMediaFileType::picture;
        for (auto entry = dictionary.begin(); entry != dictionary.end(); ++entry) {
            if (identity.contains(entry.key()) || (isFixed && fixedInSome.contains(entry.key()))) continue;
            if (entry->typeId() == QMetaType::Bool) *entry = !entry->toBool();
            if (entry->typeId() == QMetaType::LongLong) *entry = entry->toLongLong() == 1 ? 2 : 1;
            if (entry->typeId() == QMetaType::Double) *entry = 24.0;
            if (entry->typeId() == QMetaType::QString) *entry = "other";
        }
        if (dictionary.contains("ZRAudioChannels")) dictionary["KVSampleRate"] = qint64{8000};
        const auto read = presetClass.make();
        read->loadFromDictionary(dictionary);
        EXPECT_EQ(read->dictionaryRepresentation(), dictionary) << presetClass.name;
    }
}

TEST_F(KVPresetRegistryTest, StoresAllPresetsOnce) {
    const QStringList first = names(*std::make_unique<KVPresetRegistry>());
    EXPECT_EQ(stored().size(), first.size());
    EXPECT_EQ(stored()["MP3"].toMap()["KVPresetType"], 1);
    EXPECT_TRUE(KVPreferences::shared().boolean(Keys::DidUpdateTypeInDefaults, false));
    EXPECT_EQ(names(*std::make_unique<KVPresetRegistry>()), first);
}

TEST_F(KVPresetRegistryTest, ReadsEntriesOfEveryAge) {
    struct Row {
        const char *what;
        QVariant entry;
        bool isRead;
        bool isCustom;
        bool isEnabled;
    };
    const auto entry = [](const QVariant &storedClass, QVariantMap further = {}) {
        further.insert("ZRPresetClass", storedClass);
        further.insert("ZRPresetName", "Mine");
        return further;
    };
    const std::vector<Row> rows{
        {"present form", entry("Kalvora.KVMP3Preset", {{"ZRPresetIsCustom", false}}), true, false, true},
        {"class of an older version", entry("ZRMP3Preset"), true, true, true},
        {"class stored while observed", entry("NSKVONotifying_Kalvora.KVMP3Preset"), true, true, true},
        {"numbers in place of booleans",
         entry("ZRMP3Preset", {{"ZRPresetIsCustom", 0}, {"ZRPresetIsEnabled", 0.0}}), true, false, false},
        {"marks of another kind",
         entry("ZRMP3Preset", {{"ZRPresetIsCustom", "no"}, {"ZRPresetIsEnabled", QVariantList()}}), true,
         true, true},
        {"unknown class", entry("Kalvora.KVNoSuchPreset"), false, false, false},
        {"abstract class", entry("Kalvora.KVAudioPreset"), false, false, false},
        {"class without the prefix", entry("KVMP3Preset"), false, false, false},
        {"class that is no text", entry(7), false, false, false},
        {"no class", QVariantMap{{"ZRPresetName", "Mine"}}, false, false, false},
        {"no dictionary", "nonsense", false, false, false},
        {"a list", QVariantList{1, "two"}, false, false, false},
    };
    for (const Row &row : rows) {
        store({{"Mine", row.entry}});
        const QVariant before = stored()["Mine"];
        KVPresetRegistry registry;
        const auto preset = registry.presetNamed("Mine");
        EXPECT_EQ(preset != nullptr, row.isRead) << row.what;
        EXPECT_EQ(stored()["Mine"], before) << row.what;
        if (!preset) continue;
        EXPECT_EQ(preset->isCustom, row.isCustom) << row.what;
        EXPECT_EQ(preset->isEnabled, row.isEnabled) << row.what;
    }
}

TEST_F(KVPresetRegistryTest, GivesOldEntriesTheirTypeAndLeavesUnreadableOnes) {
    store({{"Mine", QVariantMap{{"ZRPresetClass", "ZRMP3Preset"}, {"ZRPresetName", "Mine"}}},
           {"WAV", QVariantMap{{"ZRPresetClass", "Kalvora.KVGonePreset"}, {"KVFrequency", 8000}}},
           {"FLAC", 12}},
          false);
    KVPresetRegistry registry;
    EXPECT_TRUE(registry.presetNamed("WAV")) << "the built-in one is there for this run";
    EXPECT_EQ(stored()["Mine"].toMap()["KVPresetType"], 1);
    EXPECT_EQ(stored()["Mine"].toMap()["ZRPresetClass"], "Kalvora.KVMP3Preset");
    EXPECT_EQ(stored()["WAV"].toMap()["KVFrequency"], 8000);
    EXPECT_EQ(stored()["FLAC"], 12);
}

TEST_F(KVPresetRegistryTest, SurvivesAStoreOfAnotherKind) {
    KVPreferences::shared().setValue("presets", Keys::PresetSettings);
    KVPresetRegistry registry;
    EXPECT_TRUE(registry.presetNamed("MP3"));
    EXPECT_TRUE(stored().contains("MP3"));
}

TEST_F(KVPresetRegistryTest, KeepsAnEditedBuiltInPresetAndMakesARenamedOneAnew) {
    {
        KVPresetRegistry registry;
        const auto mp3 = std::static_pointer_cast<KVMP3Preset>(registry.presetNamed("MP3"));
        mp3->audioBitrate = 320;
        mp3->save();
        EXPECT_TRUE(registry.renamePreset(registry.presetNamed("WAV"), "My WAV"));
    }
    EXPECT_FALSE(stored().contains("WAV"));
    KVPresetRegistry registry;
    EXPECT_EQ(std::static_pointer_cast<KVMP3Preset>(registry.presetNamed("MP3"))->audioBitrate, 320);
    EXPECT_TRUE(registry.presetNamed("My WAV"));
    EXPECT_TRUE(registry.presetNamed("WAV"));
    EXPECT_TRUE(stored().contains("WAV"));
}

TEST_F(KVPresetRegistryTest, CountsASubclassAsTheStoredBuiltIn) {
    store({{"AAC", QVariantMap{{"ZRPresetClass", "Kalvora.KVM4APreset"}, {"ZRPresetName", "AAC"}}}});
    KVPresetRegistry registry;
    EXPECT_EQ(names(registry).count("AAC"), 1);
    EXPECT_TRUE(std::dynamic_pointer_cast<KVM4APreset>(registry.presetNamed("AAC")));
}

TEST_F(KVPresetRegistryTest, SortsCustomPresetsBehindBuiltInOnes) {
    KVPresetRegistry registry;
    registry.registerPreset(customMP3("b"));
    registry.registerPreset(customMP3("A"));
    const QStringList all = names(registry);
    EXPECT_EQ(all.last(2), (QStringList{"A", "b"}));
    QStringList builtIn = all.first(all.size() - 2);
    const QStringList before = builtIn;
    builtIn.sort(Qt::CaseInsensitive);
    EXPECT_EQ(before, builtIn);
}

TEST_F(KVPresetRegistryTest, RefusesATakenName) {
    KVPresetRegistry registry;
    const QStringList before = names(registry);
    const QVariantMap storedBefore = stored();
    int notifications = 0;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVPreset>(
        KVPresetListDidChangeNotification, [&](const auto &) { ++notifications; });
    registry.registerPreset(customMP3("MP3"));
    EXPECT_FALSE(registry.renamePreset(registry.presetNamed("MP3"), "MP3"));
    EXPECT_FALSE(registry.renamePreset(registry.presetNamed("MP3"), "WAV"));
    EXPECT_EQ(names(registry), before);
    EXPECT_EQ(stored(), storedBefore);
    EXPECT_EQ(notifications, 0);
}

TEST_F(KVPresetRegistryTest, TellsOfEveryChangeAndStoresIt) {
    KVPresetRegistry registry;
    names(registry);
    QStringList told;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVPreset>(
        KVPresetListDidChangeNotification, [&](const auto &preset) { told.append(preset->name); });
    const auto preset = customMP3("One");
    registry.registerPreset(preset);
    EXPECT_EQ(stored()["One"].toMap()["ZRAudioBitrate"], 100);
    EXPECT_TRUE(registry.renamePreset(preset, "Two"));
    EXPECT_FALSE(stored().contains("One"));
    EXPECT_EQ(stored()["Two"].toMap()["ZRPresetName"], "Two");
    registry.unregisterPreset(preset);
    EXPECT_FALSE(stored().contains("Two"));
    EXPECT_FALSE(registry.presetNamed("Two"));
    preset->save();
    EXPECT_FALSE(stored().contains("Two")) << "a deleted preset is not written back";
    EXPECT_EQ(told, (QStringList{"One", "Two", "Two"}));
}

TEST_F(KVPresetRegistryTest, LosesNothingOfAnotherProgram) {
    KVPresetRegistry ours;
    names(ours);
    KVPreferences other(KVPreferences::shared().filePath());
    QVariantMap entries = other.value(Keys::PresetSettings).toMap();
    entries["Theirs"] = customMP3("Theirs")->dictionaryRepresentation();
    other.setValue(entries, Keys::PresetSettings);

    ours.registerPreset(customMP3("Ours"));
    ours.unregisterPreset(ours.presetNamed("WAV"));
    EXPECT_EQ(stored()["Theirs"], entries["Theirs"]);
    EXPECT_TRUE(stored().contains("Ours"));
    EXPECT_FALSE(stored().contains("WAV"));
}

TEST_F(KVPresetRegistryTest, FindsTheDefaultPreset) {
    KVPresetRegistry registry;
    registry.registerPreset(customMP3("Mine"));
    EXPECT_EQ(registry.defaultPreset(KVMediaFileType::audio)->name, "MP3");
    for (const auto &[last, wanted] :
         std::vector<std::pair<QVariant, QString>>{{"Mine", "Mine"}, {"Gone", "MP3"}, {12, "MP3"}}) {
        KVPreferences::shared().setValue(last, {"ZRLastUsedPresetAudio"});
        EXPECT_EQ(registry.defaultPreset(KVMediaFileType::audio)->name, wanted);
    }
}

TEST_F(KVPresetRegistryTest, MakesMenus) {
    KVPresetRegistry registry;
    registry.presetNamed("WAV")->isEnabled = false;
    const auto mp3 = registry.presetNamed("MP3");
    const auto startsWithM = [](const KVPreset &preset) { return preset.name.startsWith("M"); };

    const auto audio = registry.presetMenuForType(KVMediaFileType::audio, mp3, startsWithM);
    QStringList titles;
    for (const auto &item : audio) {
        EXPECT_FALSE(item.isSeparator);
        EXPECT_EQ(item.isOn, item.preset == mp3);
        titles.append(item.title);
    }
    EXPECT_EQ(titles, (QStringList{"M4A", "MP2", "MP3"}));
    EXPECT_EQ(audio.back().toolTip, "Audio: MP3");

    const auto video = registry.presetMenuForType(KVMediaFileType::video, nullptr);
    const auto separator = std::ranges::find(video, true, &KVPresetMenuItem::isSeparator);
    ASSERT_NE(separator, video.end());
    EXPECT_TRUE(std::all_of(video.begin(), separator, [](const auto &item) {
        return item.preset->presetType() == KVMediaFileType::video;
    }));
    const auto isMP3 = [&](const auto &item) { return item.preset == mp3; };
    EXPECT_TRUE(std::any_of(separator, video.end(), isMP3));
    const auto isWAV = [](const auto &item) { return item.title == "WAV"; };
    EXPECT_TRUE(std::none_of(video.begin(), video.end(), isWAV)) << "a disabled preset is left out";
}

TEST_F(KVPresetRegistryTest, IsMadeOnceWhicheverThreadComesFirst) {
    KVPresetRegistry registry;
    std::vector<std::shared_ptr<KVPreset>> found(4);
    std::vector<std::thread> threads;
    for (auto &preset : found)
        threads.emplace_back([&] { preset = registry.presetNamed("MP3"); });
    for (auto &thread : threads)
        thread.join();
    for (const auto &preset : found)
        EXPECT_EQ(preset, found.front());
}
