#include "platform/KVFileManager.h"
#include "platform/KVResources.h"
#include "support/KVSmallFilesOnly.h"
#include "support/KVTestCase.h"

#include <cerrno>
#include <cstdio>
#include <optional>

using KVFileManagerTest = KVTestCase;

TEST_F(KVFileManagerTest, ListsAFolderInTheOrderOfItsNamesAndTellsWhatItCannotName) {
    for (const char *name : {"b.mov", ".hidden", "a 100%#?.mov", "Z", "line\nfeed", "c/inner"})
        write(QString::fromUtf8(name), "x");
    QFile::link("nowhere", path("dangling"));
    const std::string raw = path().toStdString() + "/caf\xe9.mov";
    FILE *file = std::fopen(raw.c_str(), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);

    const auto contents = KVFileManager::contentsOfDirectory(url(""));
    ASSERT_TRUE(contents);
    QStringList names;
    for (const QUrl &entry : *contents)
        names.append(KVFileManager::lastPathComponent(entry));
    EXPECT_EQ(names, (QStringList{".hidden", "Z", "a 100%#?.mov", "b.mov", "c", "dangling", "line\nfeed"}));
    EXPECT_EQ(contents->at(2), url("a 100%#?.mov"));
    EXPECT_EQ(KVFileManager::undecodableNames(url("")), QStringList{"caf\\xE9.mov"});

    const auto missing = KVFileManager::contentsOfDirectory(url("missing"));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, ENOENT);
    EXPECT_TRUE(missing.error().reason.contains(path("missing")));
}

TEST_F(KVFileManagerTest, TellsWhatIsThere) {
    write("file", "12345");
    QFile::link(path("missing"), path("dangling"));
    QFile::link(path(), path("loop"));
    EXPECT_TRUE(KVFileManager::isReachable(url("file")));
    EXPECT_FALSE(KVFileManager::isReachable(url("dangling")));
    EXPECT_TRUE(KVFileManager::isDirectory(url("loop")));
    EXPECT_FALSE(KVFileManager::isDirectory(url("file")));
    EXPECT_EQ(KVFileManager::fileSize(url("file")), 5);
    EXPECT_EQ(KVFileManager::fileSize(url("missing")), 0);
    EXPECT_TRUE(KVFileManager::modificationDate(url("file")));
    EXPECT_FALSE(KVFileManager::modificationDate(url("missing")));
    EXPECT_TRUE(KVFileManager::isWritable(url("")));
    EXPECT_FALSE(KVFileManager::isWritable(url("missing")));
}

TEST_F(KVFileManagerTest, MakesAndRemovesFoldersWithoutFollowingLinks) {
    write("precious/file", "x");
    ASSERT_TRUE(KVFileManager::createDirectory(url("a/b/c")));
    ASSERT_TRUE(KVFileManager::createDirectory(url("a/b/c")));
    EXPECT_FALSE(KVFileManager::createDirectory(url("precious/file")));
    EXPECT_FALSE(KVFileManager::createDirectory(url("precious/file/below")));
    QFile::link(path("precious"), path("a/b/link"));
    ASSERT_TRUE(KVFileManager::removeItem(url("a")));
    EXPECT_FALSE(KVFileManager::isReachable(url("a")));
    EXPECT_TRUE(KVFileManager::isReachable(url("precious/file")));
    EXPECT_EQ(KVFileManager::removeItem(url("a")).error().code, ENOENT);
}

TEST_F(KVFileManagerTest, CopiesWithoutOverwritingOrLeavingHalfAFile) {
    write("from/a", "content");
    write("taken", "old");
    QFile::link(path("from/a"), path("link"));
    EXPECT_TRUE(KVFileManager::copyItem(url("link"), url("copy")));
    EXPECT_FALSE(QFileInfo(path("copy")).isSymLink());
    EXPECT_EQ(read(path("copy")), "content");
    EXPECT_TRUE(KVFileManager::copyItem(url("from"), url("folder")));
    EXPECT_EQ(read(path("folder/a")), "content");
    EXPECT_EQ(KVFileManager::copyItem(url("from/a"), url("taken")).error().code, EEXIST);
    EXPECT_EQ(read(path("taken")), "old");
    EXPECT_EQ(KVFileManager::copyItem(url("missing"), url("x")).error().code, ENOENT);

    write("big", QByteArray(100'000, 'x'));
    std::optional<KVSmallFilesOnly> fullDisk(1000);
    const auto copied = KVFileManager::copyItem(url("big"), url("half"));
    fullDisk.reset();
    EXPECT_FALSE(copied);
    EXPECT_FALSE(KVFileManager::isReachable(url("half")));
}

TEST_F(KVFileManagerTest, TakesURLsApart) {
    struct Row {
        const char *path;
        const char *folder;
        const char *name;
        const char *extension;
        const char *withoutExtension;
    };
    const std::vector<Row> rows{
        {"/a/b.c.mov", "/a", "b.c.mov", "mov", "/a/b.c"},
        {"/a.d/b", "/a.d", "b", "", "/a.d/b"},
        {"/a/.mov", "/a", ".mov", "", "/a/.mov"},
        {"/a/.b.mov", "/a", ".b.mov", "mov", "/a/.b"},
        {"/a/b/", "/a", "b", "", "/a/b"},
        {"/a%20#?/b%.m4a", "/a%20#?", "b%.m4a", "m4a", "/a%20#?/b%"},
        {"/top", "/", "top", "", "/top"},
        {"/a/..", "/a", "..", "", "/a/.."},
    };
    for (const Row &row : rows) {
        const QUrl url = QUrl::fromLocalFile(row.path);
        EXPECT_EQ(KVFileManager::deletingLastPathComponent(url), QUrl::fromLocalFile(row.folder)) << row.path;
        EXPECT_EQ(KVFileManager::lastPathComponent(url), row.name) << row.path;
        EXPECT_EQ(KVFileManager::pathExtension(url), row.extension) << row.path;
        EXPECT_EQ(KVFileManager::deletingPathExtension(url).toLocalFile(), row.withoutExtension) << row.path;
        EXPECT_EQ(KVFileManager::appendingPathExtension(url, "x"),
                  KVFileManager::appendingPathComponent(QUrl::fromLocalFile(row.folder),
                                                        QString::fromUtf8(row.name) + ".x"))
            << row.path;
    }
    EXPECT_EQ(KVFileManager::appendingPathExtension(url("a"), ""), url("a"));
    EXPECT_EQ(KVFileManager::deletingPathExtension(QString("a.b.mov")), "a.b");
    EXPECT_NE(KVFileManager::uniqueName(), KVFileManager::uniqueName());
}

TEST_F(KVFileManagerTest, FindsResourcesAndCountsADanglingLinkAsOne) {
    const QString usual = KVResources::directory();
    KVResources::setDirectory(path());
    write("fonts.conf", "x");
    QFile::link(path("not/installed"), path("ffmpeg"));
    EXPECT_EQ(KVResources::path("fonts", "conf"), path("fonts.conf"));
    EXPECT_EQ(KVResources::path("ffmpeg"), path("ffmpeg"));
    EXPECT_EQ(KVResources::path("dvdauthor"), std::nullopt);
    // Beside the executable, wherever that has been put.
    KVResources::setDirectory({});
    EXPECT_EQ(QDir(KVResources::directory()), QDir(usual));
}
