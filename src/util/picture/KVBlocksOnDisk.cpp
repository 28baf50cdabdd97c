#include "util/picture/KVBlocksOnDisk.h"

#include "util/KVTempDirectory.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>

namespace {

/// What has been read and written is given back to the disk after so many bytes.
constexpr std::size_t bytesInMemory = std::size_t{32} * 1024 * 1024;

} // namespace

KVBlocksOnDisk::~KVBlocksOnDisk() {
    if (_mapped) ::munmap(_mapped, _size);
}

jvirt_barray_ptr KVBlocksOnDisk::request(JDIMENSION blocksPerRow, JDIMENSION rows) {
    auto array = std::make_unique<Array>(Array{blocksPerRow * sizeof(JBLOCK), std::vector<JBLOCKROW>(rows)});
    _size += array->bytesPerRow * rows;
    _arrays.push_back(std::move(array));
    return reinterpret_cast<jvirt_barray_ptr>(_arrays.back().get());
}

bool KVBlocksOnDisk::realize() {
    if (_size == 0 || _mapped) return true;
    _file = KVNamelessTempFile();
    if (!_file.isValid()) return false;
    // Room that is missing is noticed here: a full disk would end the program later.
    if (const int error = ::posix_fallocate(_file.get(), 0, static_cast<off_t>(_size))) {
        errno = error;
        return false;
    }
    void *mapped = ::mmap(nullptr, _size, PROT_READ | PROT_WRITE, MAP_SHARED, _file.get(), 0);
    if (mapped == MAP_FAILED) return false;
    _mapped = static_cast<char *>(mapped);
    char *row = _mapped;
    for (const auto &array : _arrays)
        for (JBLOCKROW &start : array->rows) {
            start = reinterpret_cast<JBLOCKROW>(row);
            row += array->bytesPerRow;
        }
    return true;
}

JBLOCKARRAY KVBlocksOnDisk::rows(jvirt_barray_ptr array, JDIMENSION first, JDIMENSION count) {
    auto &wanted = *reinterpret_cast<Array *>(array);
    _bytesSinceRelease += count * wanted.bytesPerRow;
    if (_bytesSinceRelease > bytesInMemory) {
        ::madvise(_mapped, _size, MADV_DONTNEED); // stays in the file
        _bytesSinceRelease = 0;
    }
    return wanted.rows.data() + first;
}
