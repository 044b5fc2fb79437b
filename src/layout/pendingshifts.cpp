// The runs of shifts, and the blocks that bound them.
#include "layout/pendingshifts.h"

#include <algorithm>

#include "base/columns.h"

void PendingShifts::add(int limit, int shift) {
  if (shift == 0) return;
  if (isEmpty()) totals.push_back(0);
  const Block block{limit, limit + totals.back()};
  std::size_t place = size();
  totals.push_back(totals.back() + shift);
  for (std::size_t level = 0;; ++level, place /= 2) {
    if (level == levels.size()) levels.emplace_back();
    levelCount = std::max(levelCount, level + 1);
    auto& blocks = levels[level];
    if (place == blocks.size()) {
      const bool isFirst = level > 0 && place == 0;
      blocks.push_back(isFirst ? levels[level - 1].front() : block);
    }
    blocks[place].smallest = std::min(blocks[place].smallest, block.smallest);
    blocks[place].highest = std::max(blocks[place].highest, block.highest);
    if (blocks.size() == 1) return;
  }
}

template <typename Holds>
std::size_t PendingShifts::findBlock(std::size_t from, Holds holds) const {
  if (!holds(levels[levelCount - 1].front())) return size();  // which bounds them all
  std::size_t level = 0;
  std::size_t place = from;
  while (place < levels[level].size()) {
    if (holds(levels[level][place])) {
      if (level == 0) return place;
      --level;
      place *= 2;
      continue;
    }
    ++place;
    while (place % 2 == 0 && level + 1 < levelCount) {
      ++level;
      place /= 2;
    }
  }
  return size();
}

std::size_t PendingShifts::startOfRun(std::size_t from, long long indent) const {
  return findBlock(from, [indent](const Block& block) { return block.smallest < indent; });
}

std::size_t PendingShifts::endOfRun(std::size_t from, long long indent) const {
  const long long reach = indent + totals[from];
  return findBlock(from, [reach](const Block& block) { return block.highest >= reach; });
}

int PendingShifts::apply(int indent) const {
  if (isEmpty()) return indent;
  long long shifted = indent;
  std::size_t place = startOfRun(0, shifted);
  while (place < size()) {
    const std::size_t end = endOfRun(place, shifted);
    shifted = heldInRange(shifted - (totals[end] - totals[place]));
    place = startOfRun(end, shifted);
  }
  return static_cast<int>(shifted);
}

void PendingShifts::clear() {
  if (isEmpty()) return;
  totals.clear();  // the room stays for the next line
  for (std::size_t level = 0; level < levelCount; ++level) levels[level].clear();
  levelCount = 0;
}
