// Shifts of indents that still wait for their tokens.
//
// Each break of a line moves the indents further on in it that lie beyond a limit. A line may hold
// millions of tokens and thousands of breaks, so the shifts are not made when they arise: they wait
// here, in order, until a token is reached. Sums kept along the list settle most indents at once:
// one that stays above every limit on its way takes the whole sum, one at or below the smallest
// limit nothing; of any other a search finds the first limit that it does not exceed.
#ifndef QORN_LAYOUT_PENDINGSHIFTS_H
#define QORN_LAYOUT_PENDINGSHIFTS_H

#include <cstddef>
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
    long long before;   // sum of the shifts before this one
    long long highest;  // an indent above it takes every shift up to this one
  };
  int smallestLimitFrom(std::size_t place) const;

  std::vector<Shift> shifts;        // oldest first
  std::vector<std::size_t> minima;  // places whose limit is below all later ones, ascending
  long long total = 0;              // sum of all shifts
};

#endif
