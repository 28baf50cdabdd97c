#include "util/picture/KVVipsLibrary.h"

#include "kvcore/KVFatalError.h"
#include "kvcore/KVLog.h"
#include "util/picture/KVPictureAttempt.h"
#include "util/picture/KVVipsPicture.h"

#include <vips/vips8>

#include <memory>
#include <mutex>

namespace {

bool allowsUntrustedLoaders = false;

void writeToLog(const gchar *, GLogLevelFlags, const gchar *message, gpointer) {
    const QString text = QString::fromUtf8(message);
    KVLog("Image library: " + text);
    KVPictureAttempt::noteWarning(text);
}

void start() {
    if (VIPS_INIT("kalvora") != 0)
        KVFatalError("The image library does not start: " + KVVipsLibrary::takeErrorText());
    vips_block_untrusted_set(TRUE);
    vips_operation_block_set("VipsForeignLoadVips", FALSE); // only for files that we have written
    if (allowsUntrustedLoaders)
        for (const char *loaders : {"VipsForeignLoadMagick", "VipsForeignLoadJp2k"})
            vips_operation_block_set(loaders, FALSE);
    // Every file is read once: a cache would only hold memory.
    vips_cache_set_max(0);
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_RECURSION),
                      writeToLog, nullptr);
}

class VipsModule : public KVPictureModule {
  public:
    void prepare() override { KVVipsLibrary::prepare(); }
    KVResult<std::unique_ptr<KVOpenedPicture>> open(const QString &path,
                                                    const std::stop_token &stop) override {
        return KVVipsPicture::open(path, stop);
    }
};

} // namespace

void KVVipsLibrary::prepare() {
    static std::once_flag once;
    std::call_once(once, start);
}

void KVVipsLibrary::allowUntrustedLoaders() {
    allowsUntrustedLoaders = true;
}

void KVVipsLibrary::requireUntrustedLoaders() {
    if (!allowsUntrustedLoaders) throw KVUntrustedLoader();
}

QString KVVipsLibrary::takeErrorText() {
    const std::unique_ptr<char, decltype(&g_free)> text(vips_error_buffer_copy(), g_free);
    return QString::fromUtf8(text.get()).simplified();
}

extern "C" KVPictureModule *kvPictureModule();

/// The module's door, found by its name.
KVPictureModule *kvPictureModule() {
    static VipsModule module;
    return &module;
}
