#pragma once

#include "kvcore/KVFileDescriptor.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <vector>

#include <jpeglib.h>

/// Holds the coefficients of a JPEG picture in a file without a name instead of in memory, for the JPEG
/// library, which asks for them row by row and calls the values of one channel an array.
class KVBlocksOnDisk {
  public:
    KVBlocksOnDisk() = default;
    ~KVBlocksOnDisk();
    KVBlocksOnDisk(const KVBlocksOnDisk &) = delete;
    KVBlocksOnDisk &operator=(const KVBlocksOnDisk &) = delete;

    /// Orders an array; all of them are ordered before `realize`.
    jvirt_barray_ptr request(JDIMENSION blocksPerRow, JDIMENSION rows);
    /// Takes the room for all arrays, filled with zeros. False, with `errno`, where the disk has none.
    bool realize();
    /// The rows from this one on.
    JBLOCKARRAY rows(jvirt_barray_ptr array, JDIMENSION first, JDIMENSION count);

  private:
    struct Array {
        std::size_t bytesPerRow;
        std::vector<JBLOCKROW> rows;
    };

    std::vector<std::unique_ptr<Array>> _arrays;
    KVFileDescriptor _file;
    char *_mapped = nullptr;
    std::size_t _size = 0;
    std::size_t _bytesSinceRelease = 0;
};
