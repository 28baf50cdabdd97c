#include "kvcore/KVBookmark.h"
#include "support/KVTestCase.h"
#include "util/KVPreferenceKeys.h"
#include "util/KVThreadCount.h"

#include <sched.h>

namespace {

using namespace KVReflectablePreferences;

class KVSettingsTest : public KVTestCase {
  protected:
    static KVPreferences &store() { return KVPreferences::shared(); }
};

TEST_F(KVSettingsTest, ProcessorSettingFollowsTheOlderOneUntilItIsChosen) {
    EXPECT_EQ(cpuSettings(), KVCPUSettings::high);
    store().setBoolean(true, KVPreferenceKeys::PreferLowerCPUUsage);
    EXPECT_EQ(cpuSettings(), KVCPUSettings::medium);

    const std::vector<std::pair<int, KVCPUSettings>> rows{{0, KVCPUSettings::high},
                                                          {1, KVCPUSettings::medium},
                                                          {2, KVCPUSettings::low},
                                                          {3, KVCPUSettings::high},
                                                          {-1, KVCPUSettings::high}};
    for (const auto &[stored, expected] : rows) {
        store().setInteger(stored, KVPreferenceKeys::CPUSettings);
        EXPECT_EQ(cpuSettings(), expected) << stored;
    }
    store().setValue("all of it", KVPreferenceKeys::CPUSettings);
    EXPECT_EQ(cpuSettings(), KVCPUSettings::medium) << "a value of another type counts as missing";
}

TEST_F(KVSettingsTest, EmptyPlaylistIsTheLibrary) {
    EXPECT_EQ(iTunesPlaylist(), "Library");
    store().setValue("", KVPreferenceKeys::iTunesPlaylist);
    EXPECT_EQ(iTunesPlaylist(), "Library");
    store().setValue("Films", KVPreferenceKeys::iTunesPlaylist);
    EXPECT_EQ(iTunesPlaylist(), "Films");
}

TEST_F(KVSettingsTest, ReflectionOfAnEmptyStoreShowsTheDefaults) {
    const QVariantMap expected{{"addsToiTunesWhenDone", false},
                               {"bouncesDockIconWhenDone", false},
                               {"clearsFinishedItemsRightAway", false},
                               {"cpuSettings", 0},
                               {"disablePreviews", false},
                               {"playsSoundsWhenDone", true},
                               {"fixedDestinationURL", "nil"},
                               {"hasGuessedLocation", false},
                               {"hasPerformedSandboxTransition", false},
                               {"iTunesGenre", ""},
                               {"iTunesMediaKind", qint64(0)},
                               {"iTunesPlaylist", "Library"},
                               {"lastUsedPresetNameForMediaType_audio", "nil"},
                               {"lastUsedPresetNameForMediaType_video", "nil"},
                               {"lastUsedPresetNameForMediaType_picture", "nil"},
                               {"lastUsedPresetNameForMediaType_dvd", "nil"},
                               {"numberOfConversionsPerformed", qint64(0)},
                               {"preservesCreationDate", false},
                               {"putsComputerToSleepWhenDone", false},
                               {"quitsWhenDone", false},
                               {"recursivelyProcessesAllFolders", false},
                               {"removesFileAfterAddingToiTunes", false},
                               {"requiresConfirmationOfConversionCancelation", true},
                               {"saveFilesToSourceFolder", true},
                               {"usesNTSCFormat", false}};
    EXPECT_EQ(dictionaryRepresentation(), expected);
    QStringList names = reflectedNames();
    EXPECT_EQ(names.indexOf("fixedDestinationURL"), 6) << "the order of the table, not of the alphabet";
    names.sort();
    EXPECT_EQ(names, expected.keys());
}

TEST_F(KVSettingsTest, ReflectionShowsWhatIsStored) {
    store().setBoolean(true, KVPreferenceKeys::DontPlaySoundOnDone);
    store().setValue("iPod", KVPreferenceKeys::lastUsedPreset(KVMediaFileType::video));
    KVAppScopeBookmarksManager::setURL(QUrl::fromLocalFile("/out put"),
                                       KVPreferenceKeys::FixedDestinationBookmark);
    EXPECT_EQ(store().value({"ZRLastUsedPresetVideo"}), "iPod");
    const QVariantMap reflected = dictionaryRepresentation();
    EXPECT_EQ(reflected["playsSoundsWhenDone"], false);
    EXPECT_EQ(reflected["lastUsedPresetNameForMediaType_video"], "iPod");
    EXPECT_EQ(reflected["lastUsedPresetNameForMediaType_audio"], "nil");
    EXPECT_EQ(reflected["fixedDestinationURL"], "file:///out%20put");
}

TEST_F(KVSettingsTest, ThreadsFollowProcessorsSettingAndMaximum) {
    const int active = KVProcessInfo::activeProcessorCount();
    struct Row {
        int setting, maximum, multiplier, expected;
    };
    const std::vector<Row> rows{{0, 1000000, 8, active * 8},
                                {1, 1000000, 8, active * 4},
                                {2, 1000000, 8, active * 2},
                                {0, active, 8, active},
                                {1, active * 2 + 1, 8, active},
                                {2, 1, 1, 1},
                                {0, 0, 2, 1}};
    for (const Row &row : rows) {
        store().setInteger(row.setting, KVPreferenceKeys::CPUSettings);
        EXPECT_EQ(KVThreadCount(row.maximum, row.multiplier), row.expected)
            << row.setting << " " << row.maximum << " " << row.multiplier;
    }
}

TEST_F(KVSettingsTest, ActiveProcessorsAreThoseThatTheProcessMayRunOn) {
    cpu_set_t before;
    ASSERT_EQ(::sched_getaffinity(0, sizeof before, &before), 0);
    EXPECT_EQ(KVProcessInfo::activeProcessorCount(), CPU_COUNT(&before));
    EXPECT_GE(KVProcessInfo::processorCount(), CPU_COUNT(&before));

    const int all = KVProcessInfo::processorCount();
    cpu_set_t one;
    CPU_ZERO(&one);
    for (int cpu = 0; cpu < CPU_SETSIZE && CPU_COUNT(&one) == 0; cpu++)
        if (CPU_ISSET(cpu, &before)) CPU_SET(cpu, &one);
    ASSERT_EQ(::sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_EQ(KVProcessInfo::activeProcessorCount(), 1);
    EXPECT_EQ(KVThreadCount(16, 2), 2);
    EXPECT_EQ(KVProcessInfo::processorCount(), all) << "what the machine has does not change";
    ::sched_setaffinity(0, sizeof before, &before);
}

} // namespace
