#include "controllers/KVConversionTableRow.h"
#include "controllers/KVEndedConversion.h"
#include "controllers/KVFailureDetails.h"
#include "support/KVTestCase.h"
#include "video_info/media_file/KVVideoFile.h"

class KVRowOutcomeTest : public KVTestCase {
  protected:
    using Kind = KVRowOutcome::Kind;
    using Failure = KVEndedConversion::Failure;

    KVMediaFileList files(const QStringList &names = {"a.mkv"}) {
        KVMediaFileList files;
        for (const QString &name : names)
            files += std::make_shared<KVVideoFile>(url(name));
        return files;
    }

    static KVConversionTableRow row(const std::shared_ptr<KVConversion> &conversion) {
        return {conversion, nullptr};
    }
};

TEST_F(KVRowOutcomeTest, TheSecondLineSaysWhatASuccessLacks) {
    struct Case {
        QStringList warnings;
        Kind kind;
        const char *status;
    };
    for (const Case &expected : {Case{{}, Kind::succeeded, "Done."},
                                 Case{{"Only 0:17 of 4:00: the source is incomplete"},
                                      Kind::succeededWithWarnings,
                                      "Done, but only 0:17 of 4:00: the source is incomplete"},
                                 Case{{"MP4 cannot hold the subtitles."},
                                      Kind::succeededWithWarnings,
                                      "Done, but MP4 cannot hold the subtitles."},
                                 Case{{"A page is lost.", "A track is lost."},
                                      Kind::succeededWithWarnings,
                                      "Done, with 2 warnings"}}) {
        const auto conversion = KVEndedConversion::run(files(), {}, expected.warnings);
        EXPECT_EQ(row(conversion).outcome().kind, expected.kind);
        EXPECT_EQ(row(conversion).statusText(), expected.status);
        for (const QString &warning : expected.warnings) {
            EXPECT_TRUE(row(conversion).toolTip().contains(warning));
            EXPECT_TRUE(row(conversion).accessibleText().contains(warning));
        }
    }
}

TEST_F(KVRowOutcomeTest, AFailedRowSaysWhyAndIsNeverASuccess) {
    const auto failed = KVEndedConversion::run(files(), Failure{.reason = "The disk\nis full."});
    failed->conversionWasSuccessful = true; // of an earlier task of a disc
    EXPECT_EQ(row(failed).outcome().kind, Kind::failed);
    EXPECT_EQ(row(failed).statusText(), "The disk is full.");
    EXPECT_TRUE(row(failed).toolTip().startsWith(path("a.mkv") + "\n\n"));
    EXPECT_TRUE(row(failed).toolTip().contains("The disk\nis full."));
    EXPECT_TRUE(row(failed).accessibleText().startsWith("Conversion a.mkv. Finished. The disk\nis full."));

    const auto refused = std::make_shared<KVEndedConversion>(files());
    refused->failsWithoutRecord = true;
    refused->setQueue(KVConversionQueue::queue(KVMediaFileType::video));
    refused->setStatusString("User cancelled.");
    refused->start();
    EXPECT_EQ(row(refused).outcome().kind, Kind::failed);
    EXPECT_EQ(row(refused).statusText(), "User cancelled.");

    const auto cancelled = std::make_shared<KVEndedConversion>(files());
    cancelled->setQueue(KVConversionQueue::queue(KVMediaFileType::video));
    cancelled->cancel();
    cancelled->start();
    EXPECT_TRUE(cancelled->conversionWasSuccessful);
    EXPECT_EQ(row(cancelled).outcome().kind, Kind::cancelled);
    EXPECT_FALSE(row(cancelled).outcome().isSuccess());
}

TEST_F(KVRowOutcomeTest, RemovingARowAfterItsEndDoesNotChangeItsOutcome) {
    const auto done = KVEndedConversion::run(files());
    KVConversionQueue::queue(KVMediaFileType::video)->cancelConversion(done);
    EXPECT_EQ(row(done).outcome().kind, Kind::succeeded);
}

TEST_F(KVRowOutcomeTest, DetailsHaveTheCommandForAShellAndTheEndOfTheLog) {
    QString output = "first line\n";
    for (int i = 0; i < 500; ++i)
        output += QStringLiteral("line %1\n").arg(i);
    output += "frame=    1 fps=0.0\rframe=    2 fps=0.0\r\nConversion failed!\n\n";
    const auto conversion = KVEndedConversion::run(
        files({"it's.mkv", "b.mkv"}), Failure{.arguments = {"-i", path("it's.mkv"), "-y"}, .output = output},
        {"A page is lost."});
    const auto details = KVFailureDetails::of(*conversion);
    EXPECT_EQ(details.name, "it's.mkv & b.mkv");
    EXPECT_EQ(details.command, "ffmpeg -i '" + path("it'\\''s.mkv") + "' -y");
    EXPECT_TRUE(details.log.endsWith("line 499\nConversion failed!"));
    EXPECT_FALSE(details.log.contains("first line"));
    EXPECT_FALSE(details.cause.isEmpty());

    const QString text = details.text();
    for (const QString &part :
         {details.name, details.cause, details.command, details.log, QStringLiteral("A page is lost.")})
        EXPECT_TRUE(text.contains(part)) << part.toStdString();

    for (const auto &[argument, tool] :
         {std::pair("-x", "dvdauthor -x"), std::pair("-dvd-video", "mkisofs -dvd-video")})
        EXPECT_EQ(KVFailureDetails::of(
                      *KVEndedConversion::run(files(), Failure{.arguments = {QString::fromLatin1(argument)}}))
                      .command,
                  tool);
}

TEST_F(KVRowOutcomeTest, DetailsAreSavedWholeOrNotAtAll) {
    const auto details =
        KVFailureDetails::of(*KVEndedConversion::run(files(), Failure{.reason = "Nothing goes."}));
    EXPECT_EQ(details.proposedFileName(), "Details of a.mkv.txt");
    ASSERT_TRUE(details.save(url("out.txt")));
    EXPECT_EQ(read(path("out.txt")), details.text().toUtf8());
    const auto failed = details.save(url("missing/out.txt"));
    ASSERT_FALSE(failed);
    EXPECT_TRUE(failed.error().reason.startsWith(path("missing/out.txt") + ": "));
    EXPECT_LE(KVFailureDetails{.name = QString(400, 'n')}.proposedFileName().size(), 255);
}
