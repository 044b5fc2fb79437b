// The lexer: sources and their tokens, one line each, such as "IDENTIFIER(x) [ ] END(end) $".
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "base/ascii.h"
#include "tokendump.h"

namespace {

struct Case {
  const char* name;
  std::string input;
  const char* expected;
  int tabSize = 4;
};

/** Codes and texts of a source's tokens but the end, with `formatted` 1 as they are printed: "[ ]"
    is a blank, "$" a line end. */
std::string lexed(std::string_view source, int tabSize = 4, int formatted = 0) {
  TokenList list;
  lexInto(list, source, tabSize);
  std::string line;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    const auto* token = item;
    const int typ = token->getTyp();
    if (typ == T_EOF) break;
    const std::string text = visible(textOf(*token, formatted));
    std::string shown = tokenName(typ) + (text.empty() ? "" : "(" + text + ")");
    if (typ == T_WHITESPACE) shown = "[" + text + "]";
    if (typ == T_NEWLINE) shown = "$";
    line += (line.empty() ? "" : " ") + shown;
  }
  return line;
}

void check(const std::vector<Case>& cases) {
  for (const Case& row : cases) {
    EXPECT_EQ(lexed(row.input, row.tabSize), row.expected) << row.name;
  }
}

TEST(LexerTest, Words) {
  check({
      {"nothing", "", ""},
      {"longer than a word", "endif", "IDENTIFIER(endif)"},
      {"a word and an attribute", "active'active", "ACTIVE(active) ATTRIBUTE_NAME('active)"},
      {"closing underline", "foo_", "IDENTIFIER(foo) UNKNOWN(_)"},
      {"double underline", "f__b", "IDENTIFIER(f) UNKNOWN(_) UNKNOWN(_) IDENTIFIER(b)"},
      {"beyond ASCII", "a\xe4z", "IDENTIFIER(a) UNKNOWN(\\xe4) IDENTIFIER(z)"},
      {"extended", "\\a b\"--'(%\\x", "IDENTIFIER(\\a b\"--'(%\\) IDENTIFIER(x)"},
      {"extended, two", "\\a\\\\b\\", "IDENTIFIER(\\a\\) IDENTIFIER(\\b\\)"},
      {"extended, empty", "\\\\", "UNKNOWN(\\) UNKNOWN(\\)"},
      {"extended, empty but one ahead", "\\\\a\\", "UNKNOWN(\\) IDENTIFIER(\\a\\)"},
      {"extended, over lines", "\\a\r\n\\b", "IDENTIFIER(\\a\\r\\n\\) IDENTIFIER(b)"},
      {"extended, open", "\\a\n", "UNKNOWN(\\) IDENTIFIER(a) $"},
      {"extended, open at the end", "\\a", "UNKNOWN(\\) IDENTIFIER(a)"},
  });
}

TEST(LexerTest, EveryReservedWordAndNoOther) {
  struct Word {
    int typ;
    int edition;  // since which it is reserved
  };
  const std::map<std::string, Word> words = {
#define QORN_WORD(name, code, word) {word, {code, 0}},
#define QORN_NEWER_WORD(name, code, word, edition) {word, {code, edition}},
#define QORN_CODE(name, code, group)
#include "tokens/tokencodes.def"
  };
  EXPECT_EQ(words.size(), 118U);
  for (const auto& [word, code] : words) {
    std::string upper = word;
    std::ranges::transform(upper, upper.begin(), asciiUpper);
    EXPECT_EQ(lexed(upper),
              tokenName(code.edition == 0 ? code.typ : T_IDENTIFIER) + "(" + upper + ")");
    for (std::size_t i = 0; i < word.size(); ++i) {
      for (const char letter : std::string("aez_0\xe5")) {
        std::string other = word;
        other[i] = letter;
        const bool isWord = words.contains(other);
        for (const int edition : {1993, 2008, 2019}) {
          EXPECT_EQ(findReservedWord(other, edition),
                    isWord && words.at(other).edition <= edition ? words.at(other).typ : -1)
              << other;
        }
      }
    }
  }
}

TEST(LexerTest, Numbers) {
  check({
      {"no separator behind", "10ns", "DECIMAL(10) IDENTIFIER(ns)"},
      {"closing underline", "1_", "DECIMAL(1) UNKNOWN(_)"},
      {"closing point", "1.", "DECIMAL(1) DOT(.)"},
      {"two points", "1.2.3", "DECIMAL(1.2) DOT(.) DECIMAL(3)"},
      {"negative exponent", "1.5e-3", "DECIMAL(1.5e-3)"},
      {"negative, no fraction", "1e-3", "DECIMAL(1) IDENTIFIER(e) DELIMITER(-) DECIMAL(3)"},
      {"positive", "1e+3_0", "DECIMAL(1e+3_0)"},
      {"exponent with a sign alone", "1e+", "DECIMAL(1) IDENTIFIER(e) DELIMITER(+)"},
      {"based", "16#F_f.a#", "BASED(16#F_f.a#)"},
      {"based, exponents", "16#F#E-2_0 2#1#e+3", "BASED(16#F#E-2_0) [ ] BASED(2#1#e+3)"},
      {"based, digit above the base", "2#9#", "BASED(2#9#)"},
      {"based, open", "16#FF", "DECIMAL(16) UNKNOWN(#) IDENTIFIER(FF)"},
      {"based, empty", "1##", "DECIMAL(1) UNKNOWN(#) UNKNOWN(#)"},
      {"based, empty fraction", "1#2.#", "DECIMAL(1) UNKNOWN(#) DECIMAL(2) DOT(.) UNKNOWN(#)"},
      {"based, underline at the end", "1#2_#",
       "DECIMAL(1) UNKNOWN(#) DECIMAL(2) UNKNOWN(_) UNKNOWN(#)"},
      {"colons", "1:2: 8:7.7:e-1", "BASED(1:2:) [ ] BASED(8:7.7:e-1)"},
      {"colons, open", "1:2", "DECIMAL(1) COLON(:) DECIMAL(2)"},
      {"marks mixed", "1:2#", "DECIMAL(1) COLON(:) DECIMAL(2) UNKNOWN(#)"},
      {"bit strings", "X\"aF_0\"o%17%b\"1_0\"",
       "BITSTRING(X\"aF_0\") BITSTRING(o%17%) BITSTRING(b\"1_0\")"},
      {"bit string, underline at the end", "X\"AB_\"", "IDENTIFIER(X) STRING(\"AB_\")"},
      {"bit string, empty", "X\"\"", "IDENTIFIER(X) STRING(\"\")"},
      {"bit string, wrong digit", "O\"18\"B\"2\"",
       "IDENTIFIER(O) STRING(\"18\") IDENTIFIER(B) STRING(\"2\")"},
      {"bit string, other prefix", "ax\"1\"", "IDENTIFIER(ax) STRING(\"1\")"},
      {"bit string, marks mixed", "x\"1%", "IDENTIFIER(x) UNKNOWN(\") DECIMAL(1) UNKNOWN(%)"},
  });
}

TEST(LexerTest, StringsAndTicks) {
  check({
      {"strings", "\"a--b\"%c\"d%", "STRING(\"a--b\") STRING(%c\"d%)"},
      {"doubled quotes", "\"\"\"\" %%%%", "STRING(\"\"\"\") [ ] STRING(%%%%)"},
      {"falls back to what was complete", "\"a\"\"b\n",
       "STRING(\"a\") UNKNOWN(\") IDENTIFIER(b) $"},
      {"falls back at the end", "\"a\"\"\"\"", "STRING(\"a\"\"\") UNKNOWN(\")"},
      {"open", "\"a b", "UNKNOWN(\") IDENTIFIER(a) [ ] IDENTIFIER(b)"},
      {"open over a line end", "%a\n%", "UNKNOWN(%) IDENTIFIER(a) $ UNKNOWN(%)"},
      {"control characters inside", "\"\t\r\v\"", "STRING(\"\\t\\r\\v\")"},
      {"two ticks", "''", "DELIMITER(') DELIMITER(')"},
      {"three ticks", "'''", "CHARACTER(''')"},
      {"any byte between ticks", "'\xff''\r'", "CHARACTER('\\xff') CHARACTER('\\r')"},
      {"line end between ticks", "'\n'", "DELIMITER(') $ DELIMITER(')"},
      {"tick before a name", "a'foo", "IDENTIFIER(a) DELIMITER(') IDENTIFIER(foo)"},
      {"tick before a list", "t'(a)",
       "IDENTIFIER(t) DELIMITER(') LPAREN(() IDENTIFIER(a) RPAREN())"},
      {"qualified literal", "t'('1')", "IDENTIFIER(t) TICK(') LPAREN(() CHARACTER('1') RPAREN())"},
      {"literal of a parenthesis", "'('1", "CHARACTER('(') DECIMAL(1)"},
      {"the first qualified literal wins", "'(',')'",
       "TICK(') LPAREN(() CHARACTER(',') RPAREN()) DELIMITER(')"},
      {"qualified line end", "'('\n'", "CHARACTER('(') $ DELIMITER(')"},
      {"tick at the end", "a'", "IDENTIFIER(a) DELIMITER(')"},
  });
}

TEST(LexerTest, Attributes) {
  std::istringstream names(
      "DRIVING_VALUE DRIVING ASCENDING IMAGE VALUE PATH_NAME INSTANCE_NAME SIMPLE_NAME BASE LEFT "
      "RIGHT HIGH LOW POS VAL SUCC PRED LEFTOF RIGHTOF RANGE REVERSE_RANGE LENGTH DELAYED STABLE "
      "QUIET TRANSACTION EVENT ACTIVE LAST_EVENT LAST_ACTIVE LAST_VALUE BEHAVIOR STRUCTURE");
  for (std::string name; names >> name;) {
    EXPECT_EQ(lexed("'" + name + "x1"), "ATTRIBUTE_NAME('" + name + ") IDENTIFIER(x1)");
  }
  check({
      {"lower case", "a'Left_", "IDENTIFIER(a) ATTRIBUTE_NAME('Left) UNKNOWN(_)"},
      {"a prefix of a name", "'drivin 'va",
       "DELIMITER(') IDENTIFIER(drivin) [ ] DELIMITER(') IDENTIFIER(va)"},
      {"the longest name", "'driving_valu", "ATTRIBUTE_NAME('driving) UNKNOWN(_) IDENTIFIER(valu)"},
      {"apart from its tick", "'\v\n\n\f low", "ATTRIBUTE_NAME('\\v\\n\\n\\f low)"},
      {"apart by a carriage return", "'\rlow", "DELIMITER(') IDENTIFIER(low)"},
      {"tick before blanks", "' \nx", "DELIMITER(') [ ] $ IDENTIFIER(x)"},
      {"tick before blanks at the end", "' \n", "DELIMITER(') [ ] $"},
      {"a character literal first", "'a'active'b'", "CHARACTER('a') ACTIVE(active) CHARACTER('b')"},
  });
  EXPECT_EQ(lexed("' \n\tlow", 4, 1), "ATTRIBUTE_NAME('\\nlow)");
}

TEST(LexerTest, CommentsAndLineEnds) {
  check({
      {"behind a name", "a--b--c", "IDENTIFIER(a) COMMENT(--b--c)"},
      {"pragmas", "--QORN-ON\n--qorn-off\n--Qorn-Indent-On\n--QORN-INDENT-OFF",
       "FORMAT_ON(--QORN-ON) $ FORMAT_OFF(--qorn-off) $ INDENT_ON(--Qorn-Indent-On) $ "
       "INDENT_OFF(--QORN-INDENT-OFF)"},
      {"pragmas with more behind", "--QORN-OFFICE\t\xe4\n--QORN-ONE",
       "FORMAT_OFF(--QORN-OFFICE\\t\\xe4) $ FORMAT_ON(--QORN-ONE)"},
      {"nearly pragmas", "-- QORN-ON\n--QORN-INDENT\n--QORN_ON\n--QORN-O",
       "COMMENT(-- QORN-ON) $ COMMENT(--QORN-INDENT) $ COMMENT(--QORN_ON) $ COMMENT(--QORN-O)"},
      {"carriage returns", "a\r\n--b\r\n\r--c\rd\r",
       "IDENTIFIER(a) $ COMMENT(--b) $ COMMENT(--c) IDENTIFIER(d)"},
      {"blanks", " \t\v\f\n \n", "[    \\v\\f] $ [ ] $"},
  });
}

TEST(LexerTest, PunctuationAndOtherBytes) {
  check({
      {"compounds", ":==><=<>/=>=**",
       "VARASSIGN(:=) ARROW(=>) SIGASSIGN(<=) BOX(<>) NOTEQUAL(/=) GREATEREQ(>=) POWER(**)"},
      {"longest first", "***<<=>",
       "POWER(**) DELIMITER(*) DELIMITER(<) SIGASSIGN(<=) DELIMITER(>)"},
      {"both bars", "!|", "BAR(|) DELIMITER(|)"},
      {"unknown", "#@`\x01\x7f\x80",
       "UNKNOWN(#) UNKNOWN(@) UNKNOWN(`) UNKNOWN(\\x01) UNKNOWN(\\x7f) UNKNOWN(\\x80)"},
      {"a zero alone", std::string("a\0b", 3), "IDENTIFIER(a) UNKNOWN IDENTIFIER(b)"},
      {"a zero in a string", std::string("\"a\0b\"c", 6), "STRING(\"a) IDENTIFIER(c)"},
      {"a zero in a comment", std::string("--a\0b\n", 6), "COMMENT(--a) $"},
      {"a zero in a literal", std::string("'\0'", 3), "CHARACTER(')"},
  });
}

TEST(LexerTest, ExpandsTabsOfBlanksCommentsAndAttributes) {
  check({
      {"at 0, 1, 3 and 4", "\t|a\t\n   \t\n\t\t",
       "[    ] DELIMITER(|) IDENTIFIER(a) [  ] $ [    ] $ [        ]"},
      {"in a comment", "a\t--x\t.\t", "IDENTIFIER(a) [   ] COMMENT(--x .   )"},
      {"a tab in a string is one column", "\"\t\"\t--", "STRING(\"\\t\") [ ] COMMENT(--)"},
      {"a tab in a pragma stays", "--QORN-ON\t", "FORMAT_ON(--QORN-ON\\t)"},
      {"in an attribute, over its lines", "a'\n\tlow\tb",
       "IDENTIFIER(a) ATTRIBUTE_NAME('\\n low) [ ] IDENTIFIER(b)"},
      {"carriage returns are no columns", "\ra\r\tb", "IDENTIFIER(a) [   ] IDENTIFIER(b)"},
      {"other blanks are one column", "\v\f\t.", "[\\v\\f  ] DOT(.)"},
      {"the bar is one column", "!\t.", "BAR(|) [   ] DOT(.)"},
      {"size 8", "a\t.", "IDENTIFIER(a) [       ] DOT(.)", 8},
      {"size 1", "a\t\t.", "IDENTIFIER(a) [  ] DOT(.)", 1},
      {"size 0 acts as 1", "a\t\t.", "IDENTIFIER(a) [  ] DOT(.)", 0},
  });
}

/** Line and level of each token, counted from those of a token read before. */
std::string places(TokenList& list, const VhdlToken& start) {
  std::string line;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    const auto* token = item;
    line += tokenName(token->getTyp()) + ":" +
            std::to_string(token->getLineNo() - start.getLineNo()) + "/" +
            std::to_string(token->getParenLevel() - start.getParenLevel()) + " ";
  }
  return line;
}

TEST(LexerTest, LinesAndLevelsRunOnFromFileToFile) {
  TokenList lists[4];
  LexState state;
  lexInto(lists[0], "", state);
  const auto& start = *lists[0].getFirst();
  lexInto(lists[1], "a([b\n(c))(\n'\nlow;", state);
  EXPECT_EQ(places(lists[1], start),
            "IDENTIFIER:0/0 LPAREN:0/1 LBRACKET:0/1 IDENTIFIER:0/1 NEWLINE:0/1 LPAREN:1/2 "
            "IDENTIFIER:1/2 RPAREN:1/2 RPAREN:1/1 LPAREN:1/1 NEWLINE:1/1 ATTRIBUTE_NAME:2/1 "
            "SEMICOLON:2/1 EOF:2/1 ");
  lexInto(lists[2], "))\n)", state);
  EXPECT_EQ(places(lists[2], start), "RPAREN:2/1 RPAREN:2/0 NEWLINE:2/-1 RPAREN:3/-1 EOF:3/-2 ");
  lexInto(lists[3], "((", state);
  EXPECT_EQ(places(lists[3], start), "LPAREN:3/-1 LPAREN:3/0 EOF:3/0 ");
}

// A rule that scans ahead and fails must not do so again a few bytes on: that would take minutes.
TEST(LexerTest, ScansHostileInputsOnce) {
  const std::string shapes[] = {"\\",    "\\\"", "\"",   "\"%",   "%\"%\"", "\"\"x",   "'",
                                "' ",    "'\n",  "'()",  "1#aaa", "1:1",    "1_",      "1.",
                                "1.1e-", "x\"1", "x%1_", "--\r",  "'last_", "--QORN-", "aaa_"};
  constexpr int size = 1 << 16;
  for (const std::string& shape : shapes) {
    std::string source = repeated(shape, size);
    TokenList list;
    lexInto(list, source);
    std::string joined;
    for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
      joined += textOf(*item, 0);
    }
    if (shape == "--\r") std::erase(source, '\r');
    EXPECT_TRUE(joined == source) << visible(shape);
  }
}

}  // namespace
