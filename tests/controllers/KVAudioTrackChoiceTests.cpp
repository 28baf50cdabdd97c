#include "controllers/KVAudioTrackChoice.h"

#include "support/KVTestCase.h"

namespace {

/// Tracks of these names; an empty name is a track without one.
QList<KVAudioTrack> tracksNamed(const QStringList &names) {
    QList<KVAudioTrack> tracks;
    for (const QString &name : names) {
        KVAudioTrack &track = tracks.emplaceBack();
        if (!name.isEmpty()) track.trackName = name;
    }
    return tracks;
}

} // namespace

TEST(KVAudioTrackChoiceTest, FollowsTheLanguageAndThenThePosition) {
    const struct {
        QStringList chosenFrom;
        qsizetype chosen;
        QStringList other;
        qsizetype index; ///< -1 if none fits.
    } rows[] = {
        {{"eng (2)", "deu (6)"}, 1, {"eng (2)", "deu (2)"}, 1},
        {{"eng (2)", "deu (6)"}, 1, {"deu (2)", "fra (2)", "eng (2)"}, 0},
        {{"eng (2)", "eng (6)"}, 1, {"deu (2)", "eng (6)", "eng (2)"}, 1},
        {{"eng (2)", "eng (6)"}, 1, {"eng (6)", "deu (2)"}, 0},
        {{"eng (2)", "deu (6)"}, 1, {"eng (2)", "fra (2)"}, -1},
        {{"eng (2)", "deu (6)"}, 1, {"Track 1 (2)", "Track 2 (2)"}, 1},
        {{"eng (2)", "deu (6)"}, 1, {"und (2)", "und (2)"}, 1},
        {{"Track 1 (2)", "Track 2 (2)", "Track 3 (2)"}, 2, {"eng (2)", "deu (2)", "fra (2)"}, 2},
        {{"Track 1 (2)", "Track 2 (2)", "Track 3 (2)"}, 2, {"eng (2)", "deu (2)"}, -1},
        {{"", ""}, 0, {"", ""}, 0},
    };
    for (const auto &row : rows) {
        const KVAudioTrackChoice choice(tracksNamed(row.chosenFrom), row.chosen);
        EXPECT_FALSE(choice.isSkip());
        EXPECT_EQ(choice.indexIn(tracksNamed(row.other)).value_or(-1), row.index)
            << row.chosenFrom.at(row.chosen).toStdString() << " in " << row.other.join(", ").toStdString();
    }
    EXPECT_TRUE(KVAudioTrackChoice::skip().isSkip());
    EXPECT_EQ(KVAudioTrackChoice::skip().indexIn(tracksNamed({"eng (2)", "deu (2)"})), std::nullopt);
}
