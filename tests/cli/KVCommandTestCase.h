#pragma once

#include "support/KVTestCase.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

inline void PrintTo(const QJsonValue &value, std::ostream *out) {
    *out << QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

/// Runs of the real `kalvoractl` as a child, each in the test's folder and with a home of the test's own.
class KVCommandTestCase : public KVTestCase {
  protected:
    struct Result {
        int status = -1;
        QByteArray output;
        QByteArray errors;

        QJsonDocument json() const { return QJsonDocument::fromJson(output); }
        const QJsonObject object() const { return json().object(); }
        const QJsonArray array() const { return json().array(); }
        QList<QByteArray> errorLines() const;
    };

    static QString program();

    /// Waits for its end.
    Result run(const QStringList &words) const;
    /// Words as bytes, through a shell: "$0" is the program.
    Result runShell(const QByteArray &script) const;

    /// Starts it and waits until standard error holds `text`.
    std::unique_ptr<QProcess> start(const QStringList &words, const QByteArray &text) const;
    static Result finish(QProcess &process);

    /// Names in a folder of the test.
    QStringList names(const QString &folder = {}) const;
    /// Seconds of a file as the tool's own probe tells, 0 for no sound file.
    static double secondsOf(const QString &path);

    /// Another program to run: a copy with a tool of the test's own among its resources.
    void useTool(const QByteArray &script);

  private:
    std::unique_ptr<QProcess> _prepared() const;

    QString _program = program();
};
