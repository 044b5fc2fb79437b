// A segment tree that only grows: a sequence with a summary of every aligned block of 2, 4, 8, ...
// values. Searches and range queries take O(log n) steps.
#ifndef QORN_BASE_SEGMENTTREE_H
#define QORN_BASE_SEGMENTTREE_H

#include <algorithm>
#include <cstddef>
#include <vector>

/** Summary{} is the neutral element; a.include(b) folds b into a. */
template <typename Summary>
class SegmentTree {
 public:
  [[nodiscard]] bool isEmpty() const { return levelCount == 0; }
  [[nodiscard]] std::size_t size() const { return isEmpty() ? 0 : levels[0].size(); }

  /** Appends a value. */
  void add(const Summary& value) {
    std::size_t index = size();
    for (std::size_t level = 0;; ++level, index /= 2) {
      if (level == levels.size()) levels.emplace_back();
      levelCount = std::max(levelCount, level + 1);
      auto& blocks = levels[level];
      if (index == blocks.size()) {
        const bool isFirst = level > 0 && index == 0;
        blocks.push_back(isFirst ? levels[level - 1].front() : value);
      }
      blocks[index].include(value);
      if (blocks.size() == 1) return;
    }
  }

  /** The first index from `from` on whose value `holds`, else size(). Requires: what holds for a
      value holds for every summary that includes it. */
  template <typename Holds>
  [[nodiscard]] std::size_t findFirst(std::size_t from, Holds holds) const {
    if (isEmpty() || !holds(levels[levelCount - 1].front())) return size();
    std::size_t level = 0;
    std::size_t index = from;
    while (index < levels[level].size()) {
      if (holds(levels[level][index])) {
        if (level == 0) return index;
        --level;
        index *= 2;
        continue;
      }
      ++index;
      while (index % 2 == 0 && level + 1 < levelCount) {
        ++level;
        index /= 2;
      }
    }
    return size();
  }

  /** The summary of the values in [from, to). */
  [[nodiscard]] Summary query(std::size_t from, std::size_t to) const {
    Summary summary;
    while (from < to) {
      std::size_t level = 0;
      while (level + 1 < levelCount && from % (std::size_t{2} << level) == 0 &&
             from + (std::size_t{2} << level) <= to) {
        ++level;
      }
      summary.include(levels[level][from >> level]);
      from += std::size_t{1} << level;
    }
    return summary;
  }

  /** Keeps the allocated memory. */
  void clear() {
    for (std::size_t level = 0; level < levelCount; ++level) levels[level].clear();
    levelCount = 0;
  }

 private:
  std::vector<std::vector<Summary>> levels;  // blocks of 1, 2, 4, ... values; the last may be short
  std::size_t levelCount = 0;                // in use
};

#endif
