// Where the slabs come from. A list of millions of tokens lies in hundreds of thousands of ordinary
// pages, and getting those from the system one by one would take as long as the formatting.
#include "base/pool.h"

#include <sys/mman.h>

#include <algorithm>
#include <new>

namespace {

constexpr std::size_t smallestSlab = std::size_t{64} << 10;
constexpr std::size_t largestSlab = std::size_t{4} << 20;
constexpr std::size_t largePage = std::size_t{2} << 20;

}  // namespace

std::size_t nextSlabSize(std::size_t size) {
  return std::clamp(2 * size, smallestSlab, largestSlab);
}

char* newSlab(std::size_t size) {
  if (size < largePage) return static_cast<char*>(::operator new(size));
  void* slab = ::operator new (size, std::align_val_t{largePage});
#ifdef MADV_HUGEPAGE
  (void)madvise(slab, size, MADV_HUGEPAGE);  // ordinary pages will do as well
#endif
  return static_cast<char*>(slab);
}
