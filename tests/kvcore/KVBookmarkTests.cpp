#include "kvcore/KVBookmark.h"
#include "support/KVTestCase.h"

using KVBookmarkTest = KVTestCase;

TEST_F(KVBookmarkTest, ComesBackAsTheSameFile) {
    const QUrl file = QUrl::fromLocalFile(QString::fromUtf8("/tmp/ä b%20c#d?e.mov"));
    const auto data = KVBookmark::data(file);
    ASSERT_TRUE(data);
    EXPECT_EQ(KVBookmark::resolve(*data), file);
    EXPECT_FALSE(KVBookmark::data(QUrl("http://example.org/a")));
    for (const char *wrong : {"", "no bookmark", "http://example.org/a", "\xff\xfe"})
        EXPECT_FALSE(KVBookmark::resolve(wrong)) << wrong;
}

TEST_F(KVBookmarkTest, ReadsWhatAPersonTypedIntoThePreferences) {
    const KVPreferences::Key key{"folder"};
    using Manager = KVAppScopeBookmarksManager;
    EXPECT_FALSE(Manager::url(key));
    Manager::setURL(url("out"), key);
    EXPECT_EQ(Manager::url(key), url("out"));
    Manager::removeURL(key);
    EXPECT_FALSE(Manager::url(key));

    const std::vector<std::pair<QVariant, std::optional<QUrl>>> rows{
        {"/a b/100%", QUrl::fromLocalFile("/a b/100%")},
        {"file:///a%20b", QUrl::fromLocalFile("/a b")},
        {"~/Movies", QUrl::fromLocalFile(QDir::homePath() + "/Movies")},
        {"Movies", {}},
        {"", {}},
        {5, {}},
    };
    for (const auto &[stored, expected] : rows) {
        KVPreferences::shared().setValue(stored, key);
        EXPECT_EQ(Manager::url(key), expected) << stored.toString().toStdString();
    }
}
