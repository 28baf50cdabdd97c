#include "kvcore/KVPreferences.h"
#include "kvcore/KVPreferencesCoding.h"
#include "support/KVSmallFilesOnly.h"
#include "support/KVTestCase.h"

#include <QDateTime>
#include <QFileInfo>

#include <chrono>
#include <future>
#include <limits>
#include <optional>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using Key = KVPreferences::Key;

class KVPreferencesTest : public KVTestCase {
  protected:
    QString file() const { return path("config/kalvora/preferences.json"); }
    void write(const QByteArray &content) const {
        KVTestCase::write("config/kalvora/preferences.json", content);
    }
    QStringList files() const {
        return QDir(path("config/kalvora")).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    const Key _a{"a"}, _b{"b"}, _list{"list"};
};

TEST_F(KVPreferencesTest, GivesEveryTypeBackAfterARestart) {
    const QVariantList values{
        true,
        false,
        Q_INT64_C(9007199254740993),
        std::numeric_limits<qint64>::min(),
        25.0,
        0.1,
        1e300,
        -std::numeric_limits<double>::infinity(),
        QString::fromUtf8("tëxt \"q\"\n"),
        QString(""),
        QByteArray("\0\xff binary", 9),
        QByteArray(""),
        QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59, 123), Qt::UTC),
        QVariantList{1LL, QVariantMap{{"x", QByteArray("y")}}, QVariantList{}},
        QVariantMap{{"$real", 3LL}},
        QVariantMap{{"$dictionary", QVariantMap{{"$data", "text"}}}},
        QVariantMap{{"$data", 1LL}, {"b", 2.0}},
        QVariantMap{},
    };
    for (qsizetype index = 0; index < values.size(); ++index)
        KVPreferences(file()).setValue(values[index], Key{QString::number(index)});

    const KVPreferences reopened(file());
    for (qsizetype index = 0; index < values.size(); ++index) {
        const QVariant stored = reopened.value(Key{QString::number(index)});
        EXPECT_EQ(stored.typeId(), values[index].typeId()) << index;
        EXPECT_EQ(stored, values[index]) << index;
    }
    EXPECT_EQ(reopened.allKeys().size(), values.size());
}

TEST_F(KVPreferencesTest, SeesAChangeOfTypeAloneAsAChange) {
    KVPreferences(file()).setInteger(1, _a);
    KVPreferences(file()).setBoolean(true, _a);
    EXPECT_EQ(KVPreferences(file()).value(_a).typeId(), QMetaType::Bool);
    KVPreferences(file()).setValue(1.0, _a);
    EXPECT_EQ(KVPreferences(file()).value(_a).typeId(), QMetaType::Double);
}

TEST_F(KVPreferencesTest, TreatsAValueOfAnotherTypeAsMissing) {
    write(R"({"text": "yes", "real": 2.5, "whole": {"$real": 2}, "on": true, "seven": 7, "null": null,
              "list": [1], "huge": 1e300, "tag": {"$data": "%%"}})");
    const KVPreferences store(file());
    struct Row {
        const char *key;
        bool boolean;   // with the default true
        qint64 integer; // with the default -1
    };
    const std::vector<Row> rows{{"text", true, -1}, {"real", true, -1}, {"whole", true, 2},
                                {"on", true, 1},    {"seven", true, 7}, {"null", true, -1},
                                {"list", true, -1}, {"huge", true, -1}, {"missing", true, -1}};
    for (const Row &row : rows) {
        EXPECT_EQ(store.boolean(Key{row.key}, true), row.boolean) << row.key;
        EXPECT_EQ(store.integer(Key{row.key}, -1), row.integer) << row.key;
    }
    EXPECT_FALSE(store.boolean(Key{"text"}, false));
    EXPECT_TRUE(store.boolean(Key{"seven"}, false));
    EXPECT_FALSE(store.value(Key{"null"}).isValid());
    EXPECT_FALSE(store.allKeys().contains("null"));
    EXPECT_EQ(store.value(Key{"tag"}).toMap().value("$data"), "%%");
    EXPECT_EQ(store.value(Key{"missing"}, 5), 5);
}

TEST_F(KVPreferencesTest, KeepsWhatAnotherObjectWroteMeanwhile) {
    KVPreferences one(file());
    KVPreferences other(file());
    one.setInteger(1, _a);
    other.setInteger(2, _b);
    EXPECT_EQ(one.integer(_b, 0), 2);
    one.perform([&] {
        one.setInteger(10, _a);
        other.setInteger(20, _b);
        other.setInteger(30, Key{"c"});
    });
    other.setValue({}, _b);
    EXPECT_EQ(KVPreferences(file()).integer(_a, 0), 10);
    EXPECT_EQ(one.integer(Key{"c"}, 0), 30);
    EXPECT_EQ(one.allKeys(), (QStringList{"a", "c"}));
}

TEST_F(KVPreferencesTest, LosesNothingOfSeveralWritersAtOnce) {
    constexpr int writers = 4;
    constexpr int rounds = 25;
    KVPreferences shared(file());
    {
        std::vector<std::jthread> threads;
        for (int writer = 0; writer < writers; ++writer)
            threads.emplace_back([&, writer] {
                KVPreferences own(file());
                KVPreferences &store = writer % 2 == 0 ? own : shared;
                for (int round = 0; round < rounds; ++round) {
                    store.setInteger(round, Key{QStringLiteral("writer%1").arg(writer)});
                    EXPECT_TRUE(store.update(_list, [&](const QVariant &current) {
                        return QVariant(current.toList() << QVariant(writer * rounds + round));
                    }));
                }
            });
    }
    QList<qint64> entries;
    for (const QVariant &entry : shared.value(_list).toList())
        entries.append(entry.toLongLong());
    std::ranges::sort(entries);
    QList<qint64> expected(writers * rounds);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(entries, expected);
    for (int writer = 0; writer < writers; ++writer)
        EXPECT_EQ(shared.integer(Key{QStringLiteral("writer%1").arg(writer)}, -1), rounds - 1);
}

TEST_F(KVPreferencesTest, ReadsDoNotWaitForAWriteThatHangs) {
    using namespace std::chrono_literals;
    KVPreferences store(file());
    store.setInteger(1, _a);
    // Another process that is at work keeps our writer waiting.
    const int lock = ::open((file() + ".lock").toUtf8().constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    std::jthread writer([&] { store.setInteger(2, _b); });
    auto reading = std::async(std::launch::async, [&] {
        while (store.integer(_b, 0) != 2) // the new value counts at once
            std::this_thread::sleep_for(1ms);
        return store.integer(_a, 0);
    });
    const bool hasRead = reading.wait_for(10s) == std::future_status::ready;
    EXPECT_EQ(KVPreferences(file()).integer(_b, 0), 0);
    ::close(lock);
    writer.join();
    EXPECT_TRUE(hasRead);
    EXPECT_EQ(reading.get(), 1);
    EXPECT_EQ(KVPreferences(file()).integer(_b, 0), 2);
}

TEST_F(KVPreferencesTest, WritesAllChangesOfOnePerformTogether) {
    KVPreferences store(file());
    const KVPreferences other(file());
    EXPECT_TRUE(store.perform([&] {
        store.setInteger(1, _a);
        EXPECT_TRUE(store.perform([&] { store.setInteger(2, _b); }));
        EXPECT_EQ(store.integer(_b, 0), 2);
        EXPECT_FALSE(QFileInfo::exists(file()));
        std::jthread([&] { EXPECT_EQ(store.integer(_b, 0), 0); }).join();
    }));
    EXPECT_EQ(other.integer(_a, 0), 1);
    EXPECT_EQ(other.integer(_b, 0), 2);

    struct stat folder = {};
    ASSERT_EQ(::stat(path("config/kalvora").toUtf8().constData(), &folder), 0);
    EXPECT_EQ(folder.st_mode & 0777, 0700U);
    EXPECT_EQ(files(), (QStringList{"preferences.json", "preferences.json.lock"}));
}

TEST_F(KVPreferencesTest, NeverWritesWhatHoldsForThisRunOnly) {
    KVPreferences store(file());
    store.setInteger(1, _a);
    store.setValueForThisRun(2, _a);
    store.setInteger(3, _b);
    EXPECT_EQ(store.integer(_a, 0), 2);
    EXPECT_EQ(KVPreferences(file()).integer(_a, 0), 1);
}

TEST_F(KVPreferencesTest, LetsAnUpdateReadAndSetOtherKeys) {
    KVPreferences store(file());
    store.setInteger(3, _a);
    EXPECT_TRUE(store.update(_list, [&](const QVariant &) {
        store.setInteger(store.integer(_a, 0) + 1, _b);
        return QVariant(store.integer(_a, 0));
    }));
    const KVPreferences reopened(file());
    EXPECT_EQ(reopened.integer(_list, 0), 3);
    EXPECT_EQ(reopened.integer(_b, 0), 4);
}

TEST_F(KVPreferencesTest, KeepsADamagedFileAsideAndGoesOn) {
    QStringList kept;
    KVPreferences::setDamageReporter([&](const QString &of, const QString &as) {
        EXPECT_EQ(of, file());
        kept.append(as);
    });
    const QList<QByteArray> contents{"", "{\"a\": 1, \"b\"", "[1, 2]", QByteArray("\0\1\2", 3),
                                     "{\"a\": \"\xff\"}"};
    for (const QByteArray &content : contents) {
        kept.clear();
        write(content);
        KVPreferences store(file());
        EXPECT_EQ(store.integer(_a, 7), 7);
        EXPECT_EQ(KVPreferences(file()).integer(_a, 8), 8);
        ASSERT_EQ(kept.size(), 1) << content.toStdString();
        EXPECT_EQ(read(kept.first()), content);
        EXPECT_TRUE(store.perform([&] { store.setInteger(2, _a); }));
        EXPECT_EQ(KVPreferences(file()).integer(_a, 0), 2);
    }
    EXPECT_EQ(files().filter(".damaged-").size(), contents.size());
    KVPreferences::setDamageReporter({});
}

TEST_F(KVPreferencesTest, KeepsADamagedFileAsideWhenItIsWrittenFirst) {
    write("{\"a\": 1");
    KVPreferences store(file());
    store.setInteger(2, _b);
    EXPECT_EQ(files().filter(".damaged-").size(), 1);
    EXPECT_EQ(KVPreferences(file()).allKeys(), QStringList{"b"});
}

TEST_F(KVPreferencesTest, KeepsValuesInMemoryUntilTheFileCanBeWritten) {
    KVTestCase::write("config", "in the way");
    KVPreferences store(file());
    EXPECT_FALSE(store.perform([&] { store.setInteger(1, _a); }));
    EXPECT_FALSE(store.update(_list, [](const QVariant &) { return QVariantList{1}; }));
    EXPECT_EQ(store.integer(_a, 0), 1);
    EXPECT_EQ(store.value(_list).toList().size(), 1);

    QFile::remove(path("config"));
    EXPECT_TRUE(store.perform([&] { store.setInteger(2, _b); }));
    EXPECT_EQ(KVPreferences(file()).allKeys(), (QStringList{"a", "b", "list"}));
}

TEST_F(KVPreferencesTest, LeavesTheOldFileWhenTheDiskIsFull) {
    KVPreferences store(file());
    store.setInteger(1, _a);
    const QByteArray before = read(file());

    std::optional<KVSmallFilesOnly> fullDisk(1000);
    EXPECT_FALSE(store.perform([&] { store.setValue(QString(5000, 'x'), _b); }));
    fullDisk.reset();

    EXPECT_EQ(read(file()), before);
    EXPECT_EQ(files(), (QStringList{"preferences.json", "preferences.json.lock"}));
    EXPECT_EQ(store.value(_b).toString().size(), 5000);
}

TEST_F(KVPreferencesTest, NeverReplacesWhatItCannotRead) {
    QDir().mkpath(file() + "/inside");
    KVPreferences store(file());
    EXPECT_FALSE(store.perform([&] { store.setInteger(1, _a); }));
    EXPECT_EQ(store.integer(_a, 0), 1);
    EXPECT_TRUE(QFileInfo::exists(file() + "/inside"));
}

TEST_F(KVPreferencesTest, WritesThroughALink) {
    const QString real = KVTestCase::write("dotfiles/prefs.json", R"({"a": 1})");
    QDir().mkpath(path("config/kalvora"));
    ASSERT_TRUE(QFile::link(real, file()));
    KVPreferences(file()).setInteger(2, _b);
    EXPECT_TRUE(QFileInfo(file()).isSymLink());
    EXPECT_EQ(KVPreferences(real).integer(_b, 0), 2);
}

TEST_F(KVPreferencesTest, RefusesATypeThatItCouldNotGiveBack) {
    EXPECT_DEATH(KVPreferences(file()).setValue(QUrl("file:///a"), _a), "takes no value of type \"QUrl\"");
}
