#pragma once

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>

class KVConversion;
class KVConversionRowServices;

/// How a further try differs from the one that failed.
struct KVRetryChanges {
    bool isWithoutSubtitles = false;         ///< Without the subtitles files.
    std::optional<QUrl> destinationFolder{}; ///< A folder for this row alone.
    bool isStarted = true;                   ///< At once; otherwise it waits.
};

/// Puts a new conversion in the place of a failed one in its queue and starts it: the same files with
/// their tracks and subtitles, preset and names. Returns it; null if the conversion has not ended, is in no
/// queue or has no files. Main thread.
std::shared_ptr<KVConversion> KVRetryConversion(const std::shared_ptr<KVConversion> &failed,
                                                const KVRetryChanges &changes = {});

/// Removes ended rows and, half a second later, adds their files as new ones. One step to undo. Main thread.
void KVAddConversionsAgain(const QList<std::shared_ptr<KVConversion>> &rows,
                           const std::shared_ptr<KVConversionRowServices> &services);
