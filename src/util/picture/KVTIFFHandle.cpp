#include "util/picture/KVTIFFHandle.h"

#include "util/KVHiddenOutput.h"

#include <QFile>

#include <cstdarg>

#include <fcntl.h>
#include <unistd.h>

namespace {

int silence(TIFF *, void *, const char *, const char *, va_list) {
    return 1;
}

class Options {
  public:
    Options() {
        TIFFOpenOptionsSetErrorHandlerExtR(_options.get(), silence, nullptr);
        TIFFOpenOptionsSetWarningHandlerExtR(_options.get(), silence, nullptr);
    }
    TIFFOpenOptions *get() const { return _options.get(); }

  private:
    std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> _options{TIFFOpenOptionsAlloc(),
                                                                              TIFFOpenOptionsFree};
};

KVHiddenOutput &outputOf(thandle_t handle) {
    return *static_cast<KVHiddenOutput *>(handle);
}

tmsize_t read(thandle_t handle, void *data, tmsize_t size) {
    return outputOf(handle).read(data, size);
}

tmsize_t write(thandle_t handle, void *data, tmsize_t size) {
    return outputOf(handle).write(data, size);
}

toff_t seek(thandle_t handle, toff_t offset, int whence) {
    return static_cast<toff_t>(outputOf(handle).seek(static_cast<qint64>(offset), whence));
}

toff_t size(thandle_t handle) {
    const KVHiddenOutput &output = outputOf(handle);
    const qint64 position = output.seek(0, SEEK_CUR);
    const qint64 end = output.seek(0, SEEK_END);
    output.seek(position, SEEK_SET);
    return static_cast<toff_t>(end);
}

} // namespace

KVTIFFHandle KVTIFFHandles::toRead(const QString &path) {
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return {nullptr, TIFFClose};
    KVTIFFHandle handle(TIFFFdOpenExt(file, name.constData(), "rm", Options().get()), TIFFClose);
    if (!handle) ::close(file);
    return handle;
}

KVTIFFHandle KVTIFFHandles::toChange(KVHiddenOutput &output) {
    output.seek(0, SEEK_SET);
    const auto keepOpen = [](thandle_t) { return 0; };
    return {TIFFClientOpenExt("", "r+m", &output, read, write, seek, keepOpen, size, nullptr, nullptr,
                              Options().get()),
            TIFFClose};
}
