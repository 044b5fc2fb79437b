// Sums of columns and widths. Settings may be as large as an integer gets, so that sums stop at the
// largest integer rather than run over, or at its negative, so that each can be negated.
#ifndef QORN_BASE_COLUMNS_H
#define QORN_BASE_COLUMNS_H

#include <algorithm>
#include <climits>

[[nodiscard]] constexpr int heldInRange(long long value) {
  return static_cast<int>(std::clamp<long long>(value, -INT_MAX, INT_MAX));
}

[[nodiscard]] constexpr int addColumns(int left, int right) {
  return heldInRange(static_cast<long long>(left) + right);
}

[[nodiscard]] constexpr int timesColumns(int count, int width) {
  return heldInRange(static_cast<long long>(count) * width);
}

#endif
