#pragma once

#include <QStringList>

/// The helper program's side of KVPictureHelper.
namespace KVPictureHelperProgram {

/// Reads the picture whose path comes first, with all loaders, and writes it in the image library's own
/// format to the second path; without one it only decodes the picture. Returns the exit status: 0, or 1 with
/// the reason on standard output, one line in English.
int run(const QStringList &paths);

} // namespace KVPictureHelperProgram
