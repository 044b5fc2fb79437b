// No input is too odd, too deep or too long. What else holds for every input is checked by the
// replays of the fuzz targets.
#include <gtest/gtest.h>

#include "base/ascii.h"
#include "scannerprobe.h"
#include "tokendump.h"

namespace {

/** All that is neither a blank nor a comment's mark or frame, with letters in one case. */
std::string essence(TokenList& list, int formatted) {
  std::string text;
  for (const auto* token = list.getFirst(); token != nullptr; token = list.getNext()) {
    const bool isComment = token->getTyp() == T_COMMENT;
    const std::string_view dropped = isComment ? " \t\v\f-=*" : " \t\n\v\f";
    for (const char letter : textOf(*token, formatted)) {
      if (dropped.find(letter) == std::string_view::npos) text += asciiUpper(letter);
    }
  }
  return text;
}

void expectNothingLost(std::string_view text, int indentation) {
  Settings settings;
  settings.indentation = indentation;
  VhdlScanner scanner(settings);
  ASSERT_EQ(scanner.format(text), 0);
  TokenList& list = ScannerProbe::tokenList(scanner);
  EXPECT_TRUE(essence(list, 1) == essence(list, 0));
  EXPECT_EQ(list.countPushedAnchors(), 0);
}

/** A debug build holds each measure against a walk over the whole line, so that a long line must
    be shorter there. */
constexpr int longLine =
#ifdef NDEBUG
    100000;
#else
    1000;
#endif

TEST(Properties, NoInputIsTooDeepOrTooLong) {
  const struct {
    const char* name;
    std::string text;
    int indentation;
  } cases[] = {
      {"calls in calls", repeated("f(", longLine) + "a" + repeated(")", longLine) + ";", 4},
      {"surplus parentheses", repeated(")", longLine) + ";", 4},
      {"branches", repeated("if a then ", 100000) + repeated("end if; ", 100000), 0},
      {"surplus ends", repeated("end; ", 100000), 4},
      {"an open list", "entity e is port (" + repeated("a : bit; ", longLine / 10), 4},
      {"open lists in each other", repeated("procedure p (signal a, b : in c; ", longLine / 10), 4},
      {"a table", "a <= (" + repeated("1, ", longLine) + "1);", 4},
      {"comments", repeated("-- a comment\n", 200000), 4},
      {"a comment", "-- " + repeated("word ", 400000), 4},
      {"a comment without a place to split", "--" + repeated("word", 500000), 4},
      {"comments that are all too long", repeated("-- " + repeated("word ", 30) + "\n", 30000), 4},
      {"blank lines", "a" + repeated("\n", 200000) + ";", 4},
      {"a run of assignments", repeated("a <= b;\n", 50000), 4},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    expectNothingLost(row.text, row.indentation);
  }
}

}  // namespace
