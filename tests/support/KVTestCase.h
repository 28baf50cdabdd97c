#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

/// Readable failures.
inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QUrl &url, std::ostream *out) {
    *out << url.toString().toStdString();
}
void PrintTo(const QStringList &list, std::ostream *out);

/// Base of the tests: a folder of its own that goes with the test. The process's home folder is the test's
/// own as well.
class KVTestCase : public testing::Test {
  protected:
    ~KVTestCase() override;

    /// "<folder of the test>/<name>".
    QString path(const QString &name = {}) const;
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// Writes a file (with its folders) and answers its path.
    QString write(const QString &name, const QByteArray &content) const;
    static QByteArray read(const QString &path);

    /// Writes an executable shell script and answers its path.
    QString writeScript(const QString &name, const QByteArray &body) const;

    /// Runs the event loop until `isDone` or the time is up; answers `isDone()`.
    static bool runUntil(const std::function<bool()> &isDone, double seconds = 30);

  private:
    QTemporaryDir _folder;
};
