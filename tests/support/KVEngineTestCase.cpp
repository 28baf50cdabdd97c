#include "support/KVEngineTestCase.h"

#include "platform/KVResources.h"
#include "tasks/KVHardwareAcceleration.h"

#include <csignal>

namespace {

const QByteArray script = R"(
case "$*" in *"-h full"*) exit 0;; esac
if [ $# = 2 ] && [ "$1" = -i ]; then # the result is looked at
    printf '  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n  Stream #0:0: Audio: mp3, 44100 Hz, stereo\n  Stream #0:1: Video: h264, yuv420p, 720x576, 25 fps\n' >&2
    exit 1
fi
source=; output=; previous=
for argument; do
    [ "$previous" = -i ] && source=${source:-$argument}
    previous=$argument
done
output=$previous
part=${source##*/}; part=${part%%.*}
status='size=       1kB time=00:00:05.00 bitrate=1.0kbits/s'
echo "$part $$" >>"${source%/*}/runs"
printf partial >"$output"
case $part in
good*) echo "$status" >&2; printf whole >"$output";;
failing*) echo "boom: a bad thing" >&2; exit 3;;
crashing*) kill -KILL $$;;
silent*) printf whole >"$output";;
chatty*) yes "$status" | head -c 5000000 >&2; exit 1;;
garbled*) printf 'good' >&2; sleep 0.2; printf 'bad \377\376gr\303' >&2; sleep 0.2; printf '\274n' >&2; sleep 0.2; exit 1;;
endless*) exec sleep 300;;
deaf*) trap 'again=$((again + 1)); [ $again -ge 2 ] && exit 255' INT; while :; do sleep 0.02; done;;
stone-deaf*) trap '' INT; echo x >&2; exec sleep 300;;
esac
exit 0
)";

} // namespace

void KVEngineTestCase::SetUp() {
    write("resources/fonts.conf", "<fontconfig/>");
    writeScript("resources/ffmpeg", script);
    KVResources::setDirectory(path("resources"));
    KVHardwareAcceleration::setResult(false);
    recorder = std::make_shared<KVQueueRecorder>();
    queue()->appendDelegate(recorder);
    KVErrorCenter::shared().setErrorObserver([this](const KVConversionError &error) {
        const std::scoped_lock lock(_errorsMutex);
        errors.push_back(error);
    });
}

void KVEngineTestCase::TearDown() {
    EXPECT_TRUE(KVConversionQueue::cancelAllAndWait(5));
    queue()->setConversions({});
    KVErrorCenter::shared().setErrorObserver({});
}

void KVEngineTestCase::useRealTool() {
    KVResources::setDirectory(QStringLiteral(KV_BUILD_DIRECTORY "/share/kalvora/resources"));
}

std::shared_ptr<KVConversionQueue> KVEngineTestCase::queue() const {
    return KVConversionQueue::queue(KVMediaFileType::audio);
}

std::shared_ptr<KVAudioFile> KVEngineTestCase::file(const QString &name) const {
    auto file = std::make_shared<KVAudioFile>(QUrl::fromLocalFile(write(name, "sound")));
    file->seconds = 10;
    return file;
}

std::shared_ptr<KVConversion> KVEngineTestCase::add(const QString &name) const {
    return queue()->createConversion(file(name), nullptr, true);
}

void KVEngineTestCase::runToEnd() {
    bool hasEnded = false;
    const auto observation = KVNotificationCenter::defaultCenter().addObserver<KVConversionQueue>(
        ConversionQueueDidFinish, [&](const auto &) { hasEnded = true; });
    if (!queue()->isWorking()) queue()->start();
    ASSERT_TRUE(runUntil([&] { return hasEnded; }, 60));
}

void KVEngineTestCase::runOneByOne() const {
    queue()->setSelectedPreset(std::make_shared<KVPresetWithThreads>("100000"));
}

int KVEngineTestCase::pidOf(const QString &part) const {
    int pid = 0;
    const auto isThere = [&] {
        if (!QFile::exists(path("runs"))) return false;
        for (const auto &line : QString::fromUtf8(read(path("runs"))).split('\n'))
            if (line.startsWith(part + ' ')) pid = line.section(' ', 1).toInt();
        return pid > 0;
    };
    EXPECT_TRUE(waitFor(isThere)) << part.toStdString();
    return pid;
}

bool KVEngineTestCase::waitFor(const std::function<bool()> &isDone) {
    // Nothing wakes the event loop for it, so a timer does.
    for (int look = 0; look < 1000 && !isDone(); ++look)
        runUntil([] { return false; }, 0.02);
    return isDone();
}

bool KVEngineTestCase::isAlive(int pid) {
    return ::kill(pid, 0) == 0;
}

char KVEngineTestCase::processState(int pid) {
    const QString status = QString::fromUtf8(read(QString("/proc/%1/stat").arg(pid)));
    const qsizetype nameEnd = status.lastIndexOf(") ");
    return nameEnd < 0 ? '?' : status.at(nameEnd + 2).toLatin1();
}
