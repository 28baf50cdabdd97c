#pragma once

#include <QString>

#include <stdexcept>

/// Thrown instead of using a loader that may end the program, see KVPictureHelper.
struct KVUntrustedLoader : std::runtime_error {
    KVUntrustedLoader()
        : std::runtime_error("This kind of picture is not read in the program.") {}
};

/// The image library's start and its latest complaint. Any thread.
namespace KVVipsLibrary {

/// Has to be called before anything else of the library is used. The library keeps no images between calls,
/// and its warnings go to the log.
void prepare();

/// For the helper program, before `prepare`: loaders that the library does not trust may be used.
void allowUntrustedLoaders();
/// Throws KVUntrustedLoader in every other program.
void requireUntrustedLoaders();

/// What the library has to say about the latest failure, without line ends; forgotten with this call.
QString takeErrorText();

} // namespace KVVipsLibrary
