#include "base/system/memory.h"

#include <sys/mman.h>

void preferLargePages(void* block, std::size_t size) {
#ifdef MADV_HUGEPAGE
  (void)madvise(block, size, MADV_HUGEPAGE);
#else
  (void)block, (void)size;
#endif
}
