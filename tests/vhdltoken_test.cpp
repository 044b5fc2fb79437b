// The token record: its two texts, the case styles and the priority of a line break.
#include "tokens/vhdltoken.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "confignames.h"

namespace {

TEST(VhdlTokenTest, PrintsItsFormatTextOnceOneWasSet) {
  Arena arena;
  const struct {
    const char* name;
    void (*change)(VhdlToken& token, Arena& arena);
    const char* expected;
  } cases[] = {
      {"nothing", [](VhdlToken& token, Arena&) { token.setFormatText(""); }, ""},
      {"line end", [](VhdlToken& token, Arena&) { token.setFormatText("\n"); }, "\n"},
      {"blanks", [](VhdlToken& token, Arena&) { token.setFormatBlanks(3); }, "   "},
      {"no blanks", [](VhdlToken& token, Arena&) { token.setFormatBlanks(-1); }, ""},
      {"a text", [](VhdlToken& token, Arena& home) { token.setFormatText("\na", home); }, "\na"},
      {"a second text",
       [](VhdlToken& token, Arena& home) {
         token.setFormatText(" a  \n b ", home);
         token.deleteSpaces(home);
         EXPECT_EQ(textOf(token, 1), "a\nb");
         token.setFormatText("b", home);
       },
       "b"},
  };
  for (const auto& row : cases) {
    VhdlToken token(T_COMMENT, 7, 2, "raw");
    EXPECT_EQ(textOf(token, 1), "raw");
    row.change(token, arena);
    EXPECT_EQ(textOf(token, 1), row.expected) << row.name;
    EXPECT_EQ(token.textLength(1), static_cast<int>(textOf(token, 1).size()));
    EXPECT_EQ(textOf(token, 0), "raw");
  }
}

TEST(VhdlTokenTest, HoldsTheNearestGravity) {
  for (const auto& [given, held] : {std::pair(255, 127), std::pair(-200, -128)}) {
    VhdlToken token(T_COMMA, 0);
    token.setGravity(given);
    EXPECT_EQ(token.getGravity(), held);
  }
}

/** The text in its style, converted in two pieces. */
std::string converted(CaseText source) {
  std::string text(source.text.size(), ' ');
  const std::size_t middle = source.text.size() / 2;
  convertCase(text.data(), source.text.substr(0, middle), source.style);
  convertCase(text.data() + middle, source.text.substr(middle), source.style,
              middle == 0 ? '\0' : source.text[middle - 1]);
  return text;
}

TEST(VhdlTokenTest, ConvertsAsciiLettersAlone) {
  const char* const longName = "\\aZ_\xe4\xc4@[`{ and more than fits into the object_x\\";
  const struct {
    int style;
    const char* input;
    const char* expected;
  } cases[] = {
      {C_UPPERCASE, "aZ_\xe4\xc4@[`{/", "AZ_\xe4\xc4@[`{/"},
      {C_LOWERCASE, "aZ_\xe4\xc4@[`{/", "az_\xe4\xc4@[`{/"},
      {C_LOWERCASE, longName, "\\az_\xe4\xc4@[`{ and more than fits into the object_x\\"},
      {C_ASIS, "aZ", "aZ"},
      {C_TRUE, "aZ", "aZ"},
      {C_CAPITALIZED, "", ""},
      {C_CAPITALIZED, "mY_SIGNAL_x1", "My_signal_x1"},
      {C_CAPITALIZED, "'LAST_EVENT", "'last_event"},
      {C_CAPITALIZEAFTERUNDERSCORE, "", ""},
      {C_CAPITALIZEAFTERUNDERSCORE, "my_SIGNAL_x1", "My_Signal_X1"},
      {C_CAPITALIZEAFTERUNDERSCORE, "'LAST_EVENT", "'last_Event"},
      {C_CAPITALIZEAFTERUNDERSCORE, "a__b_", "A__B_"},
      {C_CAPITALIZEAFTERUNDERSCORE, "a_very_long_identifier_x", "A_Very_Long_Identifier_X"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(converted({row.input, row.style}), row.expected) << codeName(row.style);
  }
}

/** All tokens as they are printed under the two switches, joined. */
std::string printed(TokenList& list, const CaseStyles& styles, int formatting, int layout) {
  std::string text;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    const int blanks = item->countBlanks(formatting & layout);
    if (blanks > 0) text.append(static_cast<std::size_t>(blanks), ' ');
    if (blanks < 0) text += converted(item->getCaseText(formatting, layout, styles));
  }
  return text;
}

TEST(VhdlTokenTest, TakesTheStyleOfItsGroupUnlessFormattingIsOff) {
  CaseStyles styles;
  styles.setGroup(CASE_KEYWORD, C_CAPITALIZED);
  styles.setGroup(CASE_IDENTIFIER, C_UPPERCASE);
  styles.setGroup(CASE_ATTRIBUTE, C_LOWERCASE);
  styles.setGroup(CASE_NUMBER, C_UPPERCASE);
  TokenList list;
  const std::string source = "eND \\Ab\\ cD'aCTIVE X\"aB\" 1e3 16#aF#e1 \"sT\" 'h' --qorn-ON x\n";
  const std::string cased = "End \\AB\\ CD'active X\"AB\" 1E3 16#AF#E1 \"sT\" 'h' --qorn-ON x\n";
  lexInto(list, source);
  EXPECT_EQ(printed(list, styles, 0, 0), source);
  EXPECT_EQ(printed(list, styles, 1, 1), cased);
  list.getFirst()->setFormatText("bEGIN", list.getArena());
  EXPECT_EQ(printed(list, styles, 0, 1), source);
  EXPECT_EQ(printed(list, styles, 1, 0), cased);
  EXPECT_EQ(printed(list, styles, 1, 1), "Begin" + cased.substr(3));
}

TEST(VhdlTokenTest, WrapGravityGrowsWithTheDistance) {
  const struct {
    int typ;
    int gravity;
    int column;
    int expected;  // for a line that would go on at column 10
  } cases[] = {
      {T_COMMA, 5, 30, 25},  {T_COMMA, 5, 11, 6}, {T_COMMA, 5, 10, 0},   {T_COMMA, 5, 0, 0},
      {T_NEWLINE, 5, 30, 0}, {T_COMMA, 0, 30, 0}, {T_COMMA, -1, 30, -1}, {T_NEWLINE, -1, 30, -1},
  };
  for (const auto& row : cases) {
    VhdlToken token(row.typ, 1, 0, ",");
    EXPECT_EQ(token.getWrapGravity(0), 0);  // column 0, whatever the gravity
    token.setGravity(row.gravity);
    token.setColumn(row.column);
    EXPECT_EQ(token.getWrapGravity(10), row.expected) << row.gravity << " at " << row.column;
  }
}

}  // namespace
