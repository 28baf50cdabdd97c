#include "core/KVFailureTable.h"

#include <algorithm>

namespace {

constexpr auto none = KVFailureRetry::none;
constexpr auto again = KVFailureRetry::again;
constexpr auto withoutSubtitles = KVFailureRetry::withoutSubtitles;
constexpr auto inAnotherFolder = KVFailureRetry::inAnotherFolder;

constexpr const char *chooseAnotherFolder = "Choose another destination folder and try again.";
constexpr const char *fetchAgain =
    "Copy or download the file again, or play it to see whether it is damaged.";
constexpr const char *changeSettings = "Change this setting of the preset, or choose another preset.";
constexpr const char *installCompleteFFmpeg =
    "Install a complete and recent ffmpeg, or choose another preset.";
constexpr const char *encodeInstead = "Choose a preset that encodes the tracks instead of copying them.";
constexpr const char *freeMemory = "Close other programs, or let fewer conversions run at once.";
constexpr const char *leaveOutSubtitles = "Try again without the subtitles, or choose another preset.";
constexpr const char *copyDiscAgain = "Copy the whole folder VIDEO_TS from the disc again.";
constexpr const char *reinstallTool =
    "Update or reinstall the packages of ffmpeg, dvdauthor and genisoimage.";
constexpr const char *openInEditor = "Open the picture in another program and save it again.";

std::vector<KVFailureRow> diskRows() {
    return {
        {.patterns = {"No space left on device"},
         .text = "There is no more space left on your hard drive.",
         .remedy = "Remove unnecessary files and try the conversion again.",
         .retry = inAnotherFolder,
         .errorText = "There is no more space left on the disk.",
         .alertPatterns = {"No space left on device"}},
        {.patterns = {"The destination folder is gone."},
         .text = "The destination folder has been moved or removed during the conversion.",
         .remedy = "Put it back or choose another one, and try the conversion again.",
         .retry = inAnotherFolder,
         .alertPatterns = {"The destination folder is gone."}},
        {.patterns = {"The result was removed or replaced by another program while it was written."},
         .text = nullptr,
         .remedy = "Try the conversion again."},
        {.patterns = {"The destination folder %@ is missing or cannot be written to."},
         .text = nullptr,
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{source}: No such file or directory", "Invalid node - '{source}'",
                      "Error opening input: No such file or directory"},
         .text = "The file to be converted cannot be found: it has been moved, renamed or removed.",
         .remedy = "Put the file back, or add it again from its new place.",
         .alertPatterns = {"Operation not permitted", "file not found", "No such file or directory"},
         .alertText = "The file to be converted cannot be found. Please make sure that you haven't moved or "
                      "renamed the files or enclosing folders before the conversion started.",
         .alertRemedy = "Re-add the files into the queue and start the conversion again. Renaming or moving "
                        "the file before the conversion starts is currently not supported."},
        {.patterns = {"Disk quota exceeded"},
         .text = "You have used up the space that you may use on this disk.",
         .remedy = "Remove unnecessary files and try the conversion again.",
         .retry = inAnotherFolder},
        {.patterns = {"File too large", "{status 153}"},
         .text = "The result is larger than a file on this disk may be.",
         .remedy = "Choose a folder on another disk (on a disk in the FAT format a file holds at most 4 GB), "
                   "or a lower quality.",
         .retry = inAnotherFolder},
        {.patterns = {"{output}: Read-only file system", "Read-only file system. Unable to open disc image"},
         .text = "The disk of the destination folder is write-protected.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{output}: Permission denied", "Permission denied. Unable to open disc image"},
         .text = "You have no permission to write into the destination folder.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{output}: No such file or directory", "{output}: Not a directory",
                      "No such file or directory. Unable to open disc image"},
         .text = "The destination folder does not exist.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{output}: Is a directory", "Is a directory. Unable to open disc image"},
         .text = "A folder has the name that the result should get.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{output}: File name too long"},
         .text = "The name of the result is too long for this disk.",
         .remedy = "Give the file a shorter name and add it again.",
         .retry = inAnotherFolder},
        {.patterns = {"same as Input #"},
         .text = "The result would replace the file that is converted.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"No output URL is set."},
         .text = "There is no destination folder.",
         .remedy = chooseAnotherFolder,
         .retry = inAnotherFolder},
        {.patterns = {"{source}: Permission denied", "Error opening input: Permission denied"},
         .text = "You have no permission to read the file.",
         .remedy = "Change the permissions of the file, or copy it into a folder of yours."},
        {.patterns = {"{source}: Is a directory", "Error opening input: Is a directory"},
         .text = "This is a folder and no media file.",
         .remedy = "Add the files in the folder instead.",
         .retry = none},
    };
}

std::vector<KVFailureRow> systemRows() {
    return {
        {.patterns = {"failed to map segment", "Cannot allocate memory", "std::bad_alloc", "out of memory",
                      "Failed to inject frame into filter network: Resource temporarily unavailable"},
         .text = "There is not enough memory.",
         .remedy = freeMemory},
        {.patterns = {"error while loading shared libraries:"},
         .text = "A library that ffmpeg needs is missing or damaged.",
         .remedy = reinstallTool},
        {.patterns = {"/ffmpeg: Permission denied", "/dvdauthor: Permission denied",
                      "/mkisofs: Permission denied", "/ffmpeg: Exec format error",
                      "/dvdauthor: Exec format error", "/mkisofs: Exec format error"},
         .text = "A program that the conversion needs cannot be started.",
         .remedy = reinstallTool},
        {.patterns = {"Too many open files"},
         .text = "Too many files are open at once.",
         .remedy = freeMemory},
        {.patterns = {"{status 137}"},
         .text = "The converter was ended by the system or another program; perhaps the memory ran out.",
         .remedy = freeMemory},
        {.patterns = {"{status 132}", "{status 134}", "{status 135}", "{status 136}", "{status 139}",
                      "{status 159}"},
         .text = "The converter crashed.",
         .remedy = "Try again. If it happens once more, update ffmpeg, or save the file anew with another "
                   "program."},
        {.patterns = {"{status 152}"},
         .text = "The converter has used all the processor time that it may use on this computer.",
         .remedy = "Choose faster settings, or ask the administrator of this computer for more time."},
        {.patterns = {"received signal ", "{status 129}", "{status 130}", "{status 143}"},
         .text = "Another program or the system asked the converter to stop.",
         .remedy = "Try the conversion again.",
         .errorText = "The tool was asked to stop."},
    };
}

std::vector<KVFailureRow> toolRows() {
    return {
        {.patterns = {"No such filter: 'subtitles'", "No such filter: 'ass'"},
         .text = "The installed ffmpeg cannot draw subtitles into the picture.",
         .remedy = leaveOutSubtitles,
         .retry = withoutSubtitles},
        {.patterns = {"No such filter:"},
         .text = "The installed ffmpeg lacks a filter that the preset needs.",
         .remedy = installCompleteFFmpeg,
         .retry = none},
        {.patterns = {"Unknown encoder '", "Error selecting an encoder"},
         .text = "The installed ffmpeg lacks the encoder that the preset needs.",
         .remedy = installCompleteFFmpeg,
         .retry = none},
        {.patterns = {"Unrecognized option '", "Option not found", "Error setting option ",
                      "Error setting preset/tune"},
         .text = "The installed ffmpeg does not know a setting of the preset.",
         .remedy = installCompleteFFmpeg,
         .retry = none},
        {.patterns = {"is not a suitable output format", "Unable to find a suitable output format",
                      "Unable to choose an output format"},
         .text = "The installed ffmpeg cannot write this format.",
         .remedy = installCompleteFFmpeg,
         .retry = none},
        {.patterns = {"Cannot load libcuda", "No VA display found", "MFX session", "Device creation failed",
                      "Impossible to convert between the formats supported by the filter"},
         .text = "The graphics processor or its driver cannot encode this video.",
         .remedy =
             "Choose a preset with another video format, or install the driver of the graphics processor."},
        {.patterns = {"none (encv", "none (enca", "none (drm", "encrypted with"},
         .text = "The file is protected against copying.",
         .remedy = "Use a copy without protection, if its provider offers one.",
         .retry = none},
        {.patterns = {"Unknown decoder '", "Decoder (codec ", "Decoding requested, but no decoder found"},
         .text = "The installed ffmpeg cannot decode a track of the file.",
         .remedy = installCompleteFFmpeg,
         .retry = none},
    };
}

std::vector<KVFailureRow> subtitleRows() {
    return {
        {.patterns = {"Unable to open {subtitles}", "{subtitles}: Invalid data found"},
         .text = "The subtitles file is in no format that can be read.",
         .remedy = "Choose another subtitles file, or try again without the subtitles.",
         .retry = withoutSubtitles},
        {.patterns = {"Invalid UTF-8 in decoded subtitles text", "Unable to recode subtitle event",
                      "Unable to open iconv context"},
         .text = "The text of the subtitles is in another encoding.",
         .remedy = "Choose the right encoding of the subtitles, or try again without them.",
         .retry = withoutSubtitles},
        {.patterns = {"Could not find tag for codec subrip", "Could not find tag for codec ass",
                      "Could not find tag for codec hdmv_pgs", "Could not find tag for codec dvd_subtitle",
                      "Subtitle streams other than", "Subtitle encoding currently only possible",
                      "Subtitle codec "},
         .text = "The format of the result cannot hold these subtitles.",
         .remedy = leaveOutSubtitles,
         .retry = withoutSubtitles},
    };
}

std::vector<KVFailureRow> encoderRows() {
    return {
        {.patterns = {"not divisible by 2", "must be multiple of 2", "must be a multiple of",
                      "must be an integer multiple of the specified chroma"},
         .text = "The encoder takes only pictures with an even width and height.",
         .remedy = "Set an even size in the preset, or choose another preset.",
         .retry = none},
        {.patterns = {"Picture size ", "does not support resolutions above"},
         .text = "The picture is too large for the encoder.",
         .remedy = "Set a smaller size in the preset.",
         .retry = none},
        {.patterns = {"The specified picture size of", "Valid sizes are", "Found no DV profile"},
         .text = "The format allows only a few sizes of the picture, and this is none of them.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"profile doesn't support", "invalid profile"},
         .text = "The encoder's profile cannot hold the colors of this video.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"does not support timebase", "MPEG-1/2 does not support", "Invalid framerate value",
                      "not supported by MPEG 4 standard"},
         .text = "The format does not allow this number of frames per second.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"Specified sample rate", "is only implemented", "only 48khz is implemented"},
         .text = "The format does not allow this sample rate.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"Specified channel layout", "channels not supported (max", "too many channels: got",
                      "Unsupported channel layout", "Opus mapping family undefined",
                      "Rematrix is needed between"},
         .text = "The format cannot hold this number of audio channels.",
         .remedy = "Choose fewer channels in the preset, or another preset.",
         .retry = none},
        {.patterns = {"The bit rate ", "is not allowed in mp2", "encoder setup failed"},
         .text = "The format does not allow this bit rate.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"Invalid too big or non positive size"},
         .text = "The part to be cut out is larger than the picture, or empty.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"Error initializing filter 'volume'", "Error initializing filter 'atempo'"},
         .text = "The volume or speed of the preset is outside the limits.",
         .remedy = changeSettings,
         .retry = none},
        {.patterns = {"Can't write packet with unknown timestamp", "non monotonically increasing dts"},
         .text = "The times of a track are missing or not in order, so it cannot be copied.",
         .remedy = encodeInstead,
         .retry = none},
        {.patterns = {"Could not find tag for codec", "Only VP8 or VP9", "Unsupported codec id in stream",
                      "Exactly one MP3 audio stream", "muxing codec currently unsupported",
                      "codec not currently supported in container"},
         .text = "The format of the result cannot hold a track of the file as it is.",
         .remedy = encodeInstead,
         .retry = none},
    };
}

std::vector<KVFailureRow> trackRows() {
    return {
        {.patterns = {"do not match the corresponding output link"},
         .text = "The files differ in size, so they cannot be joined.",
         .remedy = "Convert the files one by one first, with the same settings.",
         .retry = none},
        {.patterns = {"The frame size of \"%@\" is unknown, so it cannot be merged with other videos."},
         .text = nullptr,
         .remedy = "Remove this file from the conversion, or convert the files one by one.",
         .retry = none},
        {.patterns = {"Stream specifier '"},
         .text = "One of the files lacks a track that the others have, so they cannot be joined.",
         .remedy = "Convert the files one by one, or remove the file without this track.",
         .retry = none},
        {.patterns = {"Stream map '"},
         .text = "The chosen track is not in the file any more.",
         .remedy = "Remove the file and add it again."},
        {.patterns = {"does not contain any stream"},
         .text = "The file has no track of the kind that the preset makes.",
         .remedy = "Choose a preset that fits the file.",
         .retry = none},
        {.patterns = {"dimensions not set"},
         .text = "The file does not tell the size of its picture.",
         .remedy = fetchAgain,
         .errorText = "The file does not tell the size of its picture."},
        {.patterns = {"Cannot determine format of input stream"},
         .text = "A track of the file holds nothing that can be decoded.",
         .remedy = fetchAgain,
         .errorText = "A track of the file holds nothing that can be decoded."},
    };
}

std::vector<KVFailureRow> discRows() {
    return {
        {.patterns = {"Permission denied. Failed to open VIDEO_TS.IFO",
                      "Permission denied. Unable to open directory"},
         .text = "You have no permission to read files of the DVD folder.",
         .remedy = "Change the permissions of the folder VIDEO_TS, or copy it into a folder of yours."},
        {.patterns = {"Failed to open VIDEO_TS.IFO", "Can't open VTS info"},
         .text = "The DVD folder is incomplete: a file with the ending IFO is missing.",
         .remedy = copyDiscAgain},
        {.patterns = {"not a valid IFO file", "Failed to read VIDEO_TS.IFO"},
         .text = "The DVD folder is damaged: a file with the ending IFO cannot be understood.",
         .remedy = copyDiscAgain},
        {.patterns = {"Could not find correct 'VIDEO_TS' directory"},
         .text = "The folder holds no DVD: it has no folder VIDEO_TS.",
         .remedy = copyDiscAgain},
        {.patterns = {"is larger than 4GiB-1"},
         .text = "A file of the disc is larger than the 4 GB that an image of a disc can hold.",
         .remedy = "Choose a lower bit rate in the preset, or put fewer or shorter films on the disc.",
         .retry = none},
        {.patterns = {"Volume ID string too long"},
         .text = "The name of the disc is too long.",
         .remedy = "Give the disc a shorter name.",
         .retry = none},
        {.patterns = {"cannot fwrite", "-- writing data",
                      "The disc cannot be written into the temporary folder", "cannot create dir "},
         .text = "The disc could not be written to its end.",
         .remedy = "See that there is enough space and that the disk can be written to, and try again."},
        {.patterns = {"opening input video file", "opening XML file"},
         .text = "An intermediate file has been removed during the conversion.",
         .remedy = "Try the conversion again."},
        {.patterns = {"no VOBUs found", "no titles defined"},
         .text = "There is no film that can be put on the disc.",
         .remedy = fetchAgain},
        {.patterns = {"no video format specified", "Error in parsing XML"},
         .text = "The disc program dvdauthor does not understand what the disc should hold.",
         .remedy = reinstallTool},
    };
}

std::vector<KVFailureRow> pictureRows() {
    return {
        {.patterns = {"{source} is empty"}, .text = "The file is empty.", .remedy = fetchAgain},
        {.patterns = {"The picture is too large: %li x %li pixels, where %li million pixels are the limit."},
         .text = nullptr,
         .remedy = "Make the picture smaller with another program first.",
         .retry = none},
        {.patterns =
             {"This format allows at most %li pixels on a side, but the picture would have %li x %li."},
         .text = nullptr,
         .remedy = "Set a smaller size in the preset, or choose another preset.",
         .retry = none},
        {.patterns = {"Lab colors are not supported", "unsupported colorspace"},
         .text = "The picture uses a color model that cannot be read, such as Lab.",
         .remedy = "Open the picture in another program and save it in RGB colors.",
         .retry = none},
        {.patterns = {"The helper program \"%@\" does not start: %@"},
         .text = nullptr,
         .remedy = "Install Kalvora again."},
        {.patterns = {"This is no picture of a known kind"},
         .text = "The file holds no picture of a kind that can be read, whatever its name says.",
         .remedy = openInEditor},
        {.patterns = {"ends too early", "Premature end of input file", "not enough data", "libpng read error",
                      "Read error at "},
         .text = "The picture is incomplete.",
         .remedy = fetchAgain},
        {.patterns = {"CRC error", "Corrupt JPEG data", "The header of the bitmap is damaged",
                      "Unsupported marker type", "bad seek to", "The file is damaged."},
         .text = "The picture is damaged.",
         .remedy = fetchAgain},
        {.patterns = {"libMagick error: "},
         .text = "The picture is damaged, or of a kind that cannot be read.",
         .remedy = openInEditor},
    };
}

std::vector<KVFailureRow> damageRows() {
    return {
        {.patterns = {"moov atom not found"},
         .text = "The file is incomplete: the index that belongs to it is missing.",
         .remedy = fetchAgain},
        {.patterns = {"{source}: End of file", "{source}: Input/output error", "File ended prematurely",
                      "Error opening input: End of file", "Error opening input: Input/output error"},
         .text = "The file cannot be read to its end: it is incomplete, or its disk has a fault.",
         .remedy = fetchAgain},
        {.patterns = {"{source}: Invalid data found", "{source}: Invalid argument",
                      "{source}: could not find codec parameters", "EBML header parsing failed",
                      "Error opening input: Invalid data found"},
         .text = "The file is damaged, or it is no media file.",
         .remedy = fetchAgain},
        {.patterns = {"The result is empty: nothing in the source could be converted.",
                      "The result cannot be opened.", "The disc image is empty."},
         .text = nullptr,
         .remedy = fetchAgain},
        {.patterns = {"{status 69}", "nothing was encoded"},
         .text = "Most of the file could not be decoded: it is damaged or protected.",
         .remedy = fetchAgain},
        {.patterns = {"Error while opening encoder", "Could not write header for output file"},
         .text = "The encoder does not accept the settings of the preset for this file.",
         .remedy = changeSettings,
         .retry = none},
    };
}

std::vector<KVFailureRow> allRows() {
    std::vector<KVFailureRow> rows;
    for (const auto &part : {diskRows(), systemRows(), toolRows(), subtitleRows(), encoderRows(), trackRows(),
                             discRows(), pictureRows(), damageRows()})
        rows.insert(rows.end(), part.begin(), part.end());
    return rows;
}

} // namespace

const std::vector<KVFailureRow> &KVFailureTable::rows() {
    static const std::vector<KVFailureRow> rows = allRows();
    return rows;
}

const KVFailureRow *KVFailureTable::alertFor(const QString &report) {
    const auto matches = [&](const char *pattern) { return report.contains(QLatin1String(pattern)); };
    const auto row = std::ranges::find_if(rows(), [&](const KVFailureRow &candidate) {
        return std::ranges::any_of(candidate.alertPatterns, matches);
    });
    return row == rows().end() ? nullptr : &*row;
}
