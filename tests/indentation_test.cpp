// The indent in force and its stack.
#include <gtest/gtest.h>

#include <climits>

#include "scannerprobe.h"

namespace {

TEST(Indentation, IsWhatWasPushedLast) {
  using Probe = ScannerProbe;
  const struct {
    const char* name;
    int start;
    void (*act)(Probe& probe);
    int indent;
    int depth;
    int closed;
  } cases[] = {
      {"relative", 2, [](Probe& s) { s.setIndent(4, 1); }, 6, 1, 0},
      {"absolute", 12, [](Probe& s) { s.setIndent(8, 0); }, 8, 1, 0},
      {"any other mode is absolute", 12, [](Probe& s) { s.setIndent(8, 2); }, 8, 1, 0},
      {"and back", 12, [](Probe& s) { s.setIndent(8, 0), s.popIndent(); }, 12, 0, 0},
      {"a pop too many", 3, [](Probe& s) { s.popIndent(), s.popIndent(); }, 0, 0, 1},
      {"a pop leaves the statement as it is", 0,
       [](Probe& s) { s.setIndent(4, 1), s.StatementClosed(), s.popIndent(); }, 0, 0, 1},
      {"one step a statement", 3,
       [](Probe& s) { s.setIdentifierIndent(), s.setIdentifierIndent(); }, 7, 1, 0},
      {"no sum leaves the range", INT_MAX - 5, [](Probe& s) { s.setIndent(6, 1); }, INT_MAX, 1, 0},
      {"behind a label, none", 3,
       [](Probe& s) { s.scan("l: if"), s.at(T_IF), s.indentUnlessLabelled(); }, 3, 0, 1},
      {"without a label, one step", 3,
       [](Probe& s) { s.scan("; if"), s.at(T_IF), s.indentUnlessLabelled(); }, 7, 1, 0},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    Probe probe;
    probe.indent = row.start;
    row.act(probe);
    EXPECT_EQ(probe.indent, row.indent);
    EXPECT_EQ(probe.countIndents(), row.depth);
    EXPECT_EQ(probe.statementClosed, row.closed);
  }
}

TEST(Indentation, ConfigurationEndsAtTheMargin) {
  ScannerProbe probe;
  probe.inConfiguration = 1;
  probe.setIndent(4, 1);
  probe.setIndent(0, 0);
  probe.popIndent();
  EXPECT_EQ(probe.inConfiguration, 1);
  probe.popIndent();
  EXPECT_EQ(probe.inConfiguration, 0);
}

TEST(Indentation, ClosingWordsTakeTheLevelOfTheirHead) {
  ScannerProbe probe;
  probe.scan("a end");
  probe.setIndent(4, 1);
  probe.setTokenIndent();
  EXPECT_EQ(probe.token()->getIndent(), 4);
  probe.popTokenIndent();
  EXPECT_EQ(probe.token()->getIndent(), 0);
  probe.at(T_COMMA);
  probe.setTokenIndent();  // no anchor: nothing to stamp
}

TEST(Indentation, ResetDropsWhatAFileLeft) {
  ScannerProbe probe;
  probe.layOut("configuration c of e is for a (( process if");
  ASSERT_GT(probe.countIndents(), 1);
  probe.Reset();
  probe.layOut("a;\nb\n");
  EXPECT_EQ(probe.printed(), "a;\nb");
  EXPECT_EQ(probe.inConfiguration, 0);
}

}  // namespace
