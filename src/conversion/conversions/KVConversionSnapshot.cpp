#include "conversion/conversions/KVConversionSnapshot.h"

#include "platform/KVFileManager.h"

std::optional<QUrl> KVConversionSnapshot::fixedOrSourceFolder() const {
    return outputDirectoryURL ? outputDirectoryURL : _sourceFolder();
}

std::optional<QUrl> KVConversionSnapshot::sourceOrFixedFolder() const {
    return savesToSourceFolder ? _sourceFolder() : outputDirectoryURL;
}

std::optional<QUrl> KVConversionSnapshot::_sourceFolder() const {
    if (!savesToSourceFolder || files.isEmpty()) return std::nullopt;
    return KVFileManager::deletingLastPathComponent(files.first()->url());
}
