#pragma once

#include <QTemporaryDir>

#include <optional>

class KVConsole;

/// Sees to it that the program's own files have a place: without a home folder that can be written to (a
/// service's user has none) they go to a folder that lasts as long as this object.
class KVOwnFiles {
  public:
    /// Before any other thread runs: changes the environment.
    explicit KVOwnFiles(KVConsole &console);

  private:
    std::optional<QTemporaryDir> _folder;
};
