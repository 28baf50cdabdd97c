#include "util/KVPictureLibrary.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "platform/KVResources.h"

#include <QFile>

#include <dlfcn.h>

namespace {

KVPictureModule &loadedModule() {
    // A program that was linked with the module's sources, as the tests are, has its door already.
    void *door = ::dlsym(RTLD_DEFAULT, KVPictureModule::doorName);
    if (!door) {
        const QByteArray path = QFile::encodeName(KVResources::modulePath("kvpictures"));
        if (void *library = ::dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL))
            door = ::dlsym(library, KVPictureModule::doorName);
    }
    if (!door) KVFatalError("The image library does not load: " + QString::fromLocal8Bit(::dlerror()));
    return *reinterpret_cast<KVPictureModule::Door *>(door)();
}

KVPictureModule &module() {
    static KVPictureModule &module = loadedModule();
    return module;
}

template <class Value>
KVResult<Value> logged(const QString &path, KVResult<Value> result) {
    if (!result) KVLog("Could not read picture " + path + " - " + result.error().reason);
    return result;
}

} // namespace

void KVPictureLibrary::prepare() {
    module().prepare();
}

KVResult<std::unique_ptr<KVOpenedPicture>> KVPictureLibrary::open(const QString &path,
                                                                  const std::stop_token &stop) {
    return module().open(path, stop);
}

KVResult<KVPictureLibrary::Header> KVPictureLibrary::header(const QString &path,
                                                            const std::stop_token &stop) {
    const auto picture = logged(path, open(path, stop));
    if (!picture) return tl::unexpected(picture.error());
    const KVSize size = (*picture)->uprightSize();
    return Header{static_cast<int>(size.width), static_cast<int>(size.height), (*picture)->numberOfPages()};
}

KVResult<QImage> KVPictureLibrary::reducedImage(const QString &path, int longestSide,
                                                const std::stop_token &stop) {
    const auto picture = logged(path, open(path, stop));
    if (!picture) return tl::unexpected(picture.error());
    return logged(path, (*picture)->reducedImage(longestSide, stop));
}
