#include "cli/KVConsole.h"

#include "cli/KVPrintableText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

bool isPaintable(int descriptor) {
    return ::isatty(descriptor) && qEnvironmentVariable("TERM", "dumb") != QLatin1String("dumb");
}

winsize terminalSize() {
    winsize size{};
    ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size);
    return size;
}

} // namespace

KVConsole::KVConsole()
    : _canPaint(isPaintable(STDERR_FILENO)) {}

KVConsole::~KVConsole() {
    paint({});
    flushResults();
}

void KVConsole::writeResult(const QString &text) {
    const std::scoped_lock lock(_mutex);
    if (_hasLostResults) return;
    const QByteArray bytes = text.toUtf8() + '\n';
    if (std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout) ==
        static_cast<size_t>(bytes.size()))
        return;
    _noteLostResults();
}

bool KVConsole::flushResults() {
    const std::scoped_lock lock(_mutex);
    if (!_hasLostResults && std::fflush(stdout) != 0) _noteLostResults();
    return !_hasLostResults;
}

void KVConsole::_noteLostResults() {
    _hasLostResults = true;
    // A reader that has seen enough is no failure to speak of; a full disk is.
    if (errno != EPIPE)
        _write("kalvoractl: the results could not be written: " + QByteArray(std::strerror(errno)) + '\n');
}

void KVConsole::say(const QString &line) {
    const std::scoped_lock lock(_mutex);
    const QByteArray erased = _erased();
    _write(erased + KVPrintableText::ofText(line).toUtf8() + '\n' + _painted.join(u'\n').toUtf8() +
           (_painted.isEmpty() ? "" : "\n"));
}

int KVConsole::columns() const {
    const int columns = terminalSize().ws_col;
    return columns > 0 ? columns : 80;
}

int KVConsole::rows() const {
    const int rows = terminalSize().ws_row;
    return rows > 0 ? rows : 24;
}

void KVConsole::paint(const QStringList &lines) {
    if (!_canPaint) return;
    const std::scoped_lock lock(_mutex);
    if (lines == _painted) return;
    const QByteArray erased = _erased();
    _painted.clear();
    // The last column stays free: some terminals wrap as soon as it is taken.
    for (const QString &line : lines)
        _painted.append(KVPrintableText::truncated(KVPrintableText::ofText(line), columns() - 1));
    _write(erased + _painted.join(u'\n').toUtf8() + (_painted.isEmpty() ? "" : "\n"));
}

void KVConsole::_write(const QByteArray &text) {
    qsizetype done = 0;
    while (done < text.size()) {
        const ssize_t written =
            ::write(STDERR_FILENO, text.constData() + done, static_cast<size_t>(text.size() - done));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return; // Nobody listens: there is no one to tell.
        done += written;
    }
}

/// What takes the painted lines off the terminal.
QByteArray KVConsole::_erased() const {
    if (_painted.isEmpty()) return {};
    return "\r\x1b[" + QByteArray::number(_painted.size()) + "A\x1b[J";
}
