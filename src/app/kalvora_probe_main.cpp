#include "probe_helper/KVProbeProgram.h"

/// Describes media files for the program that has started it, which sends their paths.
int main() {
    return KVProbeProgram::run();
}
