// The runs of shifts.
#include "layout/pendingshifts.h"

#include "base/columns.h"

void PendingShifts::add(int limit, int shift) {
  if (shift == 0) return;
  if (isEmpty()) totals.push_back(0);
  limits.add({limit, limit + totals.back()});
  totals.push_back(totals.back() + shift);
}

std::size_t PendingShifts::startOfRun(std::size_t from, long long indent) const {
  return limits.findFirst(from,
                          [indent](const Bounds& bounds) { return bounds.smallest < indent; });
}

std::size_t PendingShifts::endOfRun(std::size_t from, long long indent) const {
  const long long reach = indent + totals[from];
  return limits.findFirst(from, [reach](const Bounds& bounds) { return bounds.highest >= reach; });
}

int PendingShifts::apply(int indent) const {
  if (isEmpty()) return indent;
  long long shifted = indent;
  std::size_t place = startOfRun(0, shifted);
  while (place < limits.size()) {
    const std::size_t end = endOfRun(place, shifted);
    shifted = heldInRange(shifted - (totals[end] - totals[place]));
    place = startOfRun(end, shifted);
  }
  return static_cast<int>(shifted);
}

void PendingShifts::clear() {
  if (isEmpty()) return;
  totals.clear();  // the room stays for the next line
  limits.clear();
}
