// Blanks and line ends around the anchor.
#include <gtest/gtest.h>

#include <span>

#include "scannerprobe.h"

namespace {

struct Case {
  const char* name;
  const char* source;
  int anchor;
  void (*act)(ScannerProbe& probe);
  const char* expected;
};

void checkCases(std::span<const Case> cases) {
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    ScannerProbe probe;
    probe.scan(row.source);
    probe.at(row.anchor);
    row.act(probe);
    EXPECT_EQ(probe.shows(), row.expected);
    EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  }
}

using Probe = ScannerProbe;

TEST(Primitives, SetNextSpaces) {
  static constexpr Case cases[] = {
      {"a blank takes the count", "a,   b", T_COMMA, [](Probe& s) { s.setNextSpaces(2); },
       "a^,[  ]b#"},
      {"none there", "a,b", T_COMMA, [](Probe& s) { s.setNextSpaces(2); }, "a^,<  >b#"},
      {"none wanted", "a,   b", T_COMMA, [](Probe& s) { s.setNextSpaces(0); }, "a^,[]b#"},
      {"none wanted, none there", "a,--c", T_COMMA, [](Probe& s) { s.setNextSpaces(0); },
       "a^,--c#"},
      {"in front of a comment", "a,--c", T_COMMA, [](Probe& s) { s.setNextSpaces(1); },
       "a^,< >--c#"},
      {"in front of a line end", "a,\n", T_COMMA, [](Probe& s) { s.setNextSpaces(1); }, "a^,< >$#"},
      {"a line end stays", "a,\n  b", T_COMMA, [](Probe& s) { s.setNextSpaces(0); }, "a^,$[  ]b#"},
      {"never in front of the end", "a,", T_COMMA, [](Probe& s) { s.setNextSpaces(1); }, "a^,#"},
      {"a blank before the end", "a, ", T_COMMA, [](Probe& s) { s.setNextSpaces(3); }, "a^,[   ]#"},
      {"behind the end", "a", T_EOF, [](Probe& s) { s.setNextSpaces(2); }, "a^#<  >"},
      {"behind the end, none wanted", "a", T_EOF, [](Probe& s) { s.setNextSpaces(0); }, "a^#<>"},
      {"twice, the last one counts", "a,b", T_COMMA,
       [](Probe& s) { s.setNextSpaces(3), s.setNextSpaces(1); }, "a^,< >b#"},
  };
  checkCases(cases);
}

TEST(Primitives, SetPrevSpaces) {
  static constexpr Case cases[] = {
      {"a blank takes the count", "a ,b", T_COMMA, [](Probe& s) { s.setPrevSpaces(3); },
       "a[   ]^,b#"},
      {"none there", "a,b", T_COMMA, [](Probe& s) { s.setPrevSpaces(2); }, "a<  >^,b#"},
      {"none wanted", "a ,b", T_COMMA, [](Probe& s) { s.setPrevSpaces(0); }, "a[]^,b#"},
      {"only the nearest token", "a \n,b", T_COMMA, [](Probe& s) { s.setPrevSpaces(0); },
       "a[ ]$^,b#"},
      {"behind a line end", "a\n,b", T_COMMA, [](Probe& s) { s.setPrevSpaces(4); }, "a$<    >^,b#"},
      {"at the head", ",b", T_COMMA, [](Probe& s) { s.setPrevSpaces(2); }, "<  >^,b#"},
      {"at the head, none wanted", ",b", T_COMMA, [](Probe& s) { s.setPrevSpaces(0); }, "^,b#"},
  };
  checkCases(cases);
}

TEST(Primitives, SetNextNewline) {
  static constexpr Case cases[] = {
      {"the source's line end", "a; \nb", T_SEMICOLON, [](Probe& s) { s.setNextNewline(); },
       "a;[]^$b#"},
      {"a new one behind emptied blanks", "a;  b", T_SEMICOLON,
       [](Probe& s) { s.setNextNewline(); }, "a;[]^<$>b#"},
      {"before the end", "a;", T_SEMICOLON, [](Probe& s) { s.setNextNewline(); }, "a;^<$>#"},
      {"behind the end", "a;", T_EOF, [](Probe& s) { s.setNextNewline(); }, "a;#<$>"},
      {"behind the end and a blank", "a;", T_EOF,
       [](Probe& s) { s.setNextSpaces(1), s.setNextNewline(); }, "a;#<>"},
      {"an emptied one prints again", "a;\nb", T_NEWLINE,
       [](Probe& s) { s.prints(""), s.at(T_SEMICOLON), s.setNextNewline(); }, "a;^$b#"},
      {"a comment keeps its place", "  a; --c\nb", T_SEMICOLON,
       [](Probe& s) { s.setNextNewline(); }, "[  ]a^;[ ]--c$b#"},
      {"so does a pragma", "a; --qorn-on\nb", T_SEMICOLON, [](Probe& s) { s.setNextNewline(); },
       "a^;[ ]--qorn-on$b#"},
      {"a comment on the next line", "a;\n--c", T_SEMICOLON, [](Probe& s) { s.setNextNewline(); },
       "a;^$--c#"},
      {"the line that ends is indented", "a;b", T_IDENTIFIER,
       [](Probe& s) { s.stamp(2), s.at(T_SEMICOLON), s.setNextNewline(); }, "<  >a;^<$>b#"},
  };
  checkCases(cases);
}

TEST(Primitives, SetPrevNewline) {
  static constexpr Case cases[] = {
      {"the source's line end is reused", "a\n  ;b", T_SEMICOLON,
       [](Probe& s) { s.setPrevNewline(); }, "a$[]^;b#"},
      {"a new one in front of emptied blanks", "a  ;b", T_SEMICOLON,
       [](Probe& s) { s.setPrevNewline(); }, "a<$>[]^;b#"},
      {"an emptied one prints again", "a\n;b", T_NEWLINE,
       [](Probe& s) { s.prints(""), s.at(T_SEMICOLON), s.setPrevNewline(); }, "a$^;b#"},
      {"at the head", "  ;b", T_SEMICOLON, [](Probe& s) { s.setPrevNewline(); }, "[]^;b#"},
      {"the line that ends is indented, not the new one", "a ;b", T_IDENTIFIER,
       [](Probe& s) { s.stamp(3), s.at(T_SEMICOLON), s.stamp(5), s.setPrevNewline(); },
       "<   >a<$>[]^;b#"},
      {"behind a comment", "--c\n;", T_SEMICOLON, [](Probe& s) { s.setPrevNewline(); }, "--c$^;#"},
  };
  checkCases(cases);
}

TEST(Primitives, DeleteNewline) {
  static constexpr auto act = [](Probe& s) { s.deleteNewline(); };
  static constexpr Case cases[] = {
      {"within a statement", "a\nb", T_NEWLINE, act, "a^!b#"},
      {"a blank line behind", "a\n  \nb", T_NEWLINE, act, "a^$[  ]$b#"},
      {"a blank line in front", "\n \nb", T_NEWLINE,
       [](Probe& s) { s.at(T_NEWLINE, 2), s.deleteNewline(); }, "$[]^$b#"},
      {"a comment on the next line", "a\n  --c\n", T_NEWLINE, act, "a^$[  ]--c$#"},
      {"a pragma on the next line", "a\n--qorn-indent-off\n", T_NEWLINE, act,
       "a^$--qorn-indent-off$#"},
      {"before the end", "a\n", T_NEWLINE, act, "a^!#"},
      {"where it stays, its line is indented", "a\n\nb", T_IDENTIFIER,
       [](Probe& s) { s.stamp(2), s.at(T_NEWLINE), s.deleteNewline(); }, "<  >a^$$b#"},
  };
  checkCases(cases);
}

TEST(Primitives, SingleSpace) {
  static constexpr Case cases[] = {
      {"from the source", "a   b", T_WHITESPACE, [](Probe& s) { s.singleSpace(); }, "a^[ ]b#"},
      {"ruled on before", "a   b", T_WHITESPACE, [](Probe& s) { s.prints("  "), s.singleSpace(); },
       "a^[  ]b#"},
      {"emptied before", "a   b", T_WHITESPACE, [](Probe& s) { s.prints(""), s.singleSpace(); },
       "a^[]b#"},
  };
  checkCases(cases);
}

TEST(Primitives, IndentLine) {
  static constexpr Case cases[] = {
      {"no indent, no blank", "a b\nc", T_WHITESPACE, [](Probe& s) { s.IndentLine(0); },
       "a^[ ]b$c#"},
      {"a blank is inserted", "a\nb c", T_NEWLINE,
       [](Probe& s) { s.at(T_IDENTIFIER, 2), s.stamp(8), s.IndentLine(0); }, "a$<        >^b[ ]c#"},
      {"a blank is emptied", "  a b", T_IDENTIFIER, [](Probe& s) { s.IndentLine(0); }, "[]^a[ ]b#"},
      {"the indent of the line's first token counts", "a\n b c", T_IDENTIFIER,
       [](Probe& s) {
         s.at(T_IDENTIFIER, 2), s.stamp(3), s.at(T_IDENTIFIER, 3), s.stamp(9), s.IndentLine(0);
       },
       "a$[   ]b[ ]^c#"},
      {"a delta stays in the token", "a", T_IDENTIFIER,
       [](Probe& s) { s.stamp(2), s.IndentLine(6), s.IndentLine(0); }, "<        >^a#"},
      {"on a line end, the line is the one that ends there", "a\nb", T_IDENTIFIER,
       [](Probe& s) { s.stamp(1), s.at(T_NEWLINE), s.IndentLine(0); }, "< >a^$b#"},
      {"an emptied line end divides nothing", "a\nb", T_IDENTIFIER,
       [](Probe& s) {
         s.stamp(2), s.at(T_NEWLINE), s.prints(""), s.at(T_IDENTIFIER, 2), s.IndentLine(0);
       },
       "<  >a!^b#"},
      {"a line of blanks has its line end first", "a\n  \nb", T_NEWLINE,
       [](Probe& s) { s.at(T_NEWLINE, 2), s.stamp(1), s.IndentLine(0); }, "a$[ ]^$b#"},
      {"without an anchor", "a", T_COMMA, [](Probe& s) { s.IndentLine(4); }, "a#"},
  };
  checkCases(cases);
}

TEST(Primitives, InsertedTokensTakeTheLevelOfTheAnchor) {
  ScannerProbe probe;
  probe.scan("((a))");
  probe.at(T_IDENTIFIER);
  const int level = probe.token()->getParenLevel();
  probe.setNextSpaces(1);
  probe.setNextNewline();
  for (probe.list().getFirst(); probe.token() != nullptr; probe.list().getNext()) {
    if (probe.token()->getLineNo() == 0) {
      EXPECT_EQ(probe.token()->getParenLevel(), level);
    }
  }
  EXPECT_EQ(probe.shows(), "((a<><$>))#");
}

}  // namespace
