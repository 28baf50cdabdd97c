#include "util/KVTempDirectory.h"

#include "support/KVTestCase.h"

#include <array>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A second process, made before this one uses the folder, that does what it is told.
class OtherProcess {
  public:
    OtherProcess() {
        EXPECT_EQ(::pipe(_orders.data()), 0);
        EXPECT_EQ(::pipe(_answers.data()), 0);
        _pid = ::fork();
        if (_pid == 0) _obey();
    }
    ~OtherProcess() { end(); }

    void begin() { _order('b'); }
    void clean() { _order('c'); }
    void end() {
        if (_pid < 0) return;
        ::kill(_pid, SIGKILL);
        ::waitpid(_pid, nullptr, 0);
        _pid = -1;
    }

  private:
    [[noreturn]] void _obey() {
        for (char order = 0; ::read(_orders[0], &order, 1) == 1;) {
            if (order == 'b') KVTempDirectoryPath();
            if (order == 'c') KVCleanTempDirectory();
            (void)!::write(_answers[1], &order, 1);
        }
        ::_exit(0);
    }

    void _order(char order) {
        char answer = 0;
        EXPECT_EQ(::write(_orders[1], &order, 1), 1);
        EXPECT_EQ(::read(_answers[0], &answer, 1), 1);
    }

    std::array<int, 2> _orders{};
    std::array<int, 2> _answers{};
    pid_t _pid = -1;
};

class KVTempDirectoryTest : public KVTestCase {
  protected:
    static ino_t inode(const QString &path) {
        struct stat status {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
        return status.st_ino;
    }
    static void put(const QString &name) {
        QFile file(KVTempDirectoryPath() + "/" + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.fileName().toStdString();
    }
    static QStringList entries() {
        return QDir(KVTempDirectoryPath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(KVTempDirectoryTest, BecomesTheWorkingDirectoryOnceAndIsMadeOnEveryCall) {
    const QString folder = KVTempDirectoryPath();
    EXPECT_TRUE(folder.endsWith("/com.brenholt.kalvora/tmp"));
    EXPECT_EQ(inode("."), inode(folder));

    QDir::setCurrent(path());
    QDir(folder).removeRecursively();
    EXPECT_EQ(KVTempDirectoryURL(), QUrl::fromLocalFile(folder));
    EXPECT_TRUE(QDir(folder).exists());
    EXPECT_EQ(inode("."), inode(path()));
}

TEST_F(KVTempDirectoryTest, CleaningEmptiesTheFolderAndKeepsIt) {
    put("left.srt");
    put(".hidden");
    const QString kept = write("kept.txt", "kept");
    ASSERT_TRUE(QFile::link(path(), KVTempDirectoryPath() + "/link"));
    QDir(KVTempDirectoryPath()).mkpath("dvd/VIDEO_TS");
    put("dvd/VIDEO_TS/a.vob");
    const ino_t before = inode(KVTempDirectoryPath());

    KVCleanTempDirectory();
    EXPECT_EQ(entries(), QStringList());
    EXPECT_EQ(inode(KVTempDirectoryPath()), before) << "it is the working directory";
    EXPECT_EQ(read(kept), "kept") << "a link is removed, never followed";
}

TEST_F(KVTempDirectoryTest, NobodyEmptiesTheFolderThatAnotherProcessUses) {
    OtherProcess other;
    OtherProcess late;
    other.begin();
    put("a.srt");
    KVCleanTempDirectory();
    EXPECT_EQ(entries(), QStringList{"a.srt"});
    other.clean();
    EXPECT_EQ(entries(), QStringList{"a.srt"}) << "an attempt does not lose the own use of the folder";

    other.end();
    KVCleanTempDirectory();
    EXPECT_EQ(entries(), QStringList()) << "a killed process does not use the folder any more";

    put("b.srt");
    late.begin();
    late.clean();
    EXPECT_EQ(entries(), QStringList{"b.srt"}) << "after cleaning the folder is in use as before";
}

TEST_F(KVTempDirectoryTest, SystemFolderStandsInAndIsNeverEmptied) {
    qputenv("TMPDIR", write("system/precious.txt", "kept").chopped(13).toUtf8());
    qputenv("XDG_DATA_HOME", (write("file", "") + "/below").toUtf8());
    EXPECT_EQ(KVTempDirectoryPath(), path("system"));
    KVCleanTempDirectory();
    EXPECT_EQ(read(path("system/precious.txt")), "kept");
}

} // namespace
