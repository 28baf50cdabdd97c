#include "cli/KVExitStatus.h"
