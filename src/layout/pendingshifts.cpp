// The sums that spare most indents the way through the list.
#include "layout/pendingshifts.h"

#include <algorithm>

#include "base/columns.h"

void PendingShifts::add(int limit, int shift) {
  if (shift == 0) return;
  shifts.push_back({limit, shift});
  smallestLimit = std::min(smallestLimit, limit);
  highest = std::max(highest, limit + total);
  total += shift;
}

int PendingShifts::apply(int indent) const {
  if (indent <= smallestLimit) return indent;
  if (indent > highest) return heldInRange(indent - total);
  for (const Shift& step : shifts) {
    if (indent > step.limit) indent = addColumns(indent, -step.shift);
  }
  return indent;
}

void PendingShifts::clear() {
  if (shifts.empty()) return;
  shifts.clear();
  total = 0;
  smallestLimit = INT_MAX;
  highest = LLONG_MIN;
}
