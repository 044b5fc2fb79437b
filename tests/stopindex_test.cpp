// When the index of stops is built. What it answers is compared with plain walks by every debug
// build, here over random lists, most of them left open.
#include "scanner/stopindex.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>

#include "scannerprobe.h"
#include "tokendump.h"

namespace {

TEST(StopIndexTest, AnswersAsAWalkWould) {
  constexpr const char* pieces[] = {
      "(",       "(",          ")",      ")",       ";",        ",",         "a ",        "b",
      "end ",    "in ",        ":",      "=",       "linkage ", "signal ",   " variable", "\n",
      "record ", "type t is ", "port (", "array (", "<= ",      "constant c"};
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string text = "port (a in";  // never closed: the index is built
    for (int i = 0; i < 60; ++i) text += pieces[random() % std::size(pieces)];
    SCOPED_TRACE(text);
    VhdlScanner scanner;
    EXPECT_EQ(scanner.format(text), 0);
    EXPECT_EQ(ScannerProbe::tokenList(scanner).countPushedAnchors(), 0);
  }
}

// Twenty measures over one long stretch are more than a well-formed source takes.
TEST(StopIndexTest, IsBuiltForLongWalksOverOneStretch) {
  TokenList list;
  lexInto(list, "a b c d");
  const VhdlToken* cursor = list.getFirst();
  const VhdlToken* end = list.getLast();
  const Measure longWalk{0, 10000, end};
  StopIndex index;
  for (int walk = 0; walk < 20; ++walk) {
    index.record(cursor, longWalk);
    index.pass(end);  // which ends the stretch
    index.record(cursor, {0, 10, end});
    EXPECT_FALSE(index.isBuilt());
  }
  for (int walk = 0; walk < 20; ++walk) index.record(cursor, longWalk);
  EXPECT_TRUE(index.isBuilt());
}

}  // namespace
