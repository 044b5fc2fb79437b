// Large pages take a privilege that users do not have.
#include "base/system/memory.h"

void preferLargePages(void*, std::size_t) {}
