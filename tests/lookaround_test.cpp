// Questions about the anchor's neighbours. None of them moves the anchor.
#include <gtest/gtest.h>

#include <span>

#include "scannerprobe.h"

namespace {

using Probe = ScannerProbe;

struct Case {
  const char* name;
  const char* source;
  int anchor;
  int count;  // of tokens with the anchor's code, up to the one meant
  int (*ask)(Probe& probe);
  int expected;
};

void checkCases(std::span<const Case> cases) {
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    Probe probe;
    probe.scan(row.source);
    probe.at(row.anchor, row.count);
    const OldListRefItem* before = probe.list().getAnchorNode();
    EXPECT_EQ(row.ask(probe), row.expected);
    EXPECT_EQ(probe.list().getAnchorNode(), before);
    EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  }
}

/** Empties the first line end, as a pass does, before the question. */
template <auto Question>
int withoutLineEnd(Probe& probe) {
  OldListRefItem* place = probe.list().getAnchorNode();
  probe.at(T_NEWLINE);
  probe.prints("");
  probe.list().setAnchorNode(place);
  return Question(probe);
}

constexpr auto column = [](Probe& s) { return s.getColumn(1); };
constexpr auto sourceColumn = [](Probe& s) { return s.getColumn(0); };
constexpr auto isFirst = [](Probe& s) { return s.prevIsNewline(0); };
constexpr auto isFirstPrinted = [](Probe& s) { return s.prevIsNewline(1); };
constexpr auto isLabelled = [](Probe& s) { return s.prevIsLabel(); };
constexpr auto context = [](Probe& s) { return s.determineContext(); };

TEST(LookAround, Neighbours) {
  static constexpr Case cases[] = {
      {"next, blanks passed over", "a  ;", T_IDENTIFIER, 1,
       [](Probe& s) { return s.nextIs(T_SEMICOLON); }, 1},
      {"a line end is a neighbour", "a \n;", T_IDENTIFIER, 1,
       [](Probe& s) { return s.nextIs(T_SEMICOLON) * 2 + s.nextIs(T_NEWLINE); }, 1},
      {"nothing behind the end", "a", T_EOF, 1, [](Probe& s) { return s.nextIs(T_EOF); }, 0},
      {"previous, blanks passed over", "a  ;", T_SEMICOLON, 1,
       [](Probe& s) { return s.prevIs(T_IDENTIFIER); }, 1},
      {"nothing before the head", " a", T_IDENTIFIER, 1,
       [](Probe& s) { return s.prevIs(T_WHITESPACE) + s.prevIs(T_NEWLINE); }, 0},
      {"a comment across line ends", "; \n\n --c", T_SEMICOLON, 1,
       [](Probe& s) { return s.nextIsComment(); }, 1},
      {"a pragma is no such comment", "; --qorn-off", T_SEMICOLON, 1,
       [](Probe& s) { return s.nextIsComment(); }, 0},
      {"no comment to the end", ";\n", T_SEMICOLON, 1, [](Probe& s) { return s.nextIsComment(); },
       0},
      {"ahead over all that is spacing", "a --c\n\n --qorn-on\n ( ;", T_IDENTIFIER, 1,
       [](Probe& s) { return s.LookForward(1); }, T_LPAREN},
      {"further ahead", "a ( ; b", T_IDENTIFIER, 1, [](Probe& s) { return s.LookForward(2); },
       T_SEMICOLON},
      {"0 ahead is 1 ahead", "a ( ;", T_IDENTIFIER, 1, [](Probe& s) { return s.LookForward(0); },
       T_LPAREN},
      {"ahead of the end", "a", T_EOF, 1, [](Probe& s) { return s.LookForward(1); }, T_EOF},
      {"without an anchor", "a", T_COMMA, 1,
       [](Probe& s) { return s.nextIs(T_EOF) + s.getColumn(1) + s.getColumn(0); }, 0},
  };
  checkCases(cases);
}

TEST(LookAround, Columns) {
  static constexpr Case cases[] = {
      {"from the line's start", "a\n  bc d", T_IDENTIFIER, 3, column, 5},
      {"at the head", "a", T_IDENTIFIER, 1, column, 0},
      {"across an emptied line end", "ab\n c", T_IDENTIFIER, 2, withoutLineEnd<column>, 3},
      {"the source keeps its line end", "ab\n c", T_IDENTIFIER, 2, withoutLineEnd<sourceColumn>, 1},
      {"formatted blanks", "ab   c", T_IDENTIFIER, 2,
       [](Probe& s) { return s.setPrevSpaces(7), s.getColumn(1); }, 9},
      {"the source keeps its blanks", "ab   c", T_IDENTIFIER, 2,
       [](Probe& s) { return s.setPrevSpaces(7), s.getColumn(0); }, 5},
      {"a line end of the formatter's", "ab c", T_IDENTIFIER, 2,
       [](Probe& s) { return s.setPrevNewline(), s.getColumn(1); }, 0},
      {"is none in the source", "ab c", T_IDENTIFIER, 2,
       [](Probe& s) { return s.setPrevNewline(), s.getColumn(0); }, 3},
      {"a tab counts an indentation", "\"\t\" c", T_IDENTIFIER, 1, column, 7},
      {"a blank that grew in front of the line", "a b", T_IDENTIFIER, 2,
       [](Probe& s) {
         (void)s.getColumn(1), s.at(T_IDENTIFIER), s.stamp(6), s.IndentLine(0);
         s.at(T_IDENTIFIER, 2);
         const int reading = s.getColumn(1);
         return reading;
       },
       8},
  };
  checkCases(cases);
}

TEST(LookAround, FirstOnItsLine) {
  static constexpr Case cases[] = {
      {"behind a line end", "a\n  b", T_IDENTIFIER, 2, isFirst, 1},
      {"behind a token", "a  b", T_IDENTIFIER, 2, isFirst, 0},
      {"at the head", "  b", T_IDENTIFIER, 1, isFirst, 1},
      {"behind an emptied line end", "a\n  b", T_IDENTIFIER, 2, withoutLineEnd<isFirst>, 1},
      {"which prints nothing", "a\n  b", T_IDENTIFIER, 2, withoutLineEnd<isFirstPrinted>, 0},
      {"with nothing before it", "\n  b", T_IDENTIFIER, 1, withoutLineEnd<isFirstPrinted>, 1},
      {"a line end that prints", "a\n  b", T_IDENTIFIER, 2, isFirstPrinted, 1},
  };
  checkCases(cases);
}

TEST(LookAround, LabelsAndContexts) {
  static constexpr Case cases[] = {
      {"a label", "l : if", T_IF, 1, isLabelled, 1},
      {"far away", "l --c\n:\n\n--qorn-on\npostponed if", T_IF, 1, isLabelled, 1},
      {"a bare identifier", "l if", T_IF, 1, isLabelled, 0},
      {"a colon of something else", "l ) : if", T_IF, 1, isLabelled, 0},
      {"nothing", "if", T_IF, 1, isLabelled, 0},
      {"a declaration", "a : t (1) := 2", T_VARASSIGN, 1, context, T_COLON},
      {"an assignment", "; a := 2", T_VARASSIGN, 1, context, -1},
      {"any line end in between", "a : t\n:= 2", T_VARASSIGN, 1, withoutLineEnd<context>, -1},
      {"a comma in between", "a : t (b, c) := 2", T_VARASSIGN, 1, context, -1},
      {"a descending range in between", "a : t (7 downto 0) := 2", T_VARASSIGN, 1, context, -1},
      {"at the head", "a := 2", T_VARASSIGN, 1, context, -1},
  };
  checkCases(cases);
}

}  // namespace
