// Blanks and line ends around the anchor.
#include <gtest/gtest.h>

#include <initializer_list>

#include "scannerprobe.h"

namespace {

using Probe = ScannerProbe;

struct Case {
  const char* name;
  const char* source;
  int anchor;
  void (*act)(Probe& probe);
  const char* expected;
};

void check(std::initializer_list<Case> cases) {
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    Probe probe;
    probe.scan(row.source);
    probe.at(row.anchor);
    row.act(probe);
    EXPECT_EQ(probe.shows(), row.expected);
    EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  }
}

template <int count>
void next(Probe& probe) {
  probe.setNextSpaces(count);
}

template <int count>
void prev(Probe& probe) {
  probe.setPrevSpaces(count);
}

void nextLine(Probe& probe) { probe.setNextNewline(); }
void prevLine(Probe& probe) { probe.setPrevNewline(); }
void deleteLine(Probe& probe) { probe.deleteNewline(); }
void indentLine(Probe& probe) { probe.IndentLine(0); }

/** The act after the anchor token was made to print nothing, at the first semicolon. */
template <auto act>
void afterEmptying(Probe& probe) {
  probe.prints("");
  probe.at(T_SEMICOLON);
  act(probe);
}

/** The act where the count-th token of a code stands, after the anchor token got an indent. */
template <int indent, auto act, int typ, int count = 1>
void afterStamp(Probe& probe) {
  probe.stamp(indent);
  probe.at(typ, count);
  act(probe);
}

TEST(Primitives, SetBlanks) {
  check({
      {"a blank takes the count", "a,   b", T_COMMA, next<2>, "a^,[  ]b#"},
      {"none there", "a,b", T_COMMA, next<2>, "a^,<  >b#"},
      {"none wanted", "a,   b", T_COMMA, next<0>, "a^,[]b#"},
      {"none wanted, none there", "a,--c", T_COMMA, next<0>, "a^,--c#"},
      {"a line end stays", "a,\n  b", T_COMMA, next<1>, "a^,< >$[  ]b#"},
      {"never in front of the end", "a,", T_COMMA, next<1>, "a^,#"},
      {"behind the end", "a", T_EOF, next<2>, "a^#<  >"},
      {"behind the end, none wanted", "a", T_EOF, next<0>, "a^#<>"},
      {"before: a blank takes the count", "a ,b", T_COMMA, prev<3>, "a[   ]^,b#"},
      {"before: none there", "a,b", T_COMMA, prev<2>, "a<  >^,b#"},
      {"before: only the nearest token", "a \n,b", T_COMMA, prev<0>, "a[ ]$^,b#"},
      {"before: behind a line end", "a\n,b", T_COMMA, prev<4>, "a$<    >^,b#"},
      {"before: at the head", ",b", T_COMMA, prev<2>, "<  >^,b#"},
      {"before: at the head, none wanted", ",b", T_COMMA, prev<0>, "^,b#"},
      {"a single one from the source", "a   b", T_WHITESPACE, [](Probe& s) { s.singleSpace(); },
       "a^[ ]b#"},
      {"ruled on before", "a   b", T_WHITESPACE, [](Probe& s) { s.prints(""), s.singleSpace(); },
       "a^[]b#"},
  });
}

TEST(Primitives, SetNextNewline) {
  check({
      {"the source's line end", "a; \nb", T_SEMICOLON, nextLine, "a;[]^$b#"},
      {"a new one behind emptied blanks", "a;  b", T_SEMICOLON, nextLine, "a;[]^<$>b#"},
      {"before the end", "a;", T_SEMICOLON, nextLine, "a;^<$>#"},
      {"behind the end", "a;", T_EOF, nextLine, "a;#<$>"},
      {"behind the end and a blank", "a;", T_EOF,
       [](Probe& s) { s.setNextSpaces(1), s.setNextNewline(); }, "a;#<>"},
      {"an emptied one prints again", "a;\nb", T_NEWLINE, afterEmptying<nextLine>, "a;^$b#"},
      {"a comment keeps its place", "  a; --c\nb", T_SEMICOLON, nextLine, "[  ]a^;[ ]--c$b#"},
      {"so does a pragma", "a; --qorn-on\nb", T_SEMICOLON, nextLine, "a^;[ ]--qorn-on$b#"},
      {"a comment on the next line", "a;\n--c", T_SEMICOLON, nextLine, "a;^$--c#"},
      {"the line that ends is indented", "a;b", T_IDENTIFIER, afterStamp<2, nextLine, T_SEMICOLON>,
       "<  >a;^<$>b#"},
  });
}

TEST(Primitives, SetPrevNewline) {
  check({
      {"the source's line end is reused", "a\n  ;b", T_SEMICOLON, prevLine, "a$[]^;b#"},
      {"a new one before emptied blanks", "a  ;b", T_SEMICOLON, prevLine, "a<$>[]^;b#"},
      {"an emptied one prints again", "a\n;b", T_NEWLINE, afterEmptying<prevLine>, "a$^;b#"},
      {"at the head", "  ;b", T_SEMICOLON, prevLine, "[]^;b#"},
      {"the line that ends is indented, not the new one", "a ;b", T_IDENTIFIER,
       [](Probe& s) { s.stamp(3), s.at(T_SEMICOLON), s.stamp(5), s.setPrevNewline(); },
       "<   >a<$>[]^;b#"},
  });
}

TEST(Primitives, DeleteNewline) {
  check({
      {"within a statement", "a\nb", T_NEWLINE, deleteLine, "a^!b#"},
      {"a blank line behind", "a\n  \nb", T_NEWLINE, deleteLine, "a^$[  ]$b#"},
      {"a blank line before", "\n \nb", T_NEWLINE, afterStamp<0, deleteLine, T_NEWLINE, 2>,
       "$[]^$b#"},
      {"a comment on the next line", "a\n  --c\n", T_NEWLINE, deleteLine, "a^$[  ]--c$#"},
      {"a pragma", "a\n--qorn-indent-off\n", T_NEWLINE, deleteLine, "a^$--qorn-indent-off$#"},
      {"before the end", "a\n", T_NEWLINE, deleteLine, "a^!#"},
      {"where it stays, its line is indented", "a\n\nb", T_IDENTIFIER,
       afterStamp<2, deleteLine, T_NEWLINE>, "<  >a^$$b#"},
  });
}

TEST(Primitives, IndentLine) {
  check({
      {"no indent, no blank", "a b\nc", T_WHITESPACE, indentLine, "a^[ ]b$c#"},
      {"a blank is emptied", "  a b", T_IDENTIFIER, indentLine, "[]^a[ ]b#"},
      {"the indent of the line's first token counts", "a\n b c", T_IDENTIFIER,
       [](Probe& s) {
         s.at(T_IDENTIFIER, 2), s.stamp(3), s.at(T_IDENTIFIER, 3), s.stamp(9), s.IndentLine(0);
       },
       "a$[   ]b[ ]^c#"},
      {"a delta stays in the token", "a", T_IDENTIFIER,
       [](Probe& s) { s.stamp(2), s.IndentLine(6), s.IndentLine(0); }, "<        >^a#"},
      {"on a line end, the line is the one that ends there", "a\nb", T_IDENTIFIER,
       afterStamp<1, indentLine, T_NEWLINE>, "< >a^$b#"},
      {"an emptied line end divides nothing", "a\nb", T_IDENTIFIER,
       [](Probe& s) {
         s.stamp(2), s.at(T_NEWLINE), s.prints(""), s.at(T_IDENTIFIER, 2), s.IndentLine(0);
       },
       "<  >a!^b#"},
      {"a line of blanks has its line end first", "a\n  \nb", T_NEWLINE,
       [](Probe& s) { s.at(T_NEWLINE, 2), s.stamp(1), s.IndentLine(0); }, "a$[ ]^$b#"},
      {"without an anchor", "a", T_COMMA, indentLine, "a#"},
  });
}

TEST(Primitives, InsertedTokensTakeTheLevelOfTheAnchor) {
  Probe probe;
  probe.scan("((a))");
  probe.at(T_IDENTIFIER);
  const int level = probe.token()->getParenLevel();
  probe.setNextSpaces(1);
  probe.setNextNewline();
  EXPECT_EQ(probe.shows(), "((a<>^<$>))#");
  EXPECT_EQ(probe.token()->getParenLevel(), level);
  EXPECT_EQ(tokenAt(probe.list().getAnchorNode()->getPrev()).getParenLevel(), level);
}

}  // namespace
