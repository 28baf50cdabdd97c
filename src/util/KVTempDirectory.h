#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <QString>
#include <QUrl>

/// The program's folder for intermediate files, made on every call. The first call makes it the working
/// directory of the process and so of every child, and notes that this process uses it. Falls back to the
/// system's folder. Any thread.
QUrl KVTempDirectoryURL();
QString KVTempDirectoryPath();

/// A new file in the folder that has no name and so leaves nothing behind. Invalid, with `errno`, where there
/// is no room for it.
KVFileDescriptor KVNamelessTempFile();

/// Empties the folder, ignoring what cannot be removed. Does nothing while another process uses it.
void KVCleanTempDirectory();
