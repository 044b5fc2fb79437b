// Applying shifts in runs.
#include "layout/pendingshifts.h"

#include "base/columns.h"

void PendingShifts::add(int limit, int shift) {
  if (shift == 0) return;
  shifts.push_back({limit, shift});
  smallest = std::min(smallest, limit);
}

std::size_t PendingShifts::startOfRun(std::size_t from, long long indent) const {
  return limits.findFirst(from,
                          [indent](const Bounds& bounds) { return bounds.smallest < indent; });
}

std::size_t PendingShifts::endOfRun(std::size_t from, long long indent) const {
  const long long reach = indent + totals[from];
  return limits.findFirst(from, [reach](const Bounds& bounds) { return bounds.highest >= reach; });
}

int PendingShifts::apply(int indent) {
  for (std::size_t i = limits.size(); i < shifts.size(); ++i) {
    limits.add({shifts[i].limit, shifts[i].limit + totals.back()});
    totals.push_back(totals.back() + shifts[i].amount);
  }
  long long shifted = indent;
  std::size_t run = startOfRun(0, shifted);
  while (run < limits.size()) {
    const std::size_t end = endOfRun(run, shifted);
    shifted = saturated(shifted - (totals[end] - totals[run]));
    run = startOfRun(end, shifted);
  }
  return static_cast<int>(shifted);
}

void PendingShifts::drop() {
  shifts.clear();  // keeps the memory for the next line
  smallest = INT_MAX;
  totals.resize(1);
  limits.clear();
}
