// Slab allocation. Slabs double in size up to a limit, so that neither small nor large inputs pay
// for the other. A list of millions of tokens occupies hundreds of thousands of ordinary pages, and
// faulting those in one by one took five sixths of the time for 20 MB of code: large slabs use
// large pages where the system has them.
#include "base/arena.h"

#include <algorithm>
#include <new>

#include "base/system/memory.h"

namespace {

constexpr std::size_t smallestSlab = std::size_t{64} << 10;
constexpr std::size_t largestSlab = std::size_t{4} << 20;
constexpr std::size_t largePage = std::size_t{2} << 20;

bool isLarge(std::size_t size) { return size >= largePage; }

char* newSlab(std::size_t size) {
  if (!isLarge(size)) return static_cast<char*>(::operator new(size));
  void* slab = ::operator new (size, std::align_val_t{largePage});
  preferLargePages(slab, size);
  return static_cast<char*>(slab);
}

void freeSlab(char* slab, std::size_t size) {
  if (isLarge(size)) {
    ::operator delete (slab, std::align_val_t{largePage});
  } else {
    ::operator delete(slab);
  }
}

}  // namespace

Arena::~Arena() { freeSlabs(); }

void Arena::clear() {
  if (areBlocksWatched) freeSlabs();
  used = 0;
  fresh = nullptr;
  freshEnd = nullptr;
}

void Arena::goToNextSlab(std::size_t wanted) {
  while (used < slabs.size() && slabs[used].size < wanted) ++used;
  if (used == slabs.size()) {
    const std::size_t twice = slabs.empty() ? 0 : 2 * slabs.back().size;
    const std::size_t usual = areBlocksWatched ? 0 : std::clamp(twice, smallestSlab, largestSlab);
    const std::size_t size = std::max(usual, wanted);
    slabs.push_back({newSlab(size), size});
  }
  const Slab& slab = slabs[used++];
  fresh = slab.start;
  freshEnd = slab.start + slab.size;
}

void Arena::freeSlabs() {
  for (const Slab& slab : slabs) freeSlab(slab.start, slab.size);
  slabs.clear();
}
