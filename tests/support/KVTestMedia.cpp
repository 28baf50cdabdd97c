#include "support/KVTestMedia.h"

#include <QProcess>

#include <gtest/gtest.h>

void KVTestMedia::make(const QStringList &arguments) {
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(QStringLiteral("ffmpeg"),
               QStringList{QStringLiteral("-y"), QStringLiteral("-nostdin"), QStringLiteral("-hide_banner"),
                           QStringLiteral("-loglevel"), QStringLiteral("error")} +
                   arguments);
    ASSERT_TRUE(tool.waitForFinished(60000));
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAll().toStdString();
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
