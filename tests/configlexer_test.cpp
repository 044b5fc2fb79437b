// The configuration language: text in, keys with their values out.
#include "config/configlexer.h"

#include <gtest/gtest.h>

#include <cctype>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "config/configtoken.h"
#include "confignames.h"

namespace {

/** "KEY" without a value, else "KEY=WORD", "KEY=12" or "KEY='text'". */
std::string shown(const QornConfigToken& key) {
  const std::string name = codeName(key.getTyp());
  int value = -1;
  key.setCaseType(&value);
  if (value == -1) return name;
  if (value != 0) return name + "=" + codeName(value);
  if (key.getPath()[0] != '\0') return name + "='" + key.getPath() + "'";
  return name + "=" + std::to_string(key.getInteger());
}

void scanInto(OldList& list, std::string_view text) {
  FILE* stream = std::tmpfile();
  std::fwrite(text.data(), 1, text.size(), stream);
  std::rewind(stream);
  xxin = stream;
  xxname = "test";
  xxconflist = &list;
  EXPECT_EQ(xxlex(), 0);
  std::fclose(stream);
}

std::string shown(OldList& list) {
  std::string line;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    if (!line.empty()) line += ' ';
    line += shown(*static_cast<QornConfigToken*>(item));
  }
  return line;
}

std::string scan(std::string_view text) {
  OldList list;
  scanInto(list, text);
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
  struct Form {
    std::string text;
    int code;
    bool isKey;
  };
  const Form forms[] = {
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) {form, name, true},
#define QORN_VALUE(name, form) {form, name, false},
#include "tokens/configcodes.def"
  };
  for (const Form& form : forms) {
    std::string mixed = form.text;
    for (std::size_t i = 0; i < mixed.size(); i += 2) {
      mixed[i] = static_cast<char>(std::tolower(mixed[i]));
    }
    const std::string code = codeName(form.code);
    const std::string expected = form.isKey ? code + "=7" : "TABIFY=" + code;
    EXPECT_EQ(scan((form.isKey ? form.text : "TABIFY " + form.text) + " 7"), expected);
    EXPECT_EQ(scan((form.isKey ? mixed : "tabify " + mixed) + "\n7\n"), expected);
  }
}

TEST(ConfigLexerTest, WordsMatchAnywhereAndTheLongestWins) {
  expectRows({
      {"empty", "", ""},
      {"line feed between key and value", "INDENT\n8", "INDENTATION=8"},
      {"equals sign", "indentation=8", "INDENTATION=8"},
      {"colon", "INDENTATION:8", "INDENTATION=8"},
      {"nothing between", "INDENT8", "INDENTATION=8"},
      {"short and long form", "IDENTIFIER LOWER IDENTIFIERLENGTH 9",
       "IDENTIFIERCASE=LOWERCASE IDENTLENGTH=9"},
      {"three headers", "PACKAGEHEADER PACKAGEBODYHEADER FILEHEADER",
       "PACKAGEHEADERFILENAME PACKAGEBODYHEADERFILENAME FILEHEADERFILENAME"},
      {"letter in front", "XTABSIZE 4", "TABSIZE=4"},
      {"letter behind", "LINEWIDTHS 4", "LINEWIDTH=4"},
      {"half a longer form", "LINEWIDT 4", "LINEWIDTH=4"},
      {"half of what goes on", "TABIFYTABSIZE4", "TABIFY TABSIZE=4"},
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
      {"two keys in a row", "TABSIZE LINEWIDTH 4", "TABSIZE LINEWIDTH=4"},
      {"second number dropped", "TABSIZE 8 4", "TABSIZE=8"},
      {"fraction dropped", "TABSIZE 4.5", "TABSIZE=4"},
      {"sign dropped", "TABSIZE -2", "TABSIZE=2"},
      {"kinds share the one place", "TABIFY 'x' TRUE 4", "TABIFY='x'"},
      {"zero is a value", "TABSIZE 0 4", "TABSIZE=0"},
      {"number cut by a line feed", "TABSIZE 1\n2", "TABSIZE=1"},
      {"largest number", "TABSIZE 2147483647", "TABSIZE=2147483647"},
      {"number too large", "TABSIZE 2147483648", "TABSIZE=2147483647"},
      {"number far too large", "TABSIZE 99999999999999999999999", "TABSIZE=2147483647"},
      {"misspelt value", "KEYWORDCASE uper TABIFY", "KEYWORDCASE TABIFY"},
      {"letter of a misspelt value", "KEYWORDCASE capital", "KEYWORDCASE=A"},
      {"value in a longer word", "KEEPBACKUPFILE untrue", "KEEPBACKUPFILE=TRUE"},
      {"key in two words", "ATTRIBUTE CASE UPPER", "ATTRIBUTECASE=A"},
      {"letter before the style", "STYLE bA", "STYLE=B"},
  });
}

TEST(ConfigLexerTest, QuotesHoldTextAndHashesComments) {
  expectRows({
      {"double quotes", "BACKUPFILE \".old\"", "BACKUPFILEEXTENSION='.old'"},
      {"ticks", "BACKUPFILE '.old'", "BACKUPFILEEXTENSION='.old'"},
      {"tick inside", "BACKUPFILE \"a'b\"", "BACKUPFILEEXTENSION='a'b'"},
      {"quote inside", "BACKUPFILE 'a\"b'", "BACKUPFILEEXTENSION='a\"b'"},
      {"several lines", "BACKUPFILE \"a\nb\"", "BACKUPFILEEXTENSION='a\nb'"},
      {"keys inside don't count", "BACKUPFILE 'TABSIZE 4' TABIFY",
       "BACKUPFILEEXTENSION='TABSIZE 4' TABIFY"},
      {"no empty text", "BACKUPFILE \"\" TABSIZE 4 \"", "BACKUPFILEEXTENSION=' TABSIZE 4 '"},
      {"no empty text in ticks", "BACKUPFILE '' TABIFY TRUE", "BACKUPFILEEXTENSION TABIFY=TRUE"},
      {"quote without a partner", "BACKUPFILE \"x TABSIZE 4", "BACKUPFILEEXTENSION TABSIZE=4"},
      {"tick without a partner", "TABIFY 'TRUE", "TABIFY=TRUE"},
      {"third quote is alone", "BACKUPFILE 'a' 'TABSIZE 4", "BACKUPFILEEXTENSION='a' TABSIZE=4"},
      {"text without a key", "'TABSIZE 4' TABIFY", "TABIFY"},
      {"NUL ends the text that is read",
       {"BACKUPFILE 'a\0b' TABIFY", 23},
       "BACKUPFILEEXTENSION='a' TABIFY"},
      {"comment", "TABSIZE # 8\n4", "TABSIZE=4"},
      {"comment behind a value", "TABSIZE 8# TABIFY TRUE\nLINE 9", "TABSIZE=8 LINEWIDTH=9"},
      {"empty comment", "#\nTABSIZE 8", "TABSIZE=8"},
      {"comment on the last line", "TABSIZE 8 # LINE 9\n", "TABSIZE=8"},
      {"last line without line feed", "# LINE 8\n# LINE 9", "LINEWIDTH=9"},
      {"quote in a comment", "# it's\nTABSIZE 8 # it's\n", "TABSIZE=8"},
      {"hash in a text", "BACKUPFILE '#' TABSIZE 8\n", "BACKUPFILEEXTENSION='#' TABSIZE=8"},
      {"carriage return", "TABSIZE 8\r\n# x\r\nLINE 9\r\n", "TABSIZE=8 LINEWIDTH=9"},
  });
}

TEST(ConfigLexerTest, FilesAddUpToOneList) {
  OldList list;
  scanInto(list, "TABSIZE 8\nLINEWIDTH");
  scanInto(list, "100 TABSIZE 4");
  EXPECT_EQ(shown(list), "TABSIZE=8 LINEWIDTH=100 TABSIZE=4");
}

TEST(ConfigLexerTest, ReadErrorIsFatalAndNamed) {
  const auto readFolder = [] {
    OldList list;
    xxin = std::fopen("/", "r");
    xxname = "/etc/folder";
    xxconflist = &list;
    xxlex();
  };
  EXPECT_EXIT(readFolder(), testing::ExitedWithCode(2),
              "^Error! qorn: /etc/folder: Is a directory\n$");
}

// A rule that scanned to the end of the file at every place would take hours here.
TEST(ConfigLexerTest, LongFilesComeToTheirEnd) {
  const auto repeated = [](std::string_view piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
  };
  constexpr int million = 1 << 20;
  const std::string texts[] = {
      repeated("#", million),
      repeated("\"\"", million),
      repeated("'\"", million) + "x",
      repeated("capitalizedafterunderscor", million / 16),
      "TABSIZE " + repeated("9", million),
      repeated("TABSIZE", million / 16),
  };
  for (const std::string& text : texts) {
    EXPECT_EQ(scan(text + "\n\"'\nLINE 7").ends_with("LINEWIDTH=7"), true) << text.substr(0, 20);
  }
}

TEST(ConfigLexerTest, RubbishIsPassedOver) {
  constexpr std::string_view pieces[] = {"\"", "'", "#",  "\n",   "A",    "TABSIZE", "7",
                                         "x",  " ", "\r", "LINE", "\xFF", "KEYWORD", "UPPERCASE"};
  std::mt19937 random(20);
  for (int round = 0; round < 300; ++round) {
    std::string bytes;
    std::string words;
    for (int i = 0; i < 200; ++i) {
      bytes += static_cast<char>(random());
      words += pieces[random() % std::size(pieces)];
    }
    scan(bytes);
    // Whatever stands in front, a closed quote and a key on a line of its own come through.
    const std::string found = scan(words + "\n'\"'\"\nINDENT 3\n");
    EXPECT_TRUE(found.ends_with("INDENTATION=3")) << words;
  }
}

}  // namespace
