#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <mutex>

/// The two streams of a command: results on standard output, everything else on standard error. Any thread
/// may call it. A stream that nobody reads any more is dropped without a word.
class KVConsole {
  public:
    KVConsole();
    ~KVConsole();
    KVConsole(const KVConsole &) = delete;
    KVConsole &operator=(const KVConsole &) = delete;

    /// Writes `text` and a line feed to standard output.
    void writeResult(const QString &text);

    /// Hands over what standard output still holds; false if some of the results were lost.
    bool flushResults();

    /// Writes one line to standard error. Control characters are made visible.
    void say(const QString &line);

    /// True if standard error is a terminal that can be painted on.
    bool canPaint() const { return _canPaint; }
    int columns() const;
    int rows() const;

    /// Replaces the lines below everything that was said; they are cut to the width of the terminal.
    void paint(const QStringList &lines);

  private:
    void _write(const QByteArray &text);
    QByteArray _erased() const;
    void _noteLostResults();

    const bool _canPaint;
    std::mutex _mutex;
    QStringList _painted;
    bool _hasLostResults = false;
};
