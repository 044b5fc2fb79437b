// The diff as text. That it applies is a matter of the ranges and of the line without an end.
#include "fmt/unifieddiff.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::string diff(std::string_view old, std::string_view fresh, std::string_view name = "n") {
  return unifiedDiff(name, old, fresh, compareTexts(old, fresh, "-=*").changed);
}

/** The hunks. */
std::string hunks(std::string_view old, std::string_view fresh) {
  const std::string whole = diff(old, fresh);
  return whole.substr(std::min(whole.find("@@"), whole.size()));
}

TEST(UnifiedDiff, ShowsThreeLinesAroundEachChange) {
  EXPECT_EQ(diff("a\n", "a\n"), "");
  EXPECT_EQ(diff("a\n", "A\n"), "--- a/n\n+++ b/n\n@@ -1,1 +1,1 @@\n-a\n+A\n");
  EXPECT_EQ(hunks("1\n2\n3\n4\nB\n6\n7\n8\n9\n", "1\n2\n3\n4\nb\n6\n7\n8\n9\n"),
            "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-B\n+b\n 6\n 7\n 8\n");
  EXPECT_EQ(hunks("A\n2\n3\n4\n5\n6\n7\nB\n", "a\n2\n3\n4\n5\n6\n7\nb\n"),
            "@@ -1,8 +1,8 @@\n-A\n+a\n 2\n 3\n 4\n 5\n 6\n 7\n-B\n+b\n");
  EXPECT_EQ(hunks("A\n2\n3\n4\n5\n6\n7\n8\n;B\n", "a\n2\n3\n4\n5\n6\n7\n8\n;\nb\n"),
            "@@ -1,4 +1,4 @@\n-A\n+a\n 2\n 3\n 4\n@@ -6,4 +6,5 @@\n 6\n 7\n 8\n-;B\n+;\n+b\n");
}

TEST(UnifiedDiff, TellsWhereTextsHaveNoLinesOrNoEnd) {
  EXPECT_EQ(hunks("", "\n"), "@@ -0,0 +1,1 @@\n+\n");
  EXPECT_EQ(hunks("\n", ""), "@@ -1,1 +0,0 @@\n-\n");
  EXPECT_EQ(hunks("a\nb\n", "a\n\nb\n"), "@@ -1,2 +1,3 @@\n a\n+\n b\n");
  EXPECT_EQ(hunks("a\nb", "a\nb\n"), "@@ -1,2 +1,2 @@\n a\n-b\n\\ No newline at end of file\n+b\n");
  EXPECT_EQ(hunks("a\r\nb", "A\r\nb"),
            "@@ -1,2 +1,2 @@\n-a\r\n+A\r\n b\n\\ No newline at end of file\n");
}

TEST(UnifiedDiff, QuotesNamesAsGitDoes) {
  const auto head = [](std::string_view name) {
    const std::string whole = diff("a", "A", name);
    return whole.substr(0, whole.find('\n'));
  };
  EXPECT_EQ(head("x/y.vhd"), "--- a/x/y.vhd");
  EXPECT_EQ(head("x y.vhd"), "--- a/x y.vhd\t");
  EXPECT_EQ(head("x\t\"\\\x01\x7F \xC3\xA9"), R"(--- "a/x\t\"\\\001\177 \303\251")");
}

}  // namespace
