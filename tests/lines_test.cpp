// Sets of lines, and taking over what touches them.
#include "fmt/lines.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

std::string shown(const std::vector<LineRange>& ranges) {
  std::string result;
  for (const LineRange& range : ranges) {
    result += std::to_string(range.first) + ":" + std::to_string(range.last) + " ";
  }
  return result;
}

/** The set of these texts; with "!" for each that is none. */
std::string parsed(std::initializer_list<const char*> texts) {
  LineSet lines;
  std::string refused;
  for (const char* text : texts) refused += lines.addParsed(text) ? "" : "!";
  return refused + shown(lines.getRanges());
}

TEST(Lines, AreRangesThatNeitherOverlapNorTouch) {
  EXPECT_EQ(parsed({"7:9", "1:2", "5:5"}), "1:2 5:5 7:9 ");
  EXPECT_EQ(parsed({"7:9", "1:2", "3:6"}), "1:9 ");
  EXPECT_EQ(parsed({"1:2", "7:9", "2:7", "20:20", "11:12"}), "1:9 11:12 20:20 ");
  EXPECT_EQ(parsed({"5:9", "6:7"}), "5:9 ");
  EXPECT_EQ(parsed({"2:99999999999", "1:1", "4294967295:4294967295"}), "1:4294967295 ");
  EXPECT_EQ(parsed({"", ":", "1", "0:1", "2:1", "1:", ":1", "1:2x", " 1:2", "-1:2", "1:2:3"}),
            "!!!!!!!!!!!");
}

TEST(Lines, OfHunksOfGit) {
  LineSet lines;
  lines.add(12, 0);
  EXPECT_TRUE(lines.isEmpty());
  lines.add(12, 1);
  lines.add(20, 3);
  EXPECT_EQ(shown(lines.getRanges()), "12:12 20:22 ");
  EXPECT_EQ(lines.countIn({12, 21}), 3U);
  EXPECT_EQ(lines.countIn({13, 19}), 0U);
}

struct Case {
  const char* old;
  const char* fresh;
  const char* lines;
  const char* expected;
  const char* leftOut = "";
};

constexpr Case cases[] = {
    {"a b\nc d\ne f", "a\nb\nc\nd\ne\nf\n", "2:2", "a b\nc\nd\ne f"},
    {"a b\nc d\ne f", "a\nb\nc\nd\ne\nf\n", "3:9", "a b\nc d\ne\nf\n"},
    {"a b\nc d\ne f", "a\nb\nc\nd\ne\nf\n", "1:1", "a\nb\nc d\ne f"},
    {"a\n b\n c\n", "a\nb\nc\n", "1:1", "a\n b\n c\n"},
    {"a\nb\nc\n", "a\n\nb\n\nc\n", "1:1", "a\n\nb\nc\n"},  // between the first two lines
    {"a\nb\nc\n", "a\n\nb\n\nc\n", "3:3", "a\nb\n\nc\n"},
    {"x\na\nb\nc\nd\ne\nf\n Y", "x\na b c d e f\nY", "4:4", "x\na b c d e f\n Y"},
    {"x\na\nb\nc\nd\ne\nf\ng\n Y", "x\na b c d e f g\nY", "4:4", "x\na\nb\nc\nd\ne\nf\ng\n Y",
     "2:8 "},
    {"x\na\nb\nc\nd\ne\nf\ng\n Y", "x\na b c d e f g\nY", "4:5", "x\na b c d e f g\n Y"},
};

TEST(Lines, TakeOverWhatTouchesThem) {
  for (const Case& row : cases) {
    SCOPED_TRACE(std::string(row.old) + "|" + row.lines);
    LineSet lines;
    ASSERT_TRUE(lines.addParsed(row.lines));
    const Comparison all = compareTexts(row.old, row.fresh, "-=*");
    const PartialText partial = takeOver(row.old, row.fresh, all.changed, lines);
    EXPECT_EQ(partial.text, row.expected);
    EXPECT_EQ(shown(partial.leftOut), row.leftOut);
    const std::vector<Stretch> taken = compareTexts(row.old, partial.text, "-=*").changed;
    ASSERT_EQ(partial.taken.size(), taken.size());
    for (std::size_t i = 0; i < taken.size(); ++i) EXPECT_EQ(partial.taken[i], taken[i]);
  }
}

}  // namespace
