// Shifts of indents that still wait for their tokens.
//
// Each break of a line moves the indents further on in it that lie beyond a limit. A line may hold
// millions of tokens and thousands of breaks, so the shifts are not made when they arise: they wait
// here, in order, until a token is reached. On its way an indent takes a run of shifts, leaves out
// a run of those whose limits it does not exceed, and so on. Where a run ends is found by bounds of
// blocks of shifts, whatever its length.
#ifndef QORN_LAYOUT_PENDINGSHIFTS_H
#define QORN_LAYOUT_PENDINGSHIFTS_H

#include <algorithm>
#include <climits>
#include <cstddef>
#include <vector>

#include "base/blocktree.h"

class PendingShifts {
 public:
  /** From now on every indent above the limit, as it then is, goes down by the shift. */
  void add(int limit, int shift);
  /** The indent after all shifts so far. */
  [[nodiscard]] int apply(int indent);
  /** False for an indent that no shift so far would change. */
  [[nodiscard]] bool concern(int indent) const { return indent > smallest; }
  void clear();

 private:
  struct Shift {
    int limit;
    int amount;
  };
  struct Bounds {
    long long smallest = LLONG_MAX;  // of the limits: an indent up to it takes none of the shifts
    long long highest = LLONG_MIN;   // of the limits, each with the total before: see endOfRun
    void include(const Bounds& other) {
      smallest = std::min(smallest, other.smallest);
      highest = std::max(highest, other.highest);
    }
  };
  /** The first place at or behind `from` whose limit is below the indent, else the end. */
  std::size_t startOfRun(std::size_t from, long long indent) const;
  /** The first place at or behind `from` where an indent that has taken every shift since `from`
      does not exceed the limit, else the end. */
  std::size_t endOfRun(std::size_t from, long long indent) const;

  std::vector<Shift> shifts;
  int smallest = INT_MAX;  // limit
  // Of the first shifts, as many as stood there when one was applied last: most never are.
  std::vector<long long> totals{0};  // before each, and behind the last
  BlockTree<Bounds> limits;
};

#endif
