// Shifts of indents that still wait for their tokens.
//
// Each break of a line moves the indents further on in it that lie beyond a limit. A line may hold
// millions of tokens and thousands of breaks, so the shifts are not made when they arise: they wait
// here, in order, until a token is reached. The running sum settles most indents at once: one that
// stays above every limit on its way takes the whole sum, one at or below the smallest limit
// nothing, and only what lies between goes through the list.
#ifndef QORN_LAYOUT_PENDINGSHIFTS_H
#define QORN_LAYOUT_PENDINGSHIFTS_H

#include <climits>
#include <vector>

class PendingShifts {
 public:
  /** From now on every indent above the limit, as it then is, goes down by the shift. */
  void add(int limit, int shift);
  /** The indent after all shifts so far. */
  [[nodiscard]] int apply(int indent) const;
  [[nodiscard]] bool isEmpty() const { return shifts.empty(); }
  void clear();

 private:
  struct Shift {
    int limit;
    int shift;
  };

  std::vector<Shift> shifts;      // oldest first
  long long total = 0;            // sum of all shifts
  int smallestLimit = INT_MAX;    // an indent not above it is never shifted
  long long highest = LLONG_MIN;  // an indent above it is shifted by every one
};

#endif
