#include "core/doors/KVWindowBusName.h"
#include "main_ui/KVFakeDesktop.h"
#include "main_ui/KVKalvoraApplication.h"
#include "main_ui/KVSingleApplication.h"
#include "main_ui/KVTestSessionBus.h"
#include "main_ui/main_window/table_view/KVQueueTableModel.h"
#include "platform/KVScriptedQuestions.h"
#include "support/KVTestCase.h"
#include "support/KVTestMedia.h"

#include <QDBusConnectionInterface>
#include <QDir>

class KVSessionBusTest : public KVTestCase {
  protected:
    void SetUp() override {
        QDir::setCurrent(path());
        KVPreferences::shared().setBoolean(true, KVPreferences::Key{"KVDidSeeReleaseNotes1202"});
    }

    /// Starts one of our programs.
    static std::unique_ptr<KVProcess> startProgram(const QString &name, const QStringList &arguments = {}) {
        auto program = std::make_unique<KVProcess>();
        program->setLaunchPath(QStringLiteral(KV_BUILD_DIRECTORY "/bin/") + name);
        program->setArguments(arguments);
        EXPECT_TRUE(program->launch());
        return program;
    }

    static int exitStatus(const KVProcess &program) {
        EXPECT_TRUE(runUntil([&] { return !program.isRunning(); }, 60));
        return program.terminationStatus();
    }

    static int command(const QStringList &words) { return exitStatus(*startProgram("kalvoractl", words)); }

    /// Like `runUntil`, for what happens in other processes.
    static bool waitFor(const std::function<bool()> &isDone) {
        for (int look = 0; look < 1500 && !isDone(); ++look)
            runUntil([] { return false; }, 0.02);
        return isDone();
    }

    /// How many processes have "long.wav" of the test in their command line.
    int numberOfChildren() const {
        int number = 0;
        for (const QString &process : QDir("/proc").entryList(QDir::Dirs)) {
            QFile words("/proc/" + process + "/cmdline");
            if (words.open(QIODevice::ReadOnly) && words.readAll().contains(path("long.wav").toUtf8()))
                ++number;
        }
        return number;
    }

    /// A window that has come up.
    static std::unique_ptr<KVProcess> startWindow() {
        auto window = startProgram("kalvora");
        const auto hasName = [] {
            return QDBusConnection::sessionBus().interface()->isServiceRegistered(KVWindowBusName::service);
        };
        EXPECT_TRUE(waitFor(hasName));
        return window;
    }

    QStringList files() const { return QDir(path()).entryList(QDir::Files); }

    KVTestSessionBus bus{path()};
};

TEST_F(KVSessionBusTest, ASecondStartHandsItsFilesOverAndEnds) {
    KVSingleApplication first;
    QList<QUrl> received;
    int activations = 0;
    QObject::connect(&first, &KVSingleApplication::filesReceived, &first,
                     [&](const QList<QUrl> &urls) { received += urls; });
    QObject::connect(&first, &KVSingleApplication::activated, &first, [&] { ++activations; });
    ASSERT_FALSE(first.handOver({}));

    EXPECT_EQ(exitStatus(*startProgram("kalvora", {"a name #1 %20 \u00e4.wav", "/b.wav"})), 0);
    EXPECT_EQ(received, (QList<QUrl>{url("a name #1 %20 \u00e4.wav"), QUrl::fromLocalFile("/b.wav")}));
    EXPECT_EQ(exitStatus(*startProgram("kalvora")), 0);
    EXPECT_EQ(activations, 1);
}

TEST_F(KVSessionBusTest, TellsTheDesktopWhatHappens) {
    KVFakeDesktop desktop(bus.address());
    const auto application = KVKalvoraApplication::create();
    KVUserQuestion::setResponder(std::make_shared<KVScriptedQuestions>());
    application->launch({QUrl::fromLocalFile(KVTestMedia::tone(path("a & b.wav"), 0.3)),
                         QUrl::fromLocalFile(KVTestMedia::tone(path("gone.wav"), 0.3))});
    ASSERT_TRUE(runUntil([&] { return application->window().tableModel().rowCount() == 3; }));
    QFile::remove(path("gone.wav"));
    application->start();
    ASSERT_TRUE(runUntil([&] {
        return desktop.notifications().contains("All conversions are done!|One conversion failed.");
    }));
    EXPECT_TRUE(desktop.notifications().contains(
        "Conversion finished!|File a &amp; b.wav has been successfully converted."));
    EXPECT_FALSE(desktop.notifications()
                     .filter("Conversion failed!|Conversion for file gone.wav has failed.\n")
                     .isEmpty());

    application->showInFileManager(url("a & b.mp3"));
    ASSERT_TRUE(runUntil([&] { return desktop.calls.back().member == "ShowItems"; }));
    EXPECT_EQ(desktop.calls.back().arguments.first().toStringList(),
              QStringList{url("a & b.mp3").toString(QUrl::FullyEncoded)});
}

TEST_F(KVSessionBusTest, ANotificationIsReplacedByTheNextOneOfItsTopic) {
    KVFakeDesktop service(bus.address());
    KVDesktop desktop;
    for (const char *text : {"1", "2", "3"}) // the second has to wait for the number of the first
        desktop.postNotification("title", text, "topic");
    desktop.postNotification("title", "other");
    ASSERT_TRUE(runUntil([&] { return service.notifications().contains("title|3"); }));
    desktop.postNotification("title", "4", "topic");
    ASSERT_TRUE(runUntil([&] { return service.notifications().contains("title|4"); }));
    EXPECT_EQ(service.shown(), (QStringList{"title|4", "title|other"}));
}

TEST_F(KVSessionBusTest, NothingBreaksWhereTheServicesAreMissing) {
    KVDesktop desktop;
    desktop.postNotification("title", "text");
    desktop.playCompleteSound();
    desktop.setKeepsAwake(true);
    desktop.showTaskbarProgress(0.5);
    runUntil([] { return false; }, 0.3);
    desktop.setKeepsAwake(false);
    desktop.showTaskbarProgress(std::nullopt);
    runUntil([] { return false; }, 0.1);
}

TEST_F(KVSessionBusTest, CommandsFailWhereNoWindowRunsOrCanOpen) {
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        qunsetenv(display);
    EXPECT_EQ(command({"start"}), 1);
    EXPECT_EQ(command({"add", KVTestMedia::tone(path("a.wav"), 0.3)}), 1);
}

TEST_F(KVSessionBusTest, ScriptsDriveTheRunningWindow) {
    KVTestMedia::tone(path("a.wav"), 0.3);
    const auto window = startWindow();
    EXPECT_EQ(command({"start"}), 1); // there is nothing to start
    EXPECT_EQ(command({"add", "missing.wav"}), 1);
    EXPECT_EQ(command({"add", "a.wav"}), 0);
    EXPECT_EQ(command({"select-preset", "FLAC", "--queue", "picture"}), 1);
    EXPECT_EQ(command({"select-preset", "FLAC"}), 0);
    EXPECT_EQ(command({"start", "--queue", "video"}), 1);
    EXPECT_EQ(command({"start", "--queue", "audio"}), 0);
    EXPECT_TRUE(waitFor([&] { return QFile::exists(path("a.flac")); }));
    window->interrupt();
    EXPECT_EQ(exitStatus(*window), 0);
}

TEST_F(KVSessionBusTest, EndingTheWindowInTheMiddleLeavesNothingBehind) {
    KVTestMedia::tone(path("long.wav"), 2000);
    const auto window = startWindow();
    EXPECT_EQ(command({"add", "long.wav"}), 0);
    EXPECT_EQ(command({"start"}), 0);
    EXPECT_TRUE(waitFor([&] { return files().size() > 1 && numberOfChildren() > 0; }));
    EXPECT_EQ(command({"pause"}), 0); // a stopped child ends as well
    window->interrupt();
    EXPECT_EQ(exitStatus(*window), 0);
    EXPECT_EQ(numberOfChildren(), 0);
    EXPECT_EQ(files(), QStringList{"long.wav"});
}
