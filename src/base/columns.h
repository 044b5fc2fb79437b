// Saturating arithmetic for columns and widths: settings may be as large as an integer gets, so
// results are clamped to [-INT_MAX, INT_MAX]. Each can be negated.
#ifndef QORN_BASE_COLUMNS_H
#define QORN_BASE_COLUMNS_H

#include <algorithm>
#include <climits>

[[nodiscard]] constexpr int saturated(long long value) {
  return static_cast<int>(std::clamp<long long>(value, -INT_MAX, INT_MAX));
}

[[nodiscard]] constexpr int addColumns(int left, int right) {
  return saturated(static_cast<long long>(left) + right);
}

[[nodiscard]] constexpr int timesColumns(int count, int width) {
  return saturated(static_cast<long long>(count) * width);
}

#endif
