#include "controllers/KVRunNotifications.h"

#include "controllers/KVApplicationServices.h"
#include "controllers/KVEndedConversion.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

/// Writes down what would be shown, by topic where there is one.
class NotedServices : public KVApplicationServices {
  public:
    QStringList shown;
    QHash<QString, QString> shownByTopic;

    void postUserNotification(const QString &title, const QString &subtitle, const QString &topic) override {
        const QString text = title + "|" + subtitle;
        if (topic.isEmpty())
            shown += text;
        else
            shownByTopic[topic] = text;
    }
    void playFinishedSound() override {}
    void putComputerToSleep() override {}
    void requestUserAttention() override {}
    void openURL(const QUrl &) override {}
    void showInFileManager(const QUrl &) override {}
    void setKeepsAwake(bool) override {}
    void showTaskbarProgress(std::optional<double>) override {}
    QString countryCode() const override { return {}; }
    bool isSandboxed() const override { return false; }
};

} // namespace

class KVRunNotificationsTest : public KVTestCase {
  protected:
    void end(const QStringList &names, const QString &failure = {}, const QStringList &warnings = {}) {
        KVMediaFileList files;
        for (const QString &name : names)
            files += std::make_shared<KVVideoFile>(url(name));
        const auto error =
            failure.isEmpty() ? std::nullopt : std::optional(KVEndedConversion::Failure{.reason = failure});
        notifications.conversionDidEnd(*KVEndedConversion::run(files, error, warnings));
    }

    QString success() const { return services.shownByTopic.values().value(0); }

    NotedServices services;
    KVRunNotifications notifications{services};
};

TEST_F(KVRunNotificationsTest, TheSuccessesOfARunAreOneNotification) {
    end({"a.mkv"});
    EXPECT_EQ(success(), "Conversion finished!|File a.mkv has been successfully converted.");
    end({"b.mkv", "c.mkv"});
    EXPECT_EQ(success(), "Conversion finished!|2 files have been converted.");
    end({"d.mkv"}, {}, {"A page is lost."});
    EXPECT_EQ(success(), "Conversion finished!|3 files have been converted, 1 of them with warnings.");
    EXPECT_EQ(services.shownByTopic.size(), 1);
    notifications.runDidEnd();
    EXPECT_EQ(services.shown, QStringList{"All conversions are done!|"});

    services.shownByTopic.clear();
    end({"b.mkv", "c.mkv"}, {}, {"A page is lost."});
    EXPECT_EQ(success(),
              "Conversion finished!|Files b.mkv, c.mkv have been successfully stitched.\nA page is lost.")
        << "the next run counts anew";
}

TEST_F(KVRunNotificationsTest, FailuresAreNamedOneByOneAndCountedAtTheEnd) {
    end({"a.mkv"}, "The disk is full.");
    end({"b.mkv", "c.mkv"}, "The source is gone.");
    EXPECT_EQ(services.shown,
              (QStringList{"Conversion failed!|Conversion for file a.mkv has failed.\nThe disk is full.",
                           "Conversion failed!|Stitching files b.mkv, c.mkv has failed.\nThe source is "
                           "gone."}));
    EXPECT_TRUE(services.shownByTopic.isEmpty());
    notifications.runDidEnd();
    EXPECT_EQ(services.shown.last(), "All conversions are done!|2 conversions failed.");
    end({"a.mkv"}, "The disk is full.");
    notifications.runDidEnd();
    EXPECT_EQ(services.shown.last(), "All conversions are done!|One conversion failed.");
}

TEST_F(KVRunNotificationsTest, ACancelledConversionIsNoNews) {
    const auto cancelled =
        std::make_shared<KVEndedConversion>(KVMediaFileList{std::make_shared<KVVideoFile>(url("a.mkv"))});
    cancelled->setQueue(KVConversionQueue::queue(KVMediaFileType::video));
    cancelled->cancel();
    cancelled->start();
    notifications.conversionDidEnd(*cancelled);
    EXPECT_TRUE(services.shown.isEmpty() && services.shownByTopic.isEmpty());
}
