#pragma once

#include "conversion/conversions/KVFFmpegReport.h"
#include "conversion/conversions/KVProbedResult.h"
#include "conversion/conversions/KVResultPlan.h"
#include "util/KVSizeFitting.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// Compares the result of a conversion that was reported as successful with what it has to be. All texts are
/// whole sentences in the user's language. Any thread.
namespace KVResultCheck {

/// The failure of a result that is no longer where it was written.
QString lostResultText();

struct Verdict {
    QString failure;      ///< Why there is no result; empty if there is one.
    QStringList warnings; ///< What the result lacks.
};

/// Runs `ffmpeg` with these arguments and returns its messages; empty if it did not run or was stopped.
using Run = std::function<QByteArray(const QStringList &arguments)>;

/// Describes the file at a path as `ffmpeg -i` does, but faster; empty if it cannot. Only a result without
/// shortcomings is believed, as the description may come from another version than `ffmpeg`.
using QuickProbe = std::function<std::optional<QByteArray>(const QString &path)>;

/// Looks at the file at `path`. Runs `ffmpeg` only if the quick probe finds something wrong: once, and a
/// second time, to read the sources to their ends without decoding, only if a track that ends early leaves
/// open whether its source is whole.
Verdict check(const KVResultPlan &plan, const QString &path, const KVFFmpegReport &report,
              const QuickProbe &quickProbe, const Run &run);

/// What the result lacks, as far as these three say.
QStringList shortcomings(const KVResultPlan &plan, const KVProbedResult &result,
                         const KVFFmpegReport &report);

/// True if the result is so much shorter than planned that something is missing.
bool isTooShort(const KVResultPlan &plan, const KVProbedResult &result, const KVFFmpegReport &report);

/// Looks at an image that was made of a folder with a VIDEO_TS folder.
Verdict checkDiscImage(const QString &image, const QString &folder);

/// Reads the header of a converted picture and returns what it lacks. `planned` is in pixels, with or without
/// fractions; 0 by 0 if the size is not known.
QStringList pictureShortcomings(const QString &path, const KVSize &planned);

} // namespace KVResultCheck
