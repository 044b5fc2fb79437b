// The writer: blanks as tabs.
#include <gtest/gtest.h>

#include <string>

#include "programrun.h"

namespace {

TEST(OutputTest, TurnsBlanksIntoTabs) {
  const struct {
    const char* name;
    const char* tabSize;
    std::string input;
    std::string expected;
  } cases[] = {
      {"off", "4 TABIFY FALSE", "        a        --     x", "        a        --     x"},
      {"four at 0", "4", "    a", "\ta"},
      {"three", "4", "   a", "   a"},
      {"three to a stop", "4", "a   b", "a   b"},
      {"six at 2", "4", "aa      b", "aa\t\tb"},
      {"five at 1", "4", "a     b", "a\t  b"},
      {"five from a stop", "4", "aaaa     b", "aaaa\t b"},
      {"no stop reached", "8", "a    b", "a    b"},
      {"form feeds in a short run", "4", "a \f b", "a \f b"},
      {"four at 5", "8", "aaaaa    b", "aaaaa\t b"},
      {"counted from the line's start", "4", "a     b     c\n    d", "a\t  b\t\tc\n\td"},
      {"columns before tabs", "8", "a         b     c", "a\t  b\tc"},
      {"comment", "4", "a     --      b c   d     ", "a\t  --\t  b c   d"},
      {"blanks at a comment's end", "4", "--a \n--    ", "--a\n--"},
      {"strings and pragmas stay", "4", "\"        \" --QORN-OFF     x ",
       "\"        \" --QORN-OFF     x "},
      {"size 1", "1", "a    b", "a\t\t\t\tb"},
      {"size 0 has no stops", "0", "a    b", "a    b"},
      {"distance beyond any line", "2147483647", "a            b", "a            b"},
  };
  for (const auto& row : cases) {
    const TempFolder folder;
    folder.write("rc", std::string("TABIFY TRUE TABSIZE ") + row.tabSize + "\n");
    EXPECT_EQ(shell(folder, "qorn -c rc", "--QORN-OFF\n" + row.input).out,
              "--QORN-OFF\n" + row.expected)
        << row.name;
  }
}

}  // namespace
