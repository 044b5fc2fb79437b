// Shifts of indents that are yet to be applied to their tokens.
//
// Each break of a line shifts the later indents in it that exceed a limit. A line may hold millions
// of tokens and thousands of breaks, so the shifts are not applied when they arise: they wait here,
// in order, until a token is reached. An indent then takes a run of shifts, skips a run of those
// whose limits it does not exceed, and so on. The end of a run is found by the bounds of blocks of
// shifts, whatever its length. A table of 4,000 calls takes 280 instructions a byte with them and
// 4,700 if each shift is applied at once.
#ifndef QORN_LAYOUT_PENDINGSHIFTS_H
#define QORN_LAYOUT_PENDINGSHIFTS_H

#include <algorithm>
#include <climits>
#include <cstddef>
#include <vector>

#include "base/segmenttree.h"

class PendingShifts {
 public:
  /** Lowers by `shift` every indent that, after the shifts added before, exceeds `limit`. */
  void add(int limit, int shift);
  /** The indent after all shifts so far. */
  [[nodiscard]] int apply(int indent);
  /** False for an indent that no shift so far would change. */
  [[nodiscard]] bool concern(int indent) const { return indent > smallest; }
  void clear() {
    if (!shifts.empty()) drop();
  }

 private:
  struct Shift {
    int limit;
    int amount;
  };
  struct Bounds {
    long long smallest = LLONG_MAX;  // of the limits: an indent up to it takes none of the shifts
    long long highest = LLONG_MIN;   // of the limits, each plus the total before it: see endOfRun
    void include(const Bounds& other) {
      smallest = std::min(smallest, other.smallest);
      highest = std::max(highest, other.highest);
    }
  };
  void drop();
  /** The first place from `from` on whose limit is below the indent, else the end. */
  std::size_t startOfRun(std::size_t from, long long indent) const;
  /** The first place from `from` on where an indent that has taken every shift since `from` does
      not exceed the limit, else the end. */
  std::size_t endOfRun(std::size_t from, long long indent) const;

  std::vector<Shift> shifts;
  int smallest = INT_MAX;  // limit
  // Only of the shifts that had been added when one was last applied: most never are.
  std::vector<long long> totals{0};  // before each, and after the last
  SegmentTree<Bounds> limits;
};

#endif
