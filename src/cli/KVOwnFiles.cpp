#include "cli/KVOwnFiles.h"

#include "cli/KVConsole.h"
#include "platform/KVFileManager.h"

#include <QFile>

KVOwnFiles::KVOwnFiles(KVConsole &console) {
    const auto support = KVFileManager::applicationSupportDirectory();
    if (support && KVFileManager::isWritable(*support)) return;
    _folder.emplace();
    if (!_folder->isValid()) return; // whoever needs a place says so
    ::qputenv("XDG_DATA_HOME", QFile::encodeName(_folder->path()));
    console.say(QStringLiteral("note: there is no place for the program's own files in the home folder; "
                               "%1 stands in for it")
                    .arg(_folder->path()));
}
