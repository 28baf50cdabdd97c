#include "cli/KVCommandTestCase.h"

#include <QDir>

QList<QByteArray> KVCommandTestCase::Result::errorLines() const {
    QList<QByteArray> lines = errors.split('\n');
    lines.removeAll(QByteArray());
    return lines;
}

QString KVCommandTestCase::program() {
    return QStringLiteral(KV_BUILD_DIRECTORY "/bin/kalvoractl");
}

std::unique_ptr<QProcess> KVCommandTestCase::_prepared() const {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString home = path(".home");
    environment.insert("HOME", home);
    environment.insert("XDG_CONFIG_HOME", home + "/config");
    environment.insert("XDG_DATA_HOME", home + "/data");
    environment.insert("XDG_CACHE_HOME", home + "/cache");
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(path());
    process->setStandardInputFile(QProcess::nullDevice());
    return process;
}

KVCommandTestCase::Result KVCommandTestCase::run(const QStringList &words) const {
    const auto process = _prepared();
    process->start(_program, words);
    return finish(*process);
}

KVCommandTestCase::Result KVCommandTestCase::runShell(const QByteArray &script) const {
    write(".script", script);
    const auto process = _prepared();
    process->start("/bin/sh", {"-c", ". ./.script", _program});
    return finish(*process);
}

std::unique_ptr<QProcess> KVCommandTestCase::start(const QStringList &words, const QByteArray &text) const {
    auto process = _prepared();
    process->setReadChannel(QProcess::StandardError);
    process->start(_program, words);
    while (!process->peek(1 << 20).contains(text))
        if (!process->waitForReadyRead(30000)) break;
    EXPECT_TRUE(process->peek(1 << 20).contains(text)) << process->readAllStandardError().toStdString();
    return process;
}

KVCommandTestCase::Result KVCommandTestCase::finish(QProcess &process) {
    Result result;
    EXPECT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    result.status = process.exitCode();
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

QStringList KVCommandTestCase::names(const QString &folder) const {
    return QDir(path(folder)).entryList(QDir::Files);
}

double KVCommandTestCase::secondsOf(const QString &path) {
    QProcess tool;
    tool.start("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path});
    EXPECT_TRUE(tool.waitForFinished(30000));
    return tool.readAllStandardOutput().trimmed().toDouble();
}

void KVCommandTestCase::useTool(const QByteArray &script) {
    const QString prefix = path(".prefix");
    const QString resources = prefix + "/share/kalvora/resources";
    QDir().mkpath(prefix + "/bin");
    QDir().mkpath(resources);
    _program = prefix + "/bin/kalvoractl";
    ASSERT_TRUE(QFile::copy(program(), _program));
    for (const char *name : {"fonts.conf", "hw_test.mov"})
        ASSERT_TRUE(QFile::copy(KV_BUILD_DIRECTORY "/share/kalvora/resources/" + QString(name),
                                resources + "/" + name));
    writeScript(".prefix/share/kalvora/resources/ffmpeg", script);
}
