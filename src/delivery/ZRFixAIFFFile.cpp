#include "delivery/ZRFixAIFFFile.h"

#include "kvcore/KVLog.h"
#include "platform/KVFileManager.h"
#include "platform/KVUserQuestions.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <span>
#include <vector>

namespace {

struct FormatRow {
    const char *extension;
    int majorFormat;
};

/// The first row stands for every extension that begins with it.
constexpr std::array formatMap{
    FormatRow{"aif", SF_FORMAT_AIFF},
    FormatRow{"wav", SF_FORMAT_WAV},
    FormatRow{"au", SF_FORMAT_AU},
    FormatRow{"caf", SF_FORMAT_CAF},
    FormatRow{"flac", SF_FORMAT_FLAC},
    FormatRow{"snd", SF_FORMAT_AU},
    FormatRow{"svx", SF_FORMAT_SVX},
    FormatRow{"paf", SF_FORMAT_PAF | SF_ENDIAN_BIG},
    FormatRow{"fap", SF_FORMAT_PAF | SF_ENDIAN_LITTLE},
    FormatRow{"gsm", SF_FORMAT_RAW},
    FormatRow{"nist", SF_FORMAT_NIST},
    FormatRow{"htk", SF_FORMAT_HTK},
    FormatRow{"ircam", SF_FORMAT_IRCAM},
    FormatRow{"sf", SF_FORMAT_IRCAM},
    FormatRow{"voc", SF_FORMAT_VOC},
    FormatRow{"w64", SF_FORMAT_W64},
    FormatRow{"raw", SF_FORMAT_RAW},
    FormatRow{"mat4", SF_FORMAT_MAT4},
    FormatRow{"mat5", SF_FORMAT_MAT5},
    FormatRow{"mat", SF_FORMAT_MAT4},
    FormatRow{"pvf", SF_FORMAT_PVF},
    FormatRow{"sds", SF_FORMAT_SDS},
    FormatRow{"sd2", SF_FORMAT_SD2},
    FormatRow{"vox", SF_FORMAT_RAW},
    FormatRow{"xi", SF_FORMAT_XI},
    FormatRow{"wve", SF_FORMAT_WVE},
    FormatRow{"oga", SF_FORMAT_OGG},
    FormatRow{"mpc", SF_FORMAT_MPC2K},
    FormatRow{"rf64", SF_FORMAT_RF64},
};
static_assert(formatMap.size() == 29);

/// Samples in one block of the copy loops, all channels together.
constexpr int blockLength = 4096;
constexpr qsizetype maximumExtensionLength = 15;

/// Broadcast data with room for a long coding history.
using BroadcastInfo = SF_BROADCAST_INFO_VAR(2048);
static_assert(sizeof(BroadcastInfo) == 2656 && sizeof(SF_INSTRUMENT) == 272);

struct Closer {
    void operator()(SNDFILE *file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, Closer>;

QString hexadecimal(int format) {
    return "0x" + QString::number(static_cast<uint>(format), 16).toUpper().rightJustified(8, '0');
}

SoundFile open(const QString &path, int mode, SF_INFO &info) {
    return SoundFile(sf_open(QFile::encodeName(path).constData(), mode, &info));
}

std::optional<QUrl> askForDestination(const QUrl &url) {
    const QString extension = KVFileManager::pathExtension(url);
    const QString name = KVFileManager::lastPathComponent(url);
    KVSavePanel panel;
    panel.allowedExtensions = {extension};
    panel.directory = KVFileManager::deletingLastPathComponent(url);
    panel.proposedName =
        QStringLiteral("%1_fix.%2").arg(KVFileManager::deletingPathExtension(name), extension);
    return KVUserQuestion::runModalOnMainThread(panel);
}

/// The format of the output; nothing, and a log line, where there is none for its name.
std::optional<int> outputFormat(const QString &path, SF_INFO info) {
    info.format = sfe_file_type_of_ext(path, info.format);
    if (info.format == 0) {
        KVLog(QStringLiteral("Error : Not able to determine output file type for %1.\n").arg(path));
        return std::nullopt;
    }
    const int subformat = info.format & SF_FORMAT_SUBMASK;
    info.format &= 0x3FFFFFFF;
    if ((info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_XI) {
        if (subformat == SF_FORMAT_PCM_S8 || subformat == SF_FORMAT_PCM_U8)
            info.format = SF_FORMAT_XI | SF_FORMAT_DPCM_8;
        else if (subformat == SF_FORMAT_PCM_16)
            info.format = SF_FORMAT_XI | SF_FORMAT_DPCM_16;
    }
    if (sf_format_check(&info)) return info.format;
    KVLog(QStringLiteral("Error : output file format is invalid (%1).\n").arg(hexadecimal(info.format)));
    return std::nullopt;
}

void copyTexts(SNDFILE *output, SNDFILE *input) {
    for (int type = SF_STR_FIRST; type <= 8; ++type)
        if (const char *text = sf_get_string(input, type)) sf_set_string(output, type, text);
}

/// Reads a chunk of the input with one command and hands it to the output with another.
void copyChunk(SNDFILE *output, SNDFILE *input, int getCommand, int setCommand, int size) {
    std::vector<char> chunk(static_cast<size_t>(size));
    if (sf_command(input, getCommand, chunk.data(), size)) sf_command(output, setCommand, chunk.data(), size);
}

void copyChunks(SNDFILE *output, SNDFILE *input, int channels) {
    if (channels < 256)
        copyChunk(output, input, SFC_GET_CHANNEL_MAP_INFO, SFC_SET_CHANNEL_MAP_INFO,
                  channels * static_cast<int>(sizeof(int)));
    copyChunk(output, input, SFC_GET_INSTRUMENT, SFC_SET_INSTRUMENT, sizeof(SF_INSTRUMENT));
    copyChunk(output, input, SFC_GET_BROADCAST_INFO, SFC_SET_BROADCAST_INFO, sizeof(BroadcastInfo));
}

bool copyFrames(SNDFILE *output, SNDFILE *input, int channels, int inputSubformat, int outputSubformat) {
    const auto isFloating = [](int subformat) {
        return subformat == SF_FORMAT_FLOAT || subformat == SF_FORMAT_DOUBLE;
    };
    const auto isVorbis = [](int subformat) { return subformat == SF_FORMAT_VORBIS; };
    if (isVorbis(inputSubformat) || isVorbis(outputSubformat) || isFloating(outputSubformat) ||
        isFloating(inputSubformat))
        return sfe_copy_data_fp(output, input, channels);
    return sfe_copy_data_int(output, input, channels);
}

} // namespace

std::optional<QUrl> ZRFixAIFFFile(const QUrl &url) {
    auto destination = askForDestination(url);
    if (!destination) return std::nullopt;
    const QString path = destination->toLocalFile();

    SF_INFO info{};
    const SoundFile input = open(url.toLocalFile(), SFM_READ, info);
    if (!input) {
        KVLog(QStringLiteral("Not able to open input file %1.\n").arg(url.toLocalFile()));
        KVLog(QString::fromUtf8(sf_strerror(nullptr)));
        return std::nullopt;
    }
    const int inputSubformat = info.format & SF_FORMAT_SUBMASK;
    const auto format = outputFormat(path, info);
    if (!format) return std::nullopt;
    // Opening for writing would empty the very file that is read.
    if (QFileInfo(path).canonicalFilePath() == QFileInfo(url.toLocalFile()).canonicalFilePath()) {
        KVLog(QStringLiteral("Error : the output is the input (%1).\n").arg(path));
        return std::nullopt;
    }

    info.format = *format;
    SoundFile output = open(path, SFM_WRITE, info);
    if (!output) {
        KVLog(QStringLiteral("Not able to open output file %1 : %2\n")
                  .arg(path, QString::fromUtf8(sf_strerror(nullptr))));
        return std::nullopt;
    }
    copyTexts(output.get(), input.get());
    copyChunks(output.get(), input.get(), info.channels);
    const int outputSubformat = *format & SF_FORMAT_SUBMASK;
    const bool isWhole =
        copyFrames(output.get(), input.get(), info.channels, inputSubformat, outputSubformat);
    const bool isClosed = sf_close(output.release()) == 0;
    if (isWhole && isClosed) return destination;
    KVLog(QStringLiteral("Error : not all of %1 could be written.\n").arg(path));
    return std::nullopt;
}

int sfe_file_type_of_ext(const QString &name, int format) {
    const QString component = name.section(u'/', -1);
    const qsizetype dot = component.lastIndexOf(u'.');
    if (dot < 0) return 0;
    const QString extension = component.sliced(dot + 1).left(maximumExtensionLength).toLower();
    if (extension == QLatin1String("gsm")) return SF_FORMAT_RAW | SF_FORMAT_GSM610;
    if (extension == QLatin1String("vox")) return SF_FORMAT_RAW | SF_FORMAT_VOX_ADPCM;

    const int subformat = format & SF_FORMAT_SUBMASK;
    if (extension.startsWith(QLatin1String(formatMap.front().extension)))
        return formatMap.front().majorFormat | subformat;
    const auto row = std::ranges::find_if(formatMap, [&](const FormatRow &candidate) {
        return extension == QLatin1String(candidate.extension);
    });
    return row != formatMap.end() ? row->majorFormat | subformat : SF_FORMAT_WAV | SF_FORMAT_PCM_24;
}

bool sfe_copy_data_fp(SNDFILE *output, SNDFILE *input, int channels) {
    std::array<double, blockLength> samples;
    const sf_count_t frames = blockLength / channels;
    double maximum = 0;
    sf_command(input, SFC_CALC_SIGNAL_MAX, &maximum, sizeof maximum);
    const bool isOvershooting = !(maximum < 1.0);
    if (isOvershooting) sf_command(input, SFC_SET_NORM_DOUBLE, nullptr, SF_FALSE);

    for (;;) {
        const sf_count_t count = sf_readf_double(input, samples.data(), frames);
        if (count <= 0) return true;
        if (isOvershooting)
            for (double &sample : std::span(samples).first(static_cast<size_t>(count * channels)))
                sample /= maximum;
        if (sf_writef_double(output, samples.data(), count) != count) return false;
    }
}

bool sfe_copy_data_int(SNDFILE *output, SNDFILE *input, int channels) {
    std::array<int, blockLength> samples;
    const sf_count_t frames = blockLength / channels;
    for (;;) {
        const sf_count_t count = sf_readf_int(input, samples.data(), frames);
        if (count <= 0) return true;
        if (sf_writef_int(output, samples.data(), count) != count) return false;
    }
}

void sfe_dump_format_map() {
    for (const FormatRow &row : formatMap) {
        SF_FORMAT_INFO info{};
        info.format = row.majorFormat;
        sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info);
        std::printf("        %-10s : %s\n", row.extension, info.name ? info.name : "????");
    }
}
