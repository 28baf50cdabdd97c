#include "util/KVHiddenOutput.h"

#include "support/KVTestCase.h"

namespace {

/// With and without a name, whichever the file system knows.
class KVHiddenOutputTest : public KVTestCase, public testing::WithParamInterface<bool> {
  protected:
    std::unique_ptr<KVHiddenOutput> create() const {
        auto output =
            GetParam() ? KVHiddenOutput::createWithHiddenName(path()) : KVHiddenOutput::create(path());
        EXPECT_TRUE(output);
        return std::move(*output);
    }

    QStringList names() const {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    QString numbered(int attempt) const { return path("name." + QString::number(attempt)); }
};

INSTANTIATE_TEST_SUITE_P(Kinds, KVHiddenOutputTest, testing::Bool());

} // namespace

TEST_P(KVHiddenOutputTest, TakesTheFirstFreeNameWhenItIsWhole) {
    write("name.0", "older");
    const auto output = create();
    EXPECT_EQ(output->write("xholx", 5), 5);
    EXPECT_TRUE(output->writeAt(0, "w", 1));
    EXPECT_TRUE(output->writeAt(4, "e", 1));
    EXPECT_EQ(names().filter("name"), QStringList{"name.0"});

    const auto published = output->publish([&](int attempt) { return numbered(attempt); });
    ASSERT_TRUE(published);
    EXPECT_EQ(*published, numbered(1));
    EXPECT_EQ(read(*published), "whole");
    EXPECT_EQ(read(numbered(0)), "older");
    const auto permissions = QFile::permissions(write("ordinary", {}));
    EXPECT_EQ(QFile::permissions(*published), permissions);
}

TEST_P(KVHiddenOutputTest, LeavesNothingWhenItIsGivenUp) {
    create()->write("half", 4);
    EXPECT_EQ(names(), QStringList());
    const auto unnameable = create();
    EXPECT_FALSE(unnameable->publish([&](int) { return path("missing/folder"); }));
    EXPECT_FALSE(KVHiddenOutput::create(path("missing")));
}
