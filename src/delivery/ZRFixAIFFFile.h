#pragma once

#include <QString>
#include <QUrl>

#include <sndfile.h>

#include <optional>

/// Rewrites a damaged sound file into a fresh copy: asks for the destination, copies all frames and answers
/// the new URL, or nothing where the user did not confirm or the copy failed (the log then says why). The
/// input stays as it is. Blocks; the question runs on the main thread.
std::optional<QUrl> ZRFixAIFFFile(const QUrl &url);

/// The format of a file with the extension of `name`, with the sample format of `format` where the extension
/// leaves it open. 0 for a name without an extension.
int sfe_file_type_of_ext(const QString &name, int format);

/// Copy all frames; false where not all of what was read could be written.
bool sfe_copy_data_fp(SNDFILE *output, SNDFILE *input, int channels);
bool sfe_copy_data_int(SNDFILE *output, SNDFILE *input, int channels);

/// Prints the known extensions with the names of their formats.
void sfe_dump_format_map();
