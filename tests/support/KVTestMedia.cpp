#include "support/KVTestMedia.h"

#include "platform/KVProcess.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

void KVTestMedia::make(const QStringList &arguments) {
    // Not Qt's own class: its way of making a child blinds the thread sanitizer.
    KVProcess tool;
    tool.setLaunchPath(QStandardPaths::findExecutable(QStringLiteral("ffmpeg")));
    tool.setArguments(QStringList{QStringLiteral("-y"), QStringLiteral("-nostdin"),
                                  QStringLiteral("-hide_banner"), QStringLiteral("-loglevel"),
                                  QStringLiteral("error")} +
                      arguments);
    const auto output = tool.setStandardError(KVProcess::Stream::pipe);
    ASSERT_TRUE(tool.launch());
    QByteArray text;
    for (QByteArray part = output->availableData(); !part.isEmpty(); part = output->availableData())
        text += part;
    tool.waitUntilExit();
    ASSERT_EQ(tool.terminationStatus(), 0) << text.toStdString();
}

QString KVTestMedia::tone(const QString &path, double seconds, int frequency, int channels) {
    make({QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
          QStringLiteral("sine=frequency=440:sample_rate=%1:duration=%2").arg(frequency).arg(seconds),
          QStringLiteral("-ac"), QString::number(channels), path});
    return path;
}

QString KVTestMedia::clip(const QString &path, double seconds, const QString &size,
                          const QStringList &furtherOutputArguments) {
    make(QStringList{QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                     QStringLiteral("testsrc2=size=%1:rate=25:duration=%2").arg(size).arg(seconds),
                     QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                     QStringLiteral("sine=frequency=440:sample_rate=44100:duration=%1").arg(seconds),
                     QStringLiteral("-ac"), QStringLiteral("2"), QStringLiteral("-pix_fmt"),
                     QStringLiteral("yuv420p")} +
         furtherOutputArguments + QStringList{path});
    return path;
}
