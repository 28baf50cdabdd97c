#include "core/KVHistoryCenter.h"
#include "kvcore/KVBookmark.h"
#include "kvcore/KVMainThread.h"
#include "support/KVTestCase.h"
#include "util/KVPreferenceKeys.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

class KVHistoryCenterTest : public KVTestCase {
  protected:
    void SetUp() override { store({}); }

    static void store(const QVariant &value) {
        KVPreferences::shared().setValue(value, KVPreferenceKeys::HistoryCenterItems);
    }
    static QVariantList stored() {
        return KVPreferences::shared().value(KVPreferenceKeys::HistoryCenterItems).toList();
    }
    static QStringList names(const KVHistoryCenter &center) {
        QStringList names;
        for (const auto &item : center.historyItems())
            names += item.url.fileName();
        return names;
    }
    QUrl made(const QString &name) const { return QUrl::fromLocalFile(write(name, "x")); }
};

TEST_F(KVHistoryCenterTest, KeepsWhatWasMadeFromRunToRun) {
    const QDateTime before = QDateTime::currentDateTimeUtc();
    {
        KVHistoryCenter center;
        center.addFile(made("a % ü.mp3"), KVMediaFileType::audio);
        center.addFile(made("b.iso"), KVMediaFileType::dvd);
        center.addFile(made("b.iso"), KVMediaFileType::dvd); // twice is twice
        center.addFile(made("gone.mp4"), KVMediaFileType::video);
        center.addFile(made("untyped"), KVMediaFileType::none);
    }
    QFile::remove(path("gone.mp4"));
    KVHistoryCenter center;
    EXPECT_EQ(names(center), (QStringList{"a % ü.mp3", "b.iso", "b.iso"}));
    const auto first = center.historyItems().first();
    EXPECT_EQ(first.type, KVMediaFileType::audio);
    EXPECT_GE(first.date, before.addMSecs(-1));
    EXPECT_TRUE(first.description().startsWith("{\n\tType: Audio\n\tDate: "));
    EXPECT_TRUE(first.description().endsWith("\n\tFile Path: " + path("a % ü.mp3") + "\n}"));
    EXPECT_EQ(stored().size(), 5); // rewritten at the next change only
    center.save();
    EXPECT_EQ(stored().size(), 3);
}

TEST_F(KVHistoryCenterTest, DropsEntriesThatAreNone) {
    const QDateTime date = QDateTime::currentDateTimeUtc();
    const QString file = made("x.mp3").toLocalFile();
    const auto entry = [&](const QVariant &type, const QVariant &place, const QVariant &when) {
        return QVariantMap{
            {"ZRHistoryItemType", type}, {"ZRHistoryItemURLData", place}, {"ZRHistoryItemDate", when}};
    };
    store(QVariantList{entry(1, file, date), entry(4, "file://" + file, date),
                       entry(3, *KVBookmark::data(QUrl::fromLocalFile(file)), date), entry(0, file, date),
                       entry(7, file, date), entry(0, "file://[", date), entry(1, 5, date),
                       entry(1, {}, date), entry(1, file, "today"), "nonsense", 12});
    EXPECT_EQ(names(KVHistoryCenter()), (QStringList{"x.mp3", "x.mp3", "x.mp3"}));
    for (const QVariant &nonsense : {QVariant("text"), QVariant(3), QVariant(QVariantMap{{"a", 1}})}) {
        store(nonsense);
        EXPECT_TRUE(KVHistoryCenter().historyItems().isEmpty());
    }
}

TEST_F(KVHistoryCenterTest, LosesNothingThatAnotherProcessAdds) {
    const auto add = [this](KVHistoryCenter &history, const char *name) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2)); // entries of one millisecond have no order
        history.addFile(made(name), KVMediaFileType::audio);
    };
    KVHistoryCenter window;
    add(window, "1.mp3");
    window.saveWhatIsUnsaved();
    KVHistoryCenter commandLine;
    add(commandLine, "2.mp3");
    commandLine.saveWhatIsUnsaved();
    add(window, "3.mp3");
    window.save();
    add(commandLine, "4.mp3");
    commandLine.save();
    EXPECT_EQ(names(KVHistoryCenter()), (QStringList{"1.mp3", "2.mp3", "3.mp3", "4.mp3"}));

    window.clear();
    EXPECT_EQ(stored().size(), 4); // not before the save
    window.save();
    EXPECT_EQ(stored().size(), 0);
    commandLine.addFile(made("5.mp3"), KVMediaFileType::audio);
    commandLine.save();
    window.addFile(made("6.mp3"), KVMediaFileType::audio);
    window.save();
    EXPECT_TRUE(names(KVHistoryCenter()).endsWith("6.mp3"));
}

TEST_F(KVHistoryCenterTest, SavesRarelyWhereManyFilesComeQuickly) {
    QStringList all;
    qsizetype storedBetween = 0;
    {
        KVHistoryCenter center;
        const auto add = [&] {
            all += QString("%1.mp3").arg(all.size());
            center.addFile(made(all.last()), KVMediaFileType::audio);
        };
        add();
        EXPECT_TRUE(KVMainThread::runUntil([] { return stored().size() == 1; }, 20));
        for (int file = 0; file < 200; ++file) {
            add();
            storedBetween += stored().size() == all.size() ? 1 : 0;
        }
        EXPECT_LT(storedBetween, 20);
        EXPECT_TRUE(KVMainThread::runUntil([&] { return stored().size() == all.size(); }, 20));
        add();
        add();
    } // nothing is lost with an exit
    EXPECT_EQ(names(KVHistoryCenter()), all);
}

TEST_F(KVHistoryCenterTest, SavesTheFilesOfWorkersBeforeTheyGoOn) {
    KVHistoryCenter center;
    std::atomic<int> workers = 8;
    std::atomic<int> unsaved = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 8; ++number)
        threads.emplace_back([&, url = made(QString("%1.mp3").arg(number))] {
            center.addFileAndSave(url, KVMediaFileType::audio);
            const auto items = stored();
            unsaved += std::ranges::none_of(items, [&](const QVariant &item) {
                return KVHistoryItem::fromDictionary(item.toMap())->url == url;
            });
            --workers;
            KVMainThread::async([] {}); // wakes the event loop
        });
    EXPECT_TRUE(runUntil([&] { return workers == 0; }));
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(unsaved, 0);
    EXPECT_EQ(stored().size(), 8);
}

TEST_F(KVHistoryCenterTest, AnnouncesEveryChangeBeforeAndAfter) {
    KVHistoryCenter center;
    QStringList seen;
    center.setObserver([&](const KVHistoryChange &change, bool isPrior) {
        seen += QString("%1 %2+%3 of %4")
                    .arg(change.kind == KVHistoryChange::Kind::inserted ? "in" : "out")
                    .arg(change.first)
                    .arg(change.count)
                    .arg(center.historyItems().size());
        EXPECT_EQ(isPrior, seen.size() % 2 == 1);
    });
    center.addFile(made("a"), KVMediaFileType::audio);
    center.addFile(made("b"), KVMediaFileType::audio);
    center.clear();
    EXPECT_EQ(seen, (QStringList{"in 0+1 of 0", "in 0+1 of 1", "in 1+1 of 1", "in 1+1 of 2", "out 0+2 of 2",
                                 "out 0+2 of 0"}));
}

} // namespace
