#include "controllers/KVTimeLeft.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVTime.h"
#include "video_info/media_file/KVAudioFile.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <queue>

namespace {

/// Seconds of media per second, as the row's own estimate assumes; 0 if it is not known.
double secondsPerSecondOf(const KVTimeLeft::Row &row) {
    const double secondsToCome = row.secondsOfMedia * (1 - row.progress);
    const bool isKnown = row.progress > 0 && row.numberOfTasks == 1 && row.secondsLeft > 0 &&
                         std::isfinite(row.secondsLeft) && secondsToCome > 0;
    return isKnown ? secondsToCome / row.secondsLeft : 0;
}

double meanSpeed(const KVTimeLeft::Queue &queue) {
    double sum = 0;
    int count = 0;
    for (const KVTimeLeft::Row &row : queue.rows) {
        const double speed = row.isWaiting ? 0 : secondsPerSecondOf(row);
        if (speed <= 0) continue;
        sum += speed;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

/// An estimate must not look more exact than it is.
double roundedEstimate(double seconds) {
    const double step = seconds >= 600 ? 60 : seconds >= 60 ? 10 : 1;
    return std::ceil(seconds / step) * step;
}

KVTimeLeft::Row timeRowOf(const KVConversion &conversion) {
    KVTimeLeft::Row row;
    row.isWaiting = conversion.state == KVConversionState::waitingToStart;
    row.secondsLeft = conversion.estimatedTime;
    row.progress = conversion.progressOfCurrentTask;
    row.numberOfTasks = conversion.numberOfTasks();
    bool isKnown = true;
    for (const auto &file : conversion.mediaFiles()) {
        const auto *audio = dynamic_cast<const KVAudioFile *>(file.get());
        isKnown = isKnown && audio && audio->seconds > 0;
        row.secondsOfMedia += audio ? audio->seconds : 0;
    }
    if (!isKnown) row.secondsOfMedia = 0;
    return row;
}

} // namespace

std::optional<double> KVTimeLeft::estimate(const Queue &queue) {
    const double speed = meanSpeed(queue);
    // When each worker is free again.
    std::priority_queue<double, std::vector<double>, std::greater<>> workers;
    double end = 0;
    const auto add = [&](double begin, double seconds) {
        workers.push(begin + seconds);
        end = std::max(end, begin + seconds);
    };
    for (const Row &row : queue.rows) {
        if (row.isWaiting) continue;
        if (!std::isfinite(row.secondsLeft)) return std::nullopt;
        // A row that has just begun has no estimate yet.
        const bool hasBegun = row.progress > 0 || speed <= 0;
        add(0, hasBegun ? std::max(row.secondsLeft, 0.0) : row.secondsOfMedia / speed);
    }
    // A row that was started by itself runs beside the workers.
    while (static_cast<int>(workers.size()) > std::max(queue.numberOfWorkers, 1))
        workers.pop();
    for (const Row &row : queue.rows) {
        if (!row.isWaiting) continue;
        if (speed <= 0 || row.secondsOfMedia <= 0 || row.numberOfTasks != 1) return std::nullopt;
        double begin = 0;
        if (static_cast<int>(workers.size()) >= queue.numberOfWorkers) {
            begin = workers.top();
            workers.pop();
        }
        add(begin, row.secondsOfMedia / speed);
    }
    return end;
}

QString KVTimeLeft::text(const std::vector<Queue> &queues) {
    double longest = 0;
    double longestOfAll = 0;
    qsizetype waiting = 0;
    qsizetype all = 0;
    bool isKnown = true;
    for (const Queue &queue : queues) {
        qsizetype waitingHere = 0;
        for (const Row &row : queue.rows) {
            if (row.isWaiting) ++waitingHere;
            // Part of the maximum as it is: an undefined value is shown as such.
            if (!row.isWaiting) longest = std::max(longest, row.secondsLeft);
        }
        waiting += waitingHere;
        all += static_cast<qsizetype>(queue.rows.size());
        if (queue.rows.empty()) continue;
        const auto seconds = estimate(queue);
        isKnown = isKnown && seconds && (waitingHere == 0 || queue.isWorking);
        longestOfAll = std::max(longestOfAll, seconds.value_or(0));
    }
    QString current = KVTime::localizedTimeString(longest);
    if (waiting == 0) return current;
    if (isKnown)
        return KVLocalizationCenter::localized(
            "About %@ for all %ld files", {KVTime::localizedTimeString(roundedEstimate(longestOfAll)), all});
    if (longest <= 0) return KVLocalizationCenter::localized("%ld more waiting", {waiting});
    return KVLocalizationCenter::localized("Current files: %@, %ld more waiting", {current, waiting});
}

QString KVTimeLeft::text() {
    std::vector<Queue> queues;
    for (const auto &queue : KVConversionQueue::allQueues()) {
        Queue &entry = queues.emplace_back();
        entry.isWorking = queue->isWorking();
        entry.numberOfWorkers = std::max(queue->maximumNumberOfConcurrentConversions(), 1);
        for (const auto &conversion : queue->conversions())
            if (!conversion->isFinished()) entry.rows.push_back(timeRowOf(*conversion));
    }
    return text(queues);
}
