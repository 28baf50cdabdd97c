#include "probe_helper/KVProbeProgram.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <poll.h>
#include <unistd.h>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/log.h>
}

namespace {

constexpr int idleMilliseconds = 10'000;
constexpr unsigned longestProbe = 60; ///< Seconds. The other side gives up much earlier.

/// What the libraries have printed about the present file. One thread only.
std::string &printedText() {
    static std::string text;
    return text;
}

/// Lines look as those of `ffmpeg`, whose level is "info", too.
void print(void *context, int level, const char *format, va_list values) {
    if (level > AV_LOG_INFO) return;
    static int isAtBeginningOfLine = 1;
    std::array<char, 4096> line{};
    const int size = av_log_format_line2(context, level, format, values, line.data(),
                                         static_cast<int>(line.size()), &isAtBeginningOfLine);
    if (size > 0)
        printedText().append(line.data(), std::min(static_cast<std::size_t>(size), line.size() - 1));
}

struct CloseInput {
    void operator()(AVFormatContext *input) const { avformat_close_input(&input); }
};
using Input = std::unique_ptr<AVFormatContext, CloseInput>;

/// Null after an error, which is in `error`.
Input openedInput(const char *path, int &error) {
    AVFormatContext *input = nullptr;
    AVDictionary *options = nullptr;
    av_dict_set(&options, "scan_all_pmts", "1", 0); // as ffmpeg does
    error = avformat_open_input(&input, path, nullptr, &options);
    av_dict_free(&options);
    return Input(error < 0 ? nullptr : input);
}

/// Gives sound whose channels have no known places the usual ones, as ffmpeg does.
void guessChannelLayouts(AVFormatContext &input) {
    for (unsigned i = 0; i < input.nb_streams; ++i) {
        AVCodecParameters &parameters = *input.streams[i]->codecpar;
        AVChannelLayout &layout = parameters.ch_layout;
        if (parameters.codec_type != AVMEDIA_TYPE_AUDIO || layout.order != AV_CHANNEL_ORDER_UNSPEC) continue;
        av_channel_layout_default(&layout, layout.nb_channels);
        std::array<char, 128> name{};
        if (layout.order == AV_CHANNEL_ORDER_UNSPEC) continue;
        av_channel_layout_describe(&layout, name.data(), name.size());
        av_log(nullptr, AV_LOG_WARNING, "Guessed Channel Layout for Input Stream #0.%u : %s\n", i,
               name.data());
    }
}

void probe(const char *path) {
    int error = 0;
    const Input input = openedInput(path, error);
    if (!input) {
        std::array<char, AV_ERROR_MAX_STRING_SIZE> reason{};
        av_strerror(error, reason.data(), reason.size());
        printedText().append(path).append(": ").append(reason.data()).append("\n");
        return;
    }
    if (avformat_find_stream_info(input.get(), nullptr) < 0)
        printedText().append(path).append(": could not find codec parameters\n");
    guessChannelLayouts(*input);
    av_dump_format(input.get(), 0, path, 0);
}

bool writeAll(const char *bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool writeText(std::string_view text) {
    const auto size = static_cast<std::uint32_t>(text.size());
    return writeAll(reinterpret_cast<const char *>(&size), sizeof size) && writeAll(text.data(), text.size());
}

/// Splits standard input at NULs.
class Paths {
  public:
    /// Blocks. Empty at the end.
    std::optional<std::string> next() {
        std::size_t end = 0;
        while ((end = _bytes.find('\0')) == std::string::npos)
            if (!_read()) return std::nullopt;
        std::string path = _bytes.substr(0, end);
        _bytes.erase(0, end + 1);
        return path;
    }

  private:
    bool _read() {
        pollfd input = {STDIN_FILENO, POLLIN, 0};
        if (::poll(&input, 1, idleMilliseconds) <= 0) return false;
        std::array<char, 4096> bytes{};
        const ssize_t size = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (size <= 0) return false;
        _bytes.append(bytes.data(), static_cast<std::size_t>(size));
        return true;
    }

    std::string _bytes;
};

} // namespace

int KVProbeProgram::run() {
    av_log_set_callback(print);
    Paths paths;
    while (const auto path = paths.next()) {
        printedText().clear();
        ::alarm(longestProbe);
        probe(path->c_str());
        ::alarm(0);
        if (!writeText(printedText())) return 1;
    }
    return 0;
}
