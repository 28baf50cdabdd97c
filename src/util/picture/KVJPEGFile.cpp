#include "util/picture/KVJPEGFile.h"

#include "util/KVTempDirectory.h"
#include "util/picture/KVBlocksOnDisk.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <jpeglib.h>

#include <jerror.h>
#include <unistd.h>

using vips::VImage;
using vips::VSource;

namespace {

constexpr std::uint64_t muchMemory = std::uint64_t{128} * 1024 * 1024;
constexpr std::uint64_t bytesOfCoefficient = 2;
constexpr int maximumScans = 100; ///< More would keep a processor busy and nothing else.

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

File opened(std::FILE *file) {
    if (!file) throw std::runtime_error(std::strerror(errno));
    return {file, std::fclose};
}

/// From one file into the other. The JPEG library knows no exceptions: where it fails it jumps.
class Copy {
  public:
    Copy(std::FILE *from, std::FILE *to, const std::stop_token &stop)
        : _stop(stop) {
        _in.client_data = _out.client_data = this;
        _in.err = _out.err = jpeg_std_error(&_errors);
        _errors.error_exit = [](j_common_ptr info) { copyOf(info)->_fail(info); };
        _errors.emit_message = [](j_common_ptr info, int level) {
            if (level < 0 && info->err->msg_code == JWRN_JPEG_EOF) copyOf(info)->_fail(info);
        };
        _progress.progress_monitor = [](j_common_ptr info) { copyOf(info)->_watch(info); };
        _from = from;
        _to = to;
    }
    ~Copy() {
        jpeg_destroy_compress(&_out);
        jpeg_destroy_decompress(&_in);
    }
    Copy(const Copy &) = delete;
    Copy &operator=(const Copy &) = delete;

    /// The reason where it fails.
    const char *run() {
        if (setjmp(_place) != 0) return _reason.data();
        _open();
        jvirt_barray_ptr *coefficients = jpeg_read_coefficients(&_in);
        jpeg_copy_critical_parameters(&_in, &_out);
        jpeg_write_coefficients(&_out, coefficients);
        _copyMarkers();
        jpeg_finish_compress(&_out);
        jpeg_finish_decompress(&_in);
        return nullptr;
    }

  private:
    static Copy *copyOf(j_common_ptr info) { return static_cast<Copy *>(info->client_data); }

    void _open() {
        jpeg_create_decompress(&_in);
        jpeg_create_compress(&_out);
        _in.progress = _out.progress = &_progress;
        _holdOnDisk(*_in.mem);
        _holdOnDisk(*_out.mem);
        jpeg_stdio_src(&_in, _from);
        jpeg_stdio_dest(&_out, _to);
        constexpr unsigned wholeMarker = 0xFFFF;
        jpeg_save_markers(&_in, JPEG_COM, wholeMarker);
        for (int number = 0; number < 16; number++)
            jpeg_save_markers(&_in, JPEG_APP0 + number, wholeMarker);
        jpeg_read_header(&_in, TRUE);
    }

    static void _holdOnDisk(jpeg_memory_mgr &memory) {
        memory.request_virt_barray = [](j_common_ptr info, int, boolean, JDIMENSION blocksPerRow,
                                        JDIMENSION rows, JDIMENSION) {
            return copyOf(info)->_blocks.request(blocksPerRow, rows);
        };
        memory.realize_virt_arrays = [](j_common_ptr info) {
            if (!copyOf(info)->_blocks.realize()) copyOf(info)->_jump(std::strerror(errno));
        };
        memory.access_virt_barray = [](j_common_ptr info, jvirt_barray_ptr array, JDIMENSION first,
                                       JDIMENSION count,
                                       boolean) { return copyOf(info)->_blocks.rows(array, first, count); };
    }

    /// Those that the library writes of its own accord it has from the picture's parameters.
    void _copyMarkers() {
        for (auto *marker = _in.marker_list; marker; marker = marker->next) {
            const bool isJFIF = marker->marker == JPEG_APP0 && _out.write_JFIF_header;
            const bool isAdobe = marker->marker == JPEG_APP0 + 14 && _out.write_Adobe_marker;
            if (!isJFIF && !isAdobe)
                jpeg_write_marker(&_out, marker->marker, marker->data, marker->data_length);
        }
    }

    void _watch(j_common_ptr info) {
        if (_stop.stop_requested()) _jump("It was cancelled.");
        if (info->is_decompressor && _in.input_scan_number > maximumScans) _jump("It has too many scans.");
    }

    [[noreturn]] void _fail(j_common_ptr info) {
        std::array<char, JMSG_LENGTH_MAX> message{};
        info->err->format_message(info, message.data());
        _jump(message.data());
    }

    [[noreturn]] void _jump(const char *reason) {
        std::snprintf(_reason.data(), _reason.size(), "%s", reason);
        std::longjmp(_place, 1);
    }

    const std::stop_token &_stop;
    KVBlocksOnDisk _blocks;
    jpeg_error_mgr _errors{};
    jpeg_progress_mgr _progress{};
    jpeg_decompress_struct _in{};
    jpeg_compress_struct _out{};
    std::FILE *_from = nullptr;
    std::FILE *_to = nullptr;
    std::jmp_buf _place{};
    std::array<char, JMSG_LENGTH_MAX> _reason{};
};

} // namespace

bool KVJPEGFile::needsMuchMemory(const VImage &image) {
    if (!image.get_typeof("interlaced")) return false;
    const auto values = static_cast<std::uint64_t>(image.width()) *
                        static_cast<std::uint64_t>(image.height()) *
                        static_cast<std::uint64_t>(image.bands());
    return values * bytesOfCoefficient > muchMemory;
}

VSource KVJPEGFile::rowByRow(const QString &path, const std::stop_token &stop) {
    const KVFileDescriptor result = KVNamelessTempFile();
    if (!result.isValid()) throw std::runtime_error(std::strerror(errno));
    const File from = opened(std::fopen(QFile::encodeName(path).constData(), "rbe"));
    File to = opened(::fdopen(::dup(result.get()), "wb"));
    Copy copy(from.get(), to.get(), stop);
    if (const char *reason = copy.run()) throw std::runtime_error(reason);
    if (std::fflush(to.get()) != 0) throw std::runtime_error(std::strerror(errno));
    return VSource::new_from_descriptor(result.get());
}
