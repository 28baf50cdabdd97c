#include "tasks/KVFFmpegDialect.h"

#include "tasks/KVFFmpegProbeLine.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

/// Options of our language that stand alone; every other one has a value. (No objects that end with the
/// process: a worker may still launch while it ends.)
constexpr std::array optionsWithoutValue{"-y",  "-n",      "-an",       "-vn",          "-sn",
                                         "-dn", "-copyts", "-shortest", "-hide_banner", "-nostdin"};

/// Options whose value is a number or a name: what looks like an option behind them is one, and their value
/// is missing.
constexpr std::array optionsWithPlainValue{"-r"};

bool isAmong(const auto &options, const QString &option) {
    return std::ranges::any_of(options, [&](const char *known) { return option == QLatin1String(known); });
}

/// A word of ours that tools say in another way.
struct Word {
    const char *option;
    const char *ours;
    const char *tools;
    const char *videoEncoder; ///< Only this encoder wants it said otherwise; null: all.
};

constexpr std::array words{
    Word{"-flags", "4mv", "mv4", nullptr},
    Word{"-me_method", "epzs", "dia", "libx264"}, // the same search pattern
};

/// A value of ours that means that nothing is set; with this encoder (or with none) the tool takes it amiss,
/// and does the same or has its own default without it.
struct Unset {
    const char *option;
    const char *value;
    const char *videoEncoder;
};

constexpr std::array unset{
    Unset{"-level", "0", "libx264"},
    Unset{"-ss", "0", ""}, // even a way of no length passes over the cover picture of a sound file
};

/// What a tool has to be told beside an option of ours, so that it does what ours means.
struct Addition {
    const char *option;
    const char *videoEncoder; ///< With this encoder alone; null: with all.
    const char *added;
    const char *value; ///< Of the added option; null: it stands alone.
};

constexpr std::array additions{
    // The tracks keep their distance; how late the source begins is not meant.
    Addition{"-copyts", nullptr, "-start_at_zero", nullptr},
    // All of our profiles take this alone, and the encoder stops when the source gives it anything else.
    Addition{"-profile", "libx264", "-pix_fmt", "yuv420p"},
    // It stops at transparency, as animations have it.
    Addition{"-c:v", "libvpx", "-pix_fmt", "yuv420p"},
};

/// An option of ours that tools write in another way.
struct RenamedOption {
    const char *ours;
    const char *tools;
};

constexpr std::array renamedOptions{
    // Ours are for the picture, and a tool that applies one to the sound stops.
    RenamedOption{"-bsf", "-bsf:v"},
};

bool isOption(const QString &argument) {
    return argument.size() > 1 && argument.startsWith('-') && argument.at(1).isLetter();
}

/// The video encoder that the list asks for.
QString videoEncoder(const QStringList &arguments) {
    const qsizetype option = arguments.lastIndexOf("-c:v");
    return option < 0 ? QString() : arguments.value(option + 1);
}

/// The cover of a sound file keeps its mark as an attached picture when it is encoded, and containers then
/// refuse it or hide it from players.
QStringList mainPictureOptions(const QString &option, const QString &encoder,
                               const KVFFmpegCapabilities &capabilities) {
    if (option != "-c:v" || encoder == "copy" || !capabilities.isKnown("-disposition")) return {};
    return {"-disposition:v:0", "default"};
}

/// What stands before the input. A picture that is copied needs its timestamps, of which some containers
/// leave out those that can be worked out.
QStringList inputOptions(const QString &encoder, const KVFFmpegCapabilities &capabilities) {
    if (encoder != "copy" || !capabilities.isKnown("-fflags")) return {};
    return {"-fflags", "+genpts"};
}

/// `value` with each of its words ("+loop+4mv" has two) as the tool says it.
QString valueForTool(const QString &option, const QString &value, const QString &encoder) {
    QString said = value;
    for (const Word &word : words) {
        if (option != QLatin1String(word.option)) continue;
        if (word.videoEncoder && encoder != QLatin1String(word.videoEncoder)) continue;
        const QRegularExpression whole(QStringLiteral("(?<![^+-])%1(?![^+-])").arg(QLatin1String(word.ours)));
        said.replace(whole, QLatin1String(word.tools));
    }
    return said;
}

QString nameForTool(const QString &option) {
    for (const RenamedOption &renamed : renamedOptions)
        if (option == QLatin1String(renamed.ours)) return QString::fromLatin1(renamed.tools);
    return option;
}

bool isUnset(const QString &option, const QString &value, const QString &encoder) {
    return std::ranges::any_of(unset, [&](const Unset &row) {
        return option == QLatin1String(row.option) && value == QLatin1String(row.value) &&
               encoder == QLatin1String(row.videoEncoder);
    });
}

/// The encoder of Opus has no quality setting and stops at one; without it, it uses its default bit rate.
bool isQualityOfOpus(const QString &option, const QStringList &arguments) {
    return option == "-aq" && !arguments.contains("-c:a") &&
           arguments.last().endsWith(".opus", Qt::CaseInsensitive);
}

/// The containers of two devices, which the tool writes for the codecs and tracks alone that it thinks of;
/// with others it stops, and the plain container holds them too.
QString containerForTool(const QString &container, const QStringList &arguments) {
    const bool isIPodWithMP3 = container == "ipod" && arguments.contains("libmp3lame");
    const bool isPSPOfOtherThanTwoTracks = container == "psp" && arguments.count("-map") != 2;
    return isIPodWithMP3 || isPSPOfOtherThanTwoTracks ? QStringLiteral("mp4") : container;
}

/// Our name of a file in the filter that burns subtitles in, "subtitles='/a.srt'", is meant as it stands; the
/// tool takes such a text apart twice, as a filter and as the filter's options.
QString filterForTool(const QString &filter) {
    static const QString begin = QStringLiteral("subtitles='");
    if (!filter.startsWith(begin) || !filter.endsWith(u'\'')) return filter;
    const auto escaped = [](const QString &text, QLatin1String special) {
        QString result;
        for (const QChar character : text) {
            if (special.contains(character)) result += u'\\';
            result += character;
        }
        return result;
    };
    const QString path = filter.sliced(begin.size()).chopped(1);
    const QString option = escaped(path, QLatin1String("\\':"));
    return "subtitles=" + escaped(option, QLatin1String("\\'[],;"));
}

/// A number of channels alone makes ffmpeg use its default layout for it, and quad would be mixed into 4.0.
/// With all layouts of that number to choose from, it keeps the source's where the encoder takes it.
constexpr std::array layoutsFromThreeChannels{
    "3.0|2.1|3.0(back)",
    "4.0|quad|quad(side)|3.1",
    "5.0|5.0(side)|4.1",
    "5.1|5.1(side)|6.0|6.0(front)|hexagonal",
    "6.1|6.1(back)|6.1(front)|7.0|7.0(front)",
    "7.1|7.1(wide)|7.1(wide-side)|octagonal",
};

/// Encoders that would take another number of channels then, since each takes some layouts only.
constexpr std::array encodersOfFixedLayouts{"ac3", "alac"};

/// "-ac:a:0", "6" as ffmpeg keeps the layout of the source with it. As it is where the list filters sound
/// already.
QStringList channelArguments(const QString &option, const QString &value, const QStringList &arguments) {
    const int channels = value.toInt();
    const bool hasLayouts = channels >= 3 && channels < 3 + static_cast<int>(layoutsFromThreeChannels.size());
    const QString encoder = arguments.value(arguments.indexOf("-c" + option.mid(3)) + 1);
    if (!hasLayouts || isAmong(encodersOfFixedLayouts, encoder) || arguments.contains("-filter_complex") ||
        arguments.contains("-af"))
        return {option, value};
    return {"-filter" + option.mid(3),
            QLatin1String("aformat=channel_layouts=") +
                layoutsFromThreeChannels.at(static_cast<std::size_t>(channels) - 3)};
}

/// "-b:a:0", "128k". Vorbis has no mode below 32 kbit/s for each of three to five channels and would stop.
QString bitrateForTool(const QString &option, const QString &bitrate, const QStringList &arguments) {
    const QString track = option.mid(2);
    const auto valueOf = [&](const QString &name) {
        return arguments.value(arguments.indexOf(name + track) + 1);
    };
    const int channels = valueOf("-ac").toInt(), least = 32 * channels;
    const bool isTooLow = bitrate.endsWith('k') && bitrate.chopped(1).toInt() < least;
    if (valueOf("-c") != "libvorbis" || channels < 3 || channels > 5 || !isTooLow) return bitrate;
    return QStringLiteral("%1k").arg(least);
}

/// "-async", "50": sound that keeps step with its timestamps. Some sources round these, and the filter that
/// ffmpeg uses for the option then inserts silence; this one ignores inaudible differences. Empty if the list
/// filters the sound already or does not encode it as MP3 with one or two channels.
QStringList timingFilter(const QString &mostPerSecond, const QStringList &arguments) {
    const QString encoder = arguments.value(arguments.indexOf("-c:a:0") + 1);
    const int channels = arguments.value(arguments.indexOf("-ac:a:0") + 1).toInt();
    if (encoder != "libmp3lame" || channels > 2 || arguments.contains("-af") ||
        arguments.contains("-filter_complex"))
        return {};
    return {"-af", QStringLiteral("aresample=async=%1:first_pts=0:min_comp=0.01").arg(mostPerSecond)};
}

/// What stands behind `option` and is not part of our list.
QStringList additionsTo(const QString &option, const QString &encoder,
                        const KVFFmpegCapabilities &capabilities) {
    QStringList added;
    for (const Addition &row : additions) {
        if (option != QLatin1String(row.option)) continue;
        if (row.videoEncoder && encoder != QLatin1String(row.videoEncoder)) continue;
        if (!capabilities.isKnown(row.added)) continue;
        added << row.added;
        if (row.value) added << row.value;
    }
    return added;
}

} // namespace

QStringList KVFFmpegDialect::argumentsForTool(const QStringList &arguments,
                                              const KVFFmpegCapabilities &capabilities) {
    const QString encoder = videoEncoder(arguments);
    const qsizetype firstInput = arguments.indexOf("-i");
    QStringList said;
    for (qsizetype i = 0; i < arguments.size(); i++) {
        const QString &option = arguments.at(i);
        if (!isOption(option)) { // the output's path
            said.append(option);
            continue;
        }
        const bool isKnown = capabilities.isKnown(option);
        if (isAmong(optionsWithoutValue, option) || i + 1 == arguments.size()) {
            if (isKnown) said << option << additionsTo(option, encoder, capabilities);
            continue;
        }
        if (isAmong(optionsWithPlainValue, option) && isOption(arguments.at(i + 1))) continue;
        const QString &given = arguments.at(++i);
        QString value = given;
        if (option == "-f") value = containerForTool(given, arguments);
        if (option == "-vf") value = filterForTool(given);
        if (option.startsWith("-b:a")) value = bitrateForTool(option, given, arguments);
        if (isUnset(option, value, encoder) || isQualityOfOpus(option, arguments)) continue;
        if (i - 1 == firstInput) said += inputOptions(encoder, capabilities);
        const QStringList timing = option == "-async" ? timingFilter(value, arguments) : QStringList();
        if (!timing.isEmpty() && capabilities.isKnown("-af"))
            said << timing;
        else if (isKnown && option.startsWith("-ac:a"))
            said << channelArguments(option, value, arguments);
        else if (isKnown)
            said << nameForTool(option) << valueForTool(option, value, encoder)
                 << additionsTo(option, encoder, capabilities)
                 << mainPictureOptions(option, encoder, capabilities);
    }
    return said;
}

QString KVFFmpegDialect::textFromTool(QByteArrayView output) {
    return QString::fromUtf8(output);
}

QString KVFFmpegDialect::probeTextFromTool(const QString &text) {
    QStringList lines = text.split('\n');
    for (QString &line : lines)
        line = KVFFmpegProbeLine::inOurForm(line);
    return lines.join('\n');
}
