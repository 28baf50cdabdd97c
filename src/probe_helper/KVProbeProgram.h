#pragma once

/// The helper program's side of KVProbeHelper.
namespace KVProbeProgram {

/// Reads paths from standard input, each followed by a NUL. For each of them it writes a length of 4 bytes in
/// the machine's byte order and that many bytes of text to standard output: what `ffmpeg -i PATH` of the same
/// version prints from "Input #0" on, with the messages of the libraries in front, or the reason why the file
/// cannot be opened. Returns the exit status when standard input has ended, or after 10 seconds without a
/// path.
int run();

} // namespace KVProbeProgram
