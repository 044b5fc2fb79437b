// The sums that spare most indents the way through the list.
#include "layout/pendingshifts.h"

#include <algorithm>
#include <climits>

#include "base/columns.h"

void PendingShifts::add(int limit, int shift) {
  if (shift == 0) return;
  while (!minima.empty() && shifts[minima.back()].limit >= limit) minima.pop_back();
  minima.push_back(shifts.size());
  const long long reach = limit + total;
  const long long highest = shifts.empty() ? reach : std::max(shifts.back().highest, reach);
  shifts.push_back({limit, shift, total, highest});
  total += shift;
}

int PendingShifts::smallestLimitFrom(std::size_t place) const {
  const auto found = std::ranges::lower_bound(minima, place);
  return found == minima.end() ? INT_MAX : shifts[*found].limit;
}

int PendingShifts::apply(int indent) const {
  if (shifts.empty() || indent <= smallestLimitFrom(0)) return indent;
  if (indent > shifts.back().highest) return heldInRange(indent - total);
  const auto first = std::ranges::lower_bound(shifts, indent, {}, &Shift::highest);
  int shifted = heldInRange(indent - first->before);  // the first limit that is not exceeded
  auto place = static_cast<std::size_t>(first - shifts.begin()) + 1;
  for (; place < shifts.size() && shifted > smallestLimitFrom(place); ++place) {
    if (shifted > shifts[place].limit) shifted = addColumns(shifted, -shifts[place].shift);
  }
  return shifted;
}

void PendingShifts::clear() {
  if (shifts.empty()) return;
  shifts.clear();
  minima.clear();
  total = 0;
}
