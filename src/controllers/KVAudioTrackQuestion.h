#pragma once

#include "controllers/KVIntakeLoad.h"

class KVAudioFile;

/// The question which audio track of a file is to be converted.
namespace KVAudioTrackQuestion {

/// Selects a track of a file with several: the one that the user chose for all files of the load, otherwise
/// the one that the user chooses now. False if the user skips the file. Blocks while the question is open.
/// Any thread.
bool select(KVAudioFile &file, KVIntakeLoad &load);

} // namespace KVAudioTrackQuestion
