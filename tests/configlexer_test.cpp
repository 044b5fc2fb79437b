// The configuration language: text in, keys with their values out.
#include <gtest/gtest.h>

#include <cctype>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

#include "confignames.h"

namespace {

std::string scan(std::string_view text) {
  ConfigList list;
  xxlex(text, list);
  return shown(list);
}

struct Case {
  const char* name;
  std::string_view input;
  const char* expected;
};

void expectRows(std::initializer_list<Case> rows) {
  for (const Case& row : rows) EXPECT_EQ(scan(row.input), row.expected) << row.name;
}

TEST(ConfigLexerTest, EveryFormStandsForItsCodeInAnyCase) {
  const struct {
    std::string text;
    int code;
    bool isKey;
  } forms[] = {
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) {form, name, true},
#define QORN_VALUE(name, form) {form, name, false},
#include "tokens/configcodes.def"
  };
  for (const auto& form : forms) {
    std::string mixed = form.text;
    for (std::size_t i = 0; i < mixed.size(); i += 2) {
      mixed[i] = static_cast<char>(std::tolower(mixed[i]));
    }
    for (const std::string& text : {form.text, mixed}) {
      const std::string code = codeName(form.code);
      EXPECT_EQ(scan((form.isKey ? "" : "TABIFY ") + text + " 7"),
                form.isKey ? code + "=7" : "TABIFY=" + code);
    }
  }
}

TEST(ConfigLexerTest, WordsMatchAnywhereAndTheLongestWins) {
  expectRows({
      {"line feed between key and value", "INDENT\n8", "INDENTATION=8"},
      {"equals sign", "indentation=8", "INDENTATION=8"},
      {"nothing between", "INDENT8", "INDENTATION=8"},
      {"short and long form", "IDENTIFIER LOWER IDENTIFIERLENGTH 9",
       "IDENTIFIERCASE=LOWERCASE IDENTLENGTH=9"},
      {"three headers", "PACKAGEHEADER PACKAGEBODYHEADER FILEHEADER",
       "PACKAGEHEADERFILENAME PACKAGEBODYHEADERFILENAME FILEHEADERFILENAME"},
      {"letter in front", "XTABSIZE 4", "TABSIZE=4"},
      {"half a longer form", "LINEWIDT 4", "LINEWIDTH=4"},
      {"form cut by a line feed", "TAB\nSIZE 4", ""},
      {"verbose and its list", "VERBOSEINTERFACE 1 TABIFY VERBOSE",
       "VERBOSEINTERFACELIST=1 TABIFY=VERBOSE"},
      {"capitalize after", "KEYWORD CAPITALIZEDAFTER", "KEYWORDCASE=CAPITALIZEAFTERUNDERSCORE"},
      {"capitalize, then a word", "KEYWORD CAPITALIZEDAFT", "KEYWORDCASE=CAPITALIZED"},
      {"byte above 127", "TABSIZE\xE4 4\xFF", "TABSIZE=4"},
      {"NUL is a character like others", {"TABSIZE\0 4", 10}, "TABSIZE=4"},
  });
}

TEST(ConfigLexerTest, TheFirstValueBehindAKeyIsItsOwn) {
  expectRows({
      {"value without a key", "TRUE 4 'x' TABIFY", "TABIFY"},
      {"second number dropped", "TABSIZE 8 4", "TABSIZE=8"},
      {"fraction dropped", "TABSIZE 4.5", "TABSIZE=4"},
      {"kinds share the one place", "TABIFY 'x' TRUE 4", "TABIFY='x'"},
      {"zero is a value", "TABSIZE 0 4", "TABSIZE=0"},
      {"number cut by a line feed", "TABSIZE 1\n2", "TABSIZE=1"},
      {"largest number", "TABSIZE 2147483647", "TABSIZE=2147483647"},
      {"number too large", "TABSIZE 2147483648", "TABSIZE=2147483647"},
      {"misspelt value", "KEYWORDCASE uper TABIFY", "KEYWORDCASE TABIFY"},
      {"value in a longer word", "KEEPBACKUPFILE untrue", "KEEPBACKUPFILE=TRUE"},
      {"key in two words", "ATTRIBUTE CASE UPPER", "ATTRIBUTECASE=A"},
  });
}

TEST(ConfigLexerTest, QuotesHoldTextAndHashesComments) {
  expectRows({
      {"double quotes", "BACKUPFILE \".old\"", "BACKUPFILEEXTENSION='.old'"},
      {"tick inside", "BACKUPFILE \"a'b\"", "BACKUPFILEEXTENSION='a'b'"},
      {"several lines", "BACKUPFILE \"a\nb\"", "BACKUPFILEEXTENSION='a\nb'"},
      {"keys inside don't count", "BACKUPFILE 'TABSIZE 4' TABIFY",
       "BACKUPFILEEXTENSION='TABSIZE 4' TABIFY"},
      {"no empty text", "BACKUPFILE \"\" TABSIZE 4 \"", "BACKUPFILEEXTENSION=' TABSIZE 4 '"},
      {"quote without a partner", "BACKUPFILE \"x TABSIZE 4", "BACKUPFILEEXTENSION TABSIZE=4"},
      {"third quote is alone", "BACKUPFILE 'a' 'TABSIZE 4", "BACKUPFILEEXTENSION='a' TABSIZE=4"},
      {"NUL ends the text that is read",
       {"BACKUPFILE 'a\0b' TABIFY", 23},
       "BACKUPFILEEXTENSION='a' TABIFY"},
      {"comment behind a value", "TABSIZE 8# TABIFY TRUE\nLINE 9", "TABSIZE=8 LINEWIDTH=9"},
      {"empty comment", "#\nTABSIZE 8", "TABSIZE=8"},
      {"last line without line feed", "# LINE 8\n# LINE 9", "LINEWIDTH=9"},
      {"quote in a comment", "# it's\nTABSIZE 8 # it's\n", "TABSIZE=8"},
      {"hash in a text", "BACKUPFILE '#' TABSIZE 8\n", "BACKUPFILEEXTENSION='#' TABSIZE=8"},
      {"carriage return", "TABSIZE 8\r\n# x\r\nLINE 9\r\n", "TABSIZE=8 LINEWIDTH=9"},
  });
}

TEST(ConfigLexerTest, FilesAddUpToOneList) {
  ConfigList list;
  xxlex("TABSIZE 8\nLINEWIDTH", list);
  xxlex("100 TABSIZE 4", list);
  EXPECT_EQ(shown(list), "TABSIZE=8 LINEWIDTH=100 TABSIZE=4");
}

// A rule that scanned to the end of the file at every place would take hours here.
TEST(ConfigLexerTest, LongFilesComeToTheirEnd) {
  constexpr int million = 1 << 20;
  for (const char* piece : {"#", "\"\"", "'\"", "capitalizedafterunderscor", "9", "TABSIZE"}) {
    const std::string text = "TABSIZE " + repeated(piece, million / 8) + "x\n\"'\nLINE 7";
    EXPECT_TRUE(scan(text).ends_with("LINEWIDTH=7")) << piece;
  }
}

}  // namespace
