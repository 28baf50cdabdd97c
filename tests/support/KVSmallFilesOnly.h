#pragma once

#include <csignal>

#include <sys/resource.h>

/// Files of this process cannot grow beyond a few bytes, until the end of the object: what a full disk is
/// like.
class KVSmallFilesOnly {
  public:
    explicit KVSmallFilesOnly(rlim_t bytes = 100) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit small{bytes, _before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~KVSmallFilesOnly() { ::setrlimit(RLIMIT_FSIZE, &_before); }
    KVSmallFilesOnly(const KVSmallFilesOnly &) = delete;
    KVSmallFilesOnly &operator=(const KVSmallFilesOnly &) = delete;

  private:
    rlimit _before{};
};
