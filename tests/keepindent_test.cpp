// Priming the indent for a fragment.
#include <gtest/gtest.h>

#include "scannerprobe.h"

namespace {

TEST(KeepIndent, PushesTheColumnOfTheFirstCode) {
  const struct {
    const char* name;
    const char* source;
    int step;
    const char* expected;  // the indent, and all that pops bring back
  } cases[] = {
      {"two steps in", "        a;", 4, "8 4 0"},
      {"an odd column", "          a;", 4, "10 6 2 0"},
      {"end", "        end;", 4, "12 8 4 0"},
      {"else", "      else", 4, "10 6 4 0"},
      {"elsif", "  elsif", 2, "4 2 0"},
      {"begin", "begin", 4, "4 0"},
      {"tabs", "\ta;", 4, "4 0"},
      {"code behind comments", "    --c\n--qorn-off\n\n  a;", 4, "2 0"},
      {"code behind code is not looked at", "  a; b\n        end;", 4, "2 0"},
      {"comments only", "    --c\n", 4, "0"},
      {"comments only, with blanks at the end", "--c\n    ", 4, "4 0"},
      {"nothing", "", 4, "0"},
      {"no steps to count", "   a;", 0, "3 0"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    ScannerProbe probe;
    probe.scan(row.source);
    probe.indentation = row.step;
    probe.KeepIndentation();
    EXPECT_EQ(probe.statementClosed, 1);
    std::string pops = std::to_string(probe.indent);
    while (probe.countIndents() > 0) {
      probe.popIndent();
      pops += ' ' + std::to_string(probe.indent);
    }
    EXPECT_EQ(pops, row.expected);
  }
}

}  // namespace
