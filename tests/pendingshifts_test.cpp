// Shifts summed up, against shifts made one by one.
#include "layout/pendingshifts.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace {

TEST(PendingShifts, AddUpToTheShiftsOneByOne) {
  std::mt19937 random(7);
  const auto pick = [&random](int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(random);
  };
  PendingShifts pending;
  std::vector<std::pair<int, int>> plain;
  for (int round = 0; round < 20000; ++round) {
    if (pick(0, 3) == 0) {
      plain.emplace_back(pick(0, 80), pick(-20, 40));
      pending.add(plain.back().first, plain.back().second);
    }
    if (pick(0, 30) == 0) {
      plain.clear();
      pending.clear();
    }
    const int indent = pick(-10, 300);
    int expected = indent;
    for (const auto& [limit, shift] : plain) {
      if (expected > limit) expected -= shift;
    }
    ASSERT_EQ(pending.apply(indent), expected) << "indent " << indent << ", round " << round;
  }
}

TEST(PendingShifts, StayInRange) {
  PendingShifts pending;
  pending.add(0, -INT_MAX);
  pending.add(0, -INT_MAX);
  EXPECT_EQ(pending.apply(5), INT_MAX);
  EXPECT_EQ(pending.apply(0), 0);
}

}  // namespace
