#include "platform/KVProcess.h"
#include "support/KVTestCase.h"

class KVProcessTest : public KVTestCase {
  protected:
    static QByteArray readAll(KVProcess &process, KVFileHandle &handle) {
        QByteArray all;
        while (process.isRunning())
            all += handle.availableData();
        return all;
    }
};

TEST_F(KVProcessTest, ReadsAllThatAChattyChildWrites) {
    KVProcess process;
    process.setLaunchPath("/bin/sh");
    process.setArguments({"-c", "head -c 5000000 /dev/zero; exit 3"});
    const auto handle = process.setStandardOutput(KVProcess::Stream::pipe);
    ASSERT_TRUE(process.launch());
    EXPECT_EQ(readAll(process, *handle), QByteArray(5'000'000, '\0'));
    process.waitUntilExit();
    EXPECT_EQ(process.terminationStatus(), 3);
}
