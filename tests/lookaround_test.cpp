// Questions about the anchor's neighbours. None of them moves the anchor.
#include <gtest/gtest.h>

#include <initializer_list>

#include "scannerprobe.h"

namespace {

using Probe = ScannerProbe;

struct Case {
  const char* name;
  const char* source;
  int anchor;  // the last token of that code is meant
  int (*ask)(Probe& probe);
  int expected;
};

void check(std::initializer_list<Case> cases) {
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    Probe probe;
    probe.scan(row.source);
    OldListRefItem* place = nullptr;
    for (; probe.token() != nullptr; probe.list().getNext()) {
      if (probe.token()->getTyp() == row.anchor) place = probe.list().getAnchorNode();
    }
    probe.list().setAnchorNode(place);
    EXPECT_EQ(row.ask(probe), row.expected);
    EXPECT_EQ(probe.list().getAnchorNode(), place);
    EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  }
}

/** Empties the first line end, as a pass does, before the question. */
template <auto question>
int withoutLineEnd(Probe& probe) {
  OldListRefItem* place = probe.list().getAnchorNode();
  probe.at(T_NEWLINE);
  probe.prints("");
  probe.list().setAnchorNode(place);
  return question(probe);
}

template <int typ>
int next(Probe& probe) {
  return probe.nextIs(typ);
}

template <int typ>
int prev(Probe& probe) {
  return probe.prevIs(typ);
}

template <int count>
int ahead(Probe& probe) {
  return probe.LookForward(count);
}

int commentAhead(Probe& probe) { return probe.nextIsComment(); }
int column(Probe& probe) { return probe.getColumn(1); }
int sourceColumn(Probe& probe) { return probe.getColumn(0); }
int isFirst(Probe& probe) { return probe.prevIsNewline(0); }
int isFirstPrinted(Probe& probe) { return probe.prevIsNewline(1); }
int isLabelled(Probe& probe) { return probe.prevIsLabel(); }
int context(Probe& probe) { return probe.determineContext(); }

TEST(LookAround, Neighbours) {
  check({
      {"next, blanks passed over", "a  ;", T_IDENTIFIER, next<T_SEMICOLON>, 1},
      {"a line end is a neighbour", "a \n;", T_IDENTIFIER, next<T_NEWLINE>, 1},
      {"nothing behind the end", "a", T_EOF, next<T_EOF>, 0},
      {"previous, blanks passed over", "a  ;", T_SEMICOLON, prev<T_IDENTIFIER>, 1},
      {"nothing before the head", " a", T_IDENTIFIER, prev<T_WHITESPACE>, 0},
      {"a comment across line ends", "; \n\n --c", T_SEMICOLON, commentAhead, 1},
      {"a pragma is no such comment", "; --qorn-off", T_SEMICOLON, commentAhead, 0},
      {"no comment to the end", ";\n", T_SEMICOLON, commentAhead, 0},
      {"ahead over spacing", "a --c\n\n --qorn-on\n ( ;", T_IDENTIFIER, ahead<1>, T_LPAREN},
      {"further ahead", "a ( ; 1", T_IDENTIFIER, ahead<2>, T_SEMICOLON},
      {"0 ahead is 1 ahead", "a ( ;", T_IDENTIFIER, ahead<0>, T_LPAREN},
      {"ahead of the end", "a", T_EOF, ahead<1>, T_EOF},
      {"without an anchor", "a", T_COMMA,
       [](Probe& s) { return s.nextIs(T_EOF) + s.getColumn(1) + s.getColumn(0); }, 0},
  });
}

TEST(LookAround, Columns) {
  check({
      {"from the line's start", "a\n  bc d", T_IDENTIFIER, column, 5},
      {"at the head", "a", T_IDENTIFIER, column, 0},
      {"across an emptied line end", "ab\n c", T_IDENTIFIER, withoutLineEnd<column>, 3},
      {"the source keeps its line end", "ab\n c", T_IDENTIFIER, withoutLineEnd<sourceColumn>, 1},
      {"formatted blanks", "ab   c", T_IDENTIFIER,
       [](Probe& s) { return s.setPrevSpaces(7), s.getColumn(1) * 10 + s.getColumn(0); }, 95},
      {"a line end of the formatter's", "ab c", T_IDENTIFIER,
       [](Probe& s) { return s.setPrevNewline(), s.getColumn(1) * 10 + s.getColumn(0); }, 3},
      {"a tab counts an indentation", "\"\t\" c", T_IDENTIFIER, column, 7},
      {"a blank that grew in front of the line", "a b", T_IDENTIFIER,
       [](Probe& s) {
         (void)s.getColumn(1), s.at(T_IDENTIFIER), s.stamp(6), s.IndentLine(0);
         s.at(T_IDENTIFIER, 2);
         return s.getColumn(1);
       },
       8},
  });
}

TEST(LookAround, FirstOnItsLine) {
  check({
      {"behind a line end", "a\n  b", T_IDENTIFIER, isFirst, 1},
      {"behind a token", "a  b", T_IDENTIFIER, isFirst, 0},
      {"at the head", "  b", T_IDENTIFIER, isFirst, 1},
      {"behind an emptied line end", "a\n  b", T_IDENTIFIER, withoutLineEnd<isFirst>, 1},
      {"which prints nothing", "a\n  b", T_IDENTIFIER, withoutLineEnd<isFirstPrinted>, 0},
      {"with nothing before it", "\n  b", T_IDENTIFIER, withoutLineEnd<isFirstPrinted>, 1},
      {"a line end that prints", "a\n  b", T_IDENTIFIER, isFirstPrinted, 1},
  });
}

TEST(LookAround, LabelsAndContexts) {
  check({
      {"a label", "l : if", T_IF, isLabelled, 1},
      {"far away", "l --c\n:\n\n--qorn-on\npostponed if", T_IF, isLabelled, 1},
      {"a bare identifier", "l if", T_IF, isLabelled, 0},
      {"a colon of something else", "l ) : if", T_IF, isLabelled, 0},
      {"nothing", "if", T_IF, isLabelled, 0},
      {"a declaration", "a : t (1) := 2", T_VARASSIGN, context, T_COLON},
      {"an assignment", "; a := 2", T_VARASSIGN, context, -1},
      {"any line end in between", "a : t\n:= 2", T_VARASSIGN, withoutLineEnd<context>, -1},
      {"a comma in between", "a : t (b, c) := 2", T_VARASSIGN, context, -1},
      {"a descending range in between", "a : t (7 downto 0) := 2", T_VARASSIGN, context, -1},
      {"at the head", "a := 2", T_VARASSIGN, context, -1},
  });
}

}  // namespace
