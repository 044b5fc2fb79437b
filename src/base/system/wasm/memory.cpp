// All that a module without files, signals and threads needs of a system.
#include "base/system/memory.h"

void preferLargePages(void*, std::size_t) {}
