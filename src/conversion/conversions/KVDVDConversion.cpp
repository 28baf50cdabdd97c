#include "conversion/conversions/KVDVDConversion.h"

#include "kvcore/KVFatalError.h"

bool KVDVDConversion::performTaskNumber(int number) {
    if (number != 0) KVFatalError("A DVD folder is converted in one task!");
    return _createISOImage();
}

QUrl KVDVDConversion::_dvdFolderURL() const {
    return _inWork().files.last()->url();
}
