#include "util/picture/KVPictureHelperProgram.h"

#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVPictureSource.h"
#include "util/picture/KVVipsLibrary.h"

#include <QFile>

#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>

namespace {

void convert(const QStringList &paths) {
    const KVPictureSource source(paths.at(0));
    if (!KVPictureSource::isWithinLimit(source.uprightSize()))
        throw std::runtime_error("The picture is too large.");
    const vips::VImage picture = source.imageToShrink(1);
    if (paths.size() > 1)
        picture.write_to_file(QFile::encodeName(paths.at(1)).constData());
    else
        picture.avg();
}

/// Nothing if it worked.
std::optional<QString> failure(const QStringList &paths) {
    try {
        return KVPictureAttempt::failure([&] { convert(paths); });
    } catch (const std::exception &error) {
        return QString::fromUtf8(error.what()).simplified();
    }
}

} // namespace

int KVPictureHelperProgram::run(const QStringList &paths) {
    if (paths.isEmpty()) return 2;
    KVVipsLibrary::allowUntrustedLoaders();
    KVVipsLibrary::prepare();
    vips_concurrency_set(1); // each thread takes address space
    const auto reason = failure(paths);
    if (!reason) return 0;
    std::fputs(reason->toUtf8().constData(), stdout);
    return 1;
}
