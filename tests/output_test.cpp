// The writer: what the pragma comments switch, and blanks as tabs.
#include <gtest/gtest.h>

#include <string>

#include "programrun.h"

namespace {

struct Case {
  const char* name;
  const char* input;
  const char* expected;
};

TEST(OutputTest, PragmaCommentsSwitchTextAndLayout) {
  const Case cases[] = {
      {"off and on", "use a ;\n  --QORN-OFF\nuse B ;\n  USE b;\n --QORN-ON\n  use c ;\n",
       "USE a;\n  --QORN-OFF\nuse B ;\n  USE b;\n --QORN-ON\nUSE c;\n"},
      {"layout alone", "use a ;\n--QORN-INDENT-OFF\n  use B ;\n--QORN-INDENT-ON\n  use C ;\n",
       "USE a;\n--QORN-INDENT-OFF\n  USE b ;\n--QORN-INDENT-ON\nUSE c;\n"},
      {"the two are independent",
       "--QORN-OFF\n--QORN-INDENT-OFF\n  use A ;\n--QORN-ON\n  use B ;\n--QORN-INDENT-ON\n"
       "  use C ;\n",
       "--QORN-OFF\n--QORN-INDENT-OFF\n  use A ;\n--QORN-ON\n  USE b ;\n--QORN-INDENT-ON\n"
       "USE c;\n"},
      {"line ends that would go, or come",
       "--QORN-OFF\nuse\n\n\n\na; use b;\n--QORN-ON\nuse c; use d;",
       "--QORN-OFF\nuse\n\n\n\na; use b;\n--QORN-ON\nUSE c;\nUSE d;\n"},
      {"both bars, an attribute apart", "--QORN-OFF\na ! b'\n low\n", "--QORN-OFF\na | b'\n low\n"},
  };
  const TempFolder folder;
  for (const Case& row : cases) {
    EXPECT_EQ(shell(folder, "qorn", row.input).out, row.expected) << row.name;
  }
  folder.write("a.vhd", "--QORN-OFF\nuse A ;\n");
  folder.write("b.vhd", "use B ;\n");
  EXPECT_EQ(shell(folder, "qorn a.vhd b.vhd; cat b.vhd").out, "USE b;\n")
      << "a switch holds to the end of its file";
}

TEST(OutputTest, TurnsBlanksIntoTabs) {
  struct TabCase {
    const char* name;
    const char* tabSize;
    const char* input;  // with the formatting off
    const char* expected;
  };
  const TabCase cases[] = {
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
      {"size 0 acts as 1", "0", "a    b", "a\t\t\t\tb"},
      {"distance beyond any line", "2147483647", "a            b", "a            b"},
  };
  const TempFolder folder;
  for (const TabCase& row : cases) {
    folder.write("rc", std::string("TABIFY TRUE TABSIZE ") + row.tabSize + "\n");
    const ProgramRun run = shell(folder, "qorn -c rc", std::string("--QORN-OFF\n") + row.input);
    EXPECT_EQ(run.out, std::string("--QORN-OFF\n") + row.expected) << row.name;
  }
}

}  // namespace
