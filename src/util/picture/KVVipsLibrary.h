#pragma once

#include <QString>

/// The image library's start and its latest complaint. Any thread.
namespace KVVipsLibrary {

/// Has to be called before anything else of the library is used. The library keeps no images between calls,
/// and its warnings go to the log.
void prepare();

/// What the library has to say about the latest failure, without line ends; forgotten with this call.
QString takeErrorText();

} // namespace KVVipsLibrary
