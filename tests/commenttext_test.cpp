// The text of one comment: frames, filler, splitting. The line has 20 columns.
#include <gtest/gtest.h>

#include <string>

#include "tokens/vhdltoken.h"

namespace {

constexpr int width = 20;
constexpr const char* frameCharacters = "-=*";

Arena arena;

TEST(CommentText, AlignComment) {
  const struct {
    const char* name;
    const char* input;
    int column;
    const char* expected;
    const char* framed;  // null: the same
  } cases[] = {
      {"a line", "----", 0, "--------------------", nullptr},
      {"a bare mark", "--", 0, "--", nullptr},
      {"a filled title", "-- Title ======", 0, "-- Title ===========", nullptr},
      {"stars stay", "-- Title **", 2, "-- Title**", "-- Title        **"},
      {"nothing inside", "--  --", 0, "--", "--                --"},
      {"stars behind the mark", "--**", 0, "--**", "--                **"},
      {"of no frame character", "-- Title ##", 0, "-- Title ##", nullptr},
      {"as wide as the line", "-- Titled and all --", 0, "-- Titled and all",
       "-- Titled and all --"},
      {"wider than the line", "-- Titled and all- --", 0, "-- Titled and all- --", nullptr},
      {"wider by its column", "-- Title ======", 6, "-- Title ======", nullptr},
      {"as wide by its column", "-- Title ======", 5, "-- Title ======", nullptr},
  };
  for (const auto& row : cases) {
    for (int frame = 0; frame <= 1; ++frame) {
      SCOPED_TRACE(std::string(row.name) + (frame == 1 ? ", framed" : ""));
      VhdlToken token(T_COMMENT, 1, 0, row.input);
      token.setIndent(row.column);
      token.alignComment(width, frameCharacters, frame, arena);
      EXPECT_EQ(token.viewText(1), frame == 1 && row.framed ? row.framed : row.expected);
      EXPECT_EQ(token.viewText(0), row.input);
    }
  }
}

TEST(CommentText, TrimmComment) {
  const struct {
    const char* name;
    const char* input;
    const char* pair;
    int column;
    const char* expected;
  } cases[] = {
      {"a line", "------------------------------", "--", 0, "--------------------"},
      {"a line further right", "------------------------------", "--", 8, "------------"},
      {"a filled title", "-- Title =====================", "==", 0, "-- Title ==========="},
      {"a title beyond the margin", "-- A longer title xyz   ==", "==", 0,
       "-- A longer title xyz =="},
      {"and without a blank", "-- A longer title xyz==", "==", 0, "-- A longer title xyz=="},
      {"a title that ends in the last columns", "-- A longer title    **", "**", 0,
       "-- A longer title **"},
      {"it fits", "-- Title    --", "--", 0, "-- Title    --"},
      {"another pair", "-- A longer title xyz   ==", "--", 0, "-- A longer title xyz   =="},
      {"no room at all", "------", "--", 30, "----"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    VhdlToken token(T_COMMENT, 1, 0, row.input);
    token.setIndent(row.column);
    token.trimmComment(width, row.pair, arena);
    EXPECT_EQ(token.viewText(1), row.expected);
  }
}

TEST(CommentText, StripComment) {
  const struct {
    const char* name;
    const char* input;
    int column;
    const char* expected;
    const char* rest;  // null: the comment stays whole
  } cases[] = {
      {"at the last blank", "-- one two three four", 0, "-- one two three", "-- four"},
      {"a blank just behind the margin", "-- one two three fou r", 0, "-- one two three fou",
       "-- r"},
      {"of several blanks the last", "-- one two three  four", 0, "-- one two three ", "-- four"},
      {"a pair that gives way", "-- one two three    ----------", 0, "-- one two three  --",
       nullptr},
      {"a blank behind the mark's", "--  word-without-any-place", 0, "-- ",
       "-- word-without-any-place"},
      {"another mark", "--! one two three four", 0, "--! one two three", "-- four"},
      {"no column left", "-- a b", 20, "-- a b", nullptr},
      {"none beside the pair", "-- a b c --", 17, "-- a b c --", nullptr},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    VhdlToken token(T_COMMENT, 1, 0, row.input);
    token.setIndent(row.column);
    const std::span<char> rest = token.stripComment(width, frameCharacters, arena);
    EXPECT_EQ(token.viewText(1), row.expected);
    EXPECT_EQ(std::string(rest.begin(), rest.end()), row.rest == nullptr ? "" : row.rest);
    EXPECT_EQ(token.viewText(0), row.input);
  }
}

TEST(CommentText, OtherTokensStay) {
  VhdlToken token(T_IDENTIFIER, 1, 0, "a b c d e f g h i j k l --");
  token.alignComment(40, frameCharacters, 1, arena);
  token.trimmComment(width, "--", arena);
  EXPECT_TRUE(token.stripComment(width, frameCharacters, arena).empty());
  EXPECT_FALSE(token.isFormatted());
}

}  // namespace
