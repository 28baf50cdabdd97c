#pragma once

/// How `kalvoractl` ends; scripts rely on the numbers.
enum class KVExitStatus {
    success = 0,       ///< Everything asked for was done.
    failure = 1,       ///< Something failed; the rest was still done.
    usage = 2,         ///< The command line is wrong.
    interrupted = 130, ///< Ended by SIGINT.
    terminated = 143,  ///< Ended by SIGTERM.
};
