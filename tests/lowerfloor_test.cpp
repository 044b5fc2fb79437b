// The primitives, the questions about the anchor's neighbours and the indents, as little programs:
// each word puts the anchor on a token, does something or asks.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "scannerprobe.h"

namespace {

using Probe = ScannerProbe;

const std::map<std::string, void (*)(Probe& probe, int count)> acts = {
    {"next", [](Probe& s, int count) { s.setNextSpaces(count); }},
    {"prev", [](Probe& s, int count) { s.setPrevSpaces(count); }},
    {"single", [](Probe& s, int) { s.singleSpace(); }},
    {"nextLine", [](Probe& s, int) { s.setNextNewline(); }},
    {"prevLine", [](Probe& s, int) { s.setPrevNewline(); }},
    {"join", [](Probe& s, int) { s.deleteNewline(); }},
    {"empty", [](Probe& s, int) { s.token()->setFormatText(""); }},
    {"stamp", [](Probe& s, int columns) { s.token()->setIndent(columns); }},
    {"indentLine", [](Probe& s, int delta) { s.IndentLine(delta); }},
    {"add", [](Probe& s, int columns) { s.setIndent(columns, 1); }},
    {"set", [](Probe& s, int columns) { s.setIndent(columns, 0); }},
    {"pop", [](Probe& s, int) { s.popIndent(); }},
    {"stampIndent", [](Probe& s, int) { s.setTokenIndent(); }},
    {"close", [](Probe& s, int) { s.StatementClosed(); }},
    {"configure", [](Probe& s, int) { s.inConfiguration = 1; }},
    {"steps", [](Probe& s, int columns) { s.settings.indentation = columns; }},
    {"keep", [](Probe& s, int) { s.KeepIndentation(); }},
};

const std::map<std::string, int (*)(Probe& probe, int given)> questions = {
    {"next?", [](Probe& s, int typ) { return s.nextIs(typ); }},
    {"prev?", [](Probe& s, int typ) { return s.prevIs(typ); }},
    {"comment?", [](Probe& s, int) { return s.nextIsComment(); }},
    {"ahead?", [](Probe& s, int count) { return s.LookForward(count); }},
    {"column?", [](Probe& s, int) { return s.getColumn(1); }},
    {"source?", [](Probe& s, int) { return s.getColumn(0); }},
    {"first?", [](Probe& s, int printed) { return s.prevIsNewline(printed); }},
    {"label?", [](Probe& s, int) { return s.prevIsLabel(); }},
    {"context?", [](Probe& s, int) { return s.determineContext(); }},
    {"indent?", [](Probe& s, int) { return s.indent; }},
    {"depth?", [](Probe& s, int) { return s.countIndents(); }},
    {"closed?", [](Probe& s, int) { return s.statementClosed; }},
    {"configures?", [](Probe& s, int) { return s.inConfiguration; }},
};

/** The answers, which leave the anchor where it is; without questions, the list. */
std::string run(Probe& probe, const std::string& steps) {
  std::istringstream words(steps);
  std::string answers;
  for (std::string word; words >> word;) {
    const std::string verb = word.substr(0, word.find('='));
    const int given = std::atoi(word.substr(word.find('=') + 1).c_str());
    const VhdlToken* anchor = probe.list().getAnchor();
    if (acts.contains(verb)) {
      acts.at(verb)(probe, given);
    } else if (questions.contains(verb)) {
      answers += (answers.empty() ? "" : " ") + std::to_string(questions.at(verb)(probe, given));
      EXPECT_EQ(probe.list().getAnchor(), anchor);
    } else {
      probe.at(word);
    }
  }
  EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  return answers.empty() ? probe.shows() : answers;
}

struct Case {
  const char* name;
  const char* source;
  std::string steps;
  std::string expected;
};

void check(const std::vector<Case>& cases) {
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    Probe probe;
    probe.scan(row.source);
    EXPECT_EQ(run(probe, row.steps), row.expected);
  }
}

TEST(LowerFloor, Blanks) {
  check({
      {"behind: none there", "a,b", ", next=2", "a^,<  >b#"},
      {"behind: none wanted, none there", "a,--c", ", next=0", "a^,--c#"},
      {"behind: a line end stays", "a,\n  b", ", next=1", "a^,< >$[  ]b#"},
      {"never in front of the end", "a,", ", next=1", "a^,#"},
      {"behind the end", "a", "# next=2", "a^#<  >"},
      {"behind the end, none wanted", "a", "# next=0", "a^#<>"},
      {"before: none there", "a,b", ", prev=2", "a<  >^,b#"},
      {"before: behind a line end", "a\n,b", ", prev=4", "a$<    >^,b#"},
      {"before: at the head", ",b", ", prev=2", "<  >^,b#"},
      {"before: at the head, none wanted", ",b", ", prev=0", "^,b#"},
      {"a single one from the source", "a   b", "_ single", "a^[ ]b#"},
      {"a single one where another was ruled", "a   b", "_ empty single", "a^[]b#"},
  });
}

TEST(LowerFloor, LineEnds) {
  check({
      {"behind: a new one behind emptied blanks", "a;  b", "; nextLine", "a;[]^<$>b#"},
      {"behind: before the end", "a;", "; nextLine", "a;^<$>#"},
      {"behind: behind the end", "a;", "# nextLine", "a;#<$>"},
      {"behind: behind the end and a blank", "a;", "# next=1 nextLine", "a;#<>"},
      {"behind: an emptied one prints again", "a;\nb", "$ empty ; nextLine", "a;^$b#"},
      {"behind: a comment keeps its place", "  a; --c\nb", "; nextLine", "[  ]a^;[ ]--c$b#"},
      {"behind: the line that ends is indented", "a;b", "a stamp=2 ; nextLine", "<  >a;^<$>b#"},
      {"before: the source's", "a\n  ;b", "; prevLine", "a$[]^;b#"},
      {"before: an emptied one prints again", "a\n;b", "$ empty ; prevLine", "a$^;b#"},
      {"before: at the head", "  ;b", "; prevLine", "[]^;b#"},
      {"before: the line that ends is indented, not the new one", "a ;b",
       "a stamp=3 ; stamp=5 prevLine", "<   >a<$>[]^;b#"},
      {"dropped before the end", "a\n", "$ join", "a^!#"},
      {"kept before a blank line", "a\n  \nb", "$ join", "a^$[  ]$b#"},
      {"kept behind a blank line", "\n \nb", "$$ join", "$[]^$b#"},
      {"where it is kept, its line is indented", "a\n\nb", "a stamp=2 $ join", "<  >a^$$b#"},
  });
}

TEST(LowerFloor, IndentedLines) {
  check({
      {"no indent, no blank", "a b\nc", "_ indentLine", "a^[ ]b$c#"},
      {"by the line's first token", "a\n b c", "b stamp=3 c stamp=9 indentLine", "a$[   ]b[ ]^c#"},
      {"a delta stays in the token", "a", "a stamp=2 indentLine=6 indentLine", "<        >^a#"},
      {"the line that ends there", "a\nb", "a stamp=1 $ indentLine", "< >a^$b#"},
      {"over an emptied line end", "a\nb", "a stamp=2 $ empty b indentLine", "<  >a!^b#"},
      {"a line of blanks has its line end first", "a\n  \nb", "$$ stamp=1 indentLine", "a$[ ]^$b#"},
      {"without an anchor", "a", "nowhere indentLine=4", "a#"},
  });
}

TEST(LowerFloor, Neighbours) {
  const auto next = [](int typ) { return " next?=" + std::to_string(typ); };
  const auto prev = [](int typ) { return " prev?=" + std::to_string(typ); };
  check({
      {"next, blanks passed over", "a  ;", "a" + next(T_SEMICOLON), "1"},
      {"a line end is a neighbour", "a \n;", "a" + next(T_NEWLINE) + next(T_SEMICOLON), "1 0"},
      {"nothing behind the end", "a", "#" + next(T_EOF), "0"},
      {"previous, blanks passed over", "a  ;", ";" + prev(T_IDENTIFIER), "1"},
      {"nothing before the head", " a", "a" + prev(T_WHITESPACE), "0"},
      {"a comment across line ends", "; \n\n --c", "; comment?", "1"},
      {"a pragma is no such comment", "; --qorn-off", "; comment?", "0"},
      {"no comment to the end", ";\n", "; comment?", "0"},
      {"ahead over spacing", "a --c\n\n --qorn-on\n ( ;", "a ahead?=0", std::to_string(T_LPAREN)},
      {"further ahead", "a ( ;", "a ahead?=2", std::to_string(T_SEMICOLON)},
      {"ahead of the end", "a", "# ahead?=1", std::to_string(T_EOF)},
      {"without an anchor", "a", "nowhere column? source?" + next(T_EOF), "0 0 0"},
  });
}

TEST(LowerFloor, Columns) {
  check({
      {"from the line's start", "a\n  bc d", "d column?", "5"},
      {"behind a column of the source that was asked for", "a bc d", "bc source? d source?", "2 5"},
      {"an emptied line end is in the source", "ab\n c", "$ empty c column? source?", "3 1"},
      {"so are blanks of another width", "ab   c", "c prev=7 column? source?", "9 5"},
      {"a line end of the formatter's is not", "ab c", "c prevLine column? source?", "0 3"},
      {"a tab counts an indentation", "\"\t\" c", "c column?", "7"},
      {"a blank that grew before the line", "a b", "b column? a stamp=6 indentLine b column?",
       "2 8"},
  });
}

TEST(LowerFloor, Places) {
  const std::string none = "-1";
  check({
      {"first behind a line end", "a\n  b", "b first?=0 first?=1", "1 1"},
      {"at the head", "  b", "b first?=0", "1"},
      {"behind an emptied line end", "a\n  b", "$ empty b first?=0 first?=1", "1 0"},
      {"with nothing before it", "\n  b", "$ empty b first?=1", "1"},
      {"a label", "l : if", "if label?", "1"},
      {"far away", "l --c\n:\n\n--qorn-on\npostponed if", "if label?", "1"},
      {"a bare identifier", "l if", "if label?", "0"},
      {"a colon of something else", "l ) : if", "if label?", "0"},
      {"a declaration", "a : t (1) := 2", ":= context?", std::to_string(T_COLON)},
      {"an assignment", "; a := 2", ":= context?", none},
      {"any line end in between", "a : t\n:= 2", "$ empty := context?", none},
      {"a comma in between", "a : t (b, c) := 2", ":= context?", none},
      {"a descending range in between", "a : t (7 downto 0) := 2", ":= context?", none},
      {"at the head of the text", "a := 2", ":= context?", none},
  });
}

TEST(LowerFloor, Indents) {
  const std::string most = std::to_string(INT_MAX);
  check({
      {"absolute, and back", "", "add=4 set=9 pop indent? pop indent? depth?", "4 0 0"},
      {"a pop too many", "", "set=9 pop pop indent? depth?", "0 0"},
      {"a pop leaves the statement as it is", "", "add=4 close pop closed?", "1"},
      {"no sum leaves the range", "", "set=" + most + " add=1 indent?", most},
      {"a configuration ends at the margin", "",
       "configure add=4 set=0 pop configures? pop configures?", "1 0"},
      {"nothing to stamp", "a", "nowhere add=4 stampIndent indent?", "4"},
  });
}

TEST(LowerFloor, IndentsOfFragments) {
  check({
      {"an odd column", "      a;", "keep indent? closed? pop indent? pop indent? depth?",
       "6 1 2 0 0"},
      {"end", "        end;", "keep indent? depth?", "12 3"},
      {"elsif", "  elsif", "steps=2 keep indent?", "4"},
      {"tabs", "\ta;", "keep indent?", "4"},
      {"code behind comments", "    --c\n--qorn-off\n\n  a;", "keep indent?", "2"},
      {"code behind code is not looked at", "  a; b\n        end;", "keep indent?", "2"},
      {"comments only", "    --c\n", "keep indent?", "0"},
      {"comments only, with blanks at the end", "--c\n    ", "keep indent?", "4"},
      {"no steps to count", "   a;", "steps=0 keep indent? depth?", "3 1"},
  });
}

TEST(LowerFloor, ResetDropsWhatAFileLeft) {
  Probe probe;
  probe.scan("configuration c of e is for a (( process if");
  probe.Format();
  ASSERT_GT(probe.countIndents(), 1);
  probe.Reset();
  probe.scan("a;\nb\n");
  probe.Format();
  EXPECT_EQ(probe.shows(), "<$>a;$b!#");
  EXPECT_EQ(probe.inConfiguration, 0);
}

TEST(LowerFloor, InsertedTokensTakeTheLevelOfTheAnchor) {
  Probe probe;
  probe.scan("((a))");
  probe.at("a");
  const int level = probe.token()->getParenLevel();
  EXPECT_EQ(run(probe, "next=1 nextLine"), "((a<>^<$>))#");
  EXPECT_EQ(probe.token()->getParenLevel(), level);
  EXPECT_EQ(probe.list().getAnchor()->getPrev()->getParenLevel(), level);
}

}  // namespace
