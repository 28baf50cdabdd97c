#pragma once

#include "presets/KVPreset.h"
#include "support/KVTestCase.h"
#include "support/KVTestPresets.h"
#include "video_info/media_file/KVVideoFile.h"

#include <map>
#include <mutex>
#include <vector>

/// Tests that convert real videos with the real tool through the queue of videos.
class KVVideoConversionTestCase : public KVTestCase {
  protected:
    struct Job {
        QString label; ///< One of its own.
        std::shared_ptr<KVPreset> preset;
        KVMediaFileList files; ///< Several are stitched.
    };

    void SetUp() override;
    void TearDown() override;

    /// Runs all jobs in one run of the queue; answers the output of each, empty for one that failed.
    std::map<QString, QString> convert(const std::vector<Job> &jobs);
    /// What went wrong with that job: the end of what the tool said.
    QString failureOf(const QString &label) const;
    /// What the result of that job lacks.
    QStringList warningsOf(const QString &label) const;

    /// Converts what `sourceOf` gives for each row with the row's preset (`presetClass`, `settings`), all in
    /// one run, and hands the outputs to `check`, each in a trace of the row's name, `what`.
    template <class Rows, class SourceOf, class Check>
    void convertEach(const Rows &rows, SourceOf sourceOf, Check check) {
        std::vector<Job> jobs;
        for (const auto &row : rows)
            jobs.push_back({row.what, KVTestPresets::make(row.presetClass, row.settings), {sourceOf(row)}});
        const auto outputs = convert(jobs);
        for (const auto &row : rows) {
            SCOPED_TRACE(row.what);
            if (const QString output = outputs.at(row.what); !output.isEmpty())
                check(row, output);
            else
                ADD_FAILURE() << failureOf(row.what).toStdString();
        }
    }

    static std::shared_ptr<KVVideoFile> probed(const QString &path);
    static constexpr double seconds = 0.6; ///< Of the clips.

    /// A clip that shows the test square, `size` as a player shows it. Further options stand behind the
    /// codecs, which are MPEG-4 and AAC.
    QString clip(const QString &name, const QString &size, const QStringList &outputOptions = {}) const;

  private:
    mutable std::mutex _mutex;
    std::map<QString, QString> _failures;     ///< By preset and first file.
    std::map<QString, QString> _keys;         ///< By label.
    std::map<QString, QStringList> _warnings; ///< By label.
};
