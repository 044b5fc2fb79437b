// Slab allocation. The first slab is small enough for a small input; the next ones grow by so large
// a factor that one of large pages soon follows: with slabs that doubled, 0.4 MB of code took a
// twentieth more time.
#include "base/arena.h"

#include <algorithm>

#include "base/system/memory.h"

namespace {

constexpr std::size_t smallestSlab = std::size_t{64} << 10;
constexpr std::size_t largestSlab = std::size_t{4} << 20;
constexpr std::size_t growth = 8;

}  // namespace

void Arena::clear() {
  if (areBlocksWatched) slabs.clear();
  used = 0;
  fresh = nullptr;
  freshEnd = nullptr;
}

void Arena::goToNextSlab(std::size_t wanted) {
  while (used < slabs.size() && slabs[used].size() < wanted) ++used;
  if (used == slabs.size()) {
    const std::size_t next = slabs.empty() ? 0 : growth * slabs.back().size();
    const std::size_t usual = areBlocksWatched ? 0 : std::clamp(next, smallestSlab, largestSlab);
    slabs.emplace_back(std::max(usual, wanted));
  }
  const MemoryBlock& slab = slabs[used++];
  fresh = slab.begin();
  freshEnd = fresh + slab.size();
}
