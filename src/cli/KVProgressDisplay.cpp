#include "cli/KVProgressDisplay.h"

#include "cli/KVPrintableText.h"
#include "conversion/conversions/KVConversion.h"
#include "kvcore/KVMainThread.h"
#include "kvcore/KVTime.h"
#include "platform/KVFileManager.h"
#include "queues/KVConversionQueue.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::chrono::milliseconds paintInterval{200};
constexpr int barWidth = 20;
constexpr int maximumNameWidth = 32;

double clamped(double value) {
    return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0.0;
}

QString bar(double value) {
    const auto filled = static_cast<qsizetype>(clamped(value) * barWidth);
    return '[' + QString(filled, u'#') + QString(barWidth - filled, u'-') + ']';
}

QString percent(double value) {
    return QStringLiteral("%1 %").arg(static_cast<int>(clamped(value) * 100), 3);
}

QString nameColumn(const QString &name) {
    const QString printable = KVPrintableText::ofText(name);
    return KVPrintableText::padded(KVPrintableText::truncated(printable, maximumNameWidth), maximumNameWidth);
}

} // namespace

KVProgressDisplay::KVProgressDisplay(KVConsole &console)
    : _console(console) {}

void KVProgressDisplay::add(const std::shared_ptr<KVConversion> &conversion) {
    _running.append(conversion);
    update();
}

void KVProgressDisplay::remove(const std::shared_ptr<KVConversion> &conversion) {
    _running.removeOne(conversion);
    update();
}

void KVProgressDisplay::setCounts(qsizetype finished, qsizetype all, bool isMoreToCome) {
    if (finished == _finished && all == _all && isMoreToCome == _isMoreToCome) return;
    _finished = finished;
    _all = all;
    _isMoreToCome = isMoreToCome;
    update();
}

void KVProgressDisplay::update() {
    if (!_console.canPaint() || _isPaintScheduled || _isEnded) return;
    const auto elapsed = Clock::now() - _lastPainted;
    if (elapsed >= paintInterval) return _paint();
    _isPaintScheduled = true;
    const std::chrono::duration<double> rest = paintInterval - elapsed;
    KVMainThread::after(rest.count(), [weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self || self->_isEnded) return;
        self->_isPaintScheduled = false;
        self->_paint();
    });
}

void KVProgressDisplay::end() {
    _isEnded = true;
    _console.paint({});
}

void KVProgressDisplay::_paint() {
    _lastPainted = Clock::now();
    QStringList lines;
    // Two lines stay free, for the total and for the cursor.
    const qsizetype room = std::max(_console.rows() - 2, 0);
    for (const auto &conversion : std::as_const(_running).first(std::min(room, _running.size())))
        lines.append(_lineOf(*conversion));
    lines.append(_totalLine());
    _console.paint(lines);
}

QString KVProgressDisplay::_lineOf(const KVConversion &conversion) const {
    const KVMediaFileList files = conversion.mediaFiles();
    QString name = files.isEmpty() ? QString() : KVFileManager::lastPathComponent(files.first()->url());
    if (files.size() > 1) name += QStringLiteral(" + %1").arg(files.size() - 1);
    const double value = conversion.overallValue();
    const QString status = conversion.statusString();
    const bool isTimeKnown = value != 0;
    return nameColumn(name) + ' ' + bar(value) + ' ' + percent(value) + "  " +
           (status.isEmpty() && isTimeKnown ? conversion.estimatedTimeString() : status);
}

QString KVProgressDisplay::_totalLine() const {
    const double value = clamped(KVConversionQueue::totalProgress());
    const std::chrono::duration<double> elapsed = Clock::now() - _start;
    double secondsLeft = elapsed.count() * (1 - value) / value;
    // Short files that are done say little about a long one.
    for (const auto &conversion : _running)
        secondsLeft = std::max(secondsLeft, conversion->estimatedTime.load());
    // While files are still coming in nobody knows how much there is to do.
    const QString timeLeft =
        value > 0 && !_isMoreToCome ? KVTime::localizedTimeString(secondsLeft) : QString();
    return nameColumn(QStringLiteral("%1 of %2%3 done")
                          .arg(_finished)
                          .arg(_all)
                          .arg(_isMoreToCome ? QStringLiteral("+") : QString())) +
           ' ' + bar(value) + ' ' + percent(value) + "  " + timeLeft;
}
