// What is said about configurations, and what the settings in force look like.
#include "fmt/settingcheck.h"

#include <gtest/gtest.h>

#include "config/settings.h"

namespace {

struct Case {
  const char* name;
  std::string text;
  std::string expected;  // complaints, a line each
};

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

TEST(SettingCheckTest, WhatHasNoEffectIsReported) {
  const std::string styles =
      "KEYWORDCASE takes UPPERCASE, LOWERCASE, CAPITALIZED, CAPITALIZEAFTERUNDERSCORE or ASIS";
  const Case cases[] = {
      {"nothing", "", ""},
      {"all is well",
       "\xEF\xBB\xBFKEYWORD = lower;  INDENT: 2 # IDENTCASE, it's \"\r\nTABSIZE8\r\n"
       "BACKUPFILE '\"', LINE 100 # the end\n",
       ""},
      {"a misspelt key", "INDENT 2\nIDENTCASE LOWER",
       "rc:2: IDENTCASE: no such key; IDENTIFIERCASE?"},
      {"a key in a longer word", "LINEWIDTHS 100",
       "rc:1: LINEWIDTHS: no such key (read as LINEWIDTH)"},
      {"swapped letters", "LINEWIDHT 9",
       "rc:1: LINEWIDHT: no such key (read as LINEWIDTH)\n"
       "rc:1: 9: LINEWIDTH takes a number from 20 to 10000"},
      {"a misspelt value", "KEYWORDCASE uper", "rc:1: uper: no such value; UPPER?"},
      {"its letter counts", "KEYWORDCASE capital",
       "rc:1: capital: no such value; CAPITALIZE? (read as A)"},
      {"a value in a longer word", "KEEPBACKUP untrue",
       "rc:1: untrue: no such value (read as TRUE)"},
      {"nothing near", "TABIFY yes", "rc:1: yes: no such value; TABIFY takes TRUE or FALSE"},
      {"a key in two words", "ATTRIBUTE CASE UPPER STYLE B",
       "rc:1: CASE: no such value; ATTRIBUTECASE takes UPPERCASE, LOWERCASE, CAPITALIZED, "
       "CAPITALIZEAFTERUNDERSCORE or ASIS (read as A)\n"
       "rc:1: UPPER: dropped, ATTRIBUTECASE has the value A"},
      {"another language", "// INDENT 2\n[*]",
       "rc:1: //: a comment starts with #\nrc:2: [*]: without effect"},
      {"values of the wrong kind", "KEYWORDCASE TRUE TABIFY 1\nINDENT LOWER BACKUPFILE B",
       "rc:1: TRUE: " + styles +
           "\nrc:1: 1: TABIFY takes TRUE or FALSE\n"
           "rc:2: LOWER: INDENTATION takes a number from 1 to 16\n"
           "rc:2: B: BACKUPFILEEXTENSION takes a text in quotes"},
      {"a word without meaning", "KEEPBACKUP ALWAYS",
       "rc:1: ALWAYS: KEEPBACKUPFILE takes TRUE or FALSE"},
      {"numbers out of reason", "LINEWIDTH 0 IDENTLENGTH 1000000\nTABSIZE 99999999999999",
       "rc:1: 0: LINEWIDTH takes a number from 20 to 10000\n"
       "rc:1: 1000000: IDENTLENGTH takes a number from 1 to 1000\n"
       "rc:2: 99999999999999: TABSIZE takes a number from 1 to 16"},
      {"not a whole number", "INDENT -2 TABSIZE 4.5",
       "rc:1: -2: not a whole number (read as 2)\nrc:1: 4.5: not a whole number (read as 4)"},
      {"a second value", "TABSIZE 8 4 FALSE",
       "rc:1: 4: dropped, TABSIZE has the value 8\nrc:1: FALSE: dropped, TABSIZE has the value 8"},
      {"a number where a word was meant", "VHDL2008 FALSE\nBLOCKHEADER VERBOSE",
       "rc:1: FALSE: dropped, VHDL has the value 2008\n"
       "rc:2: VERBOSE: BLOCKHEADER takes WRAPPED or LIST"},
      {"no such edition", "VHDL 2001", "rc:1: 2001: VHDL takes 1993, 2008 or 2019"},
      {"a value without a key", "4 TABSIZE 8", "rc:1: 4: is before the first key"},
      {"no value", "LINEWIDTH\nTABSIZE 8", "rc:1: LINEWIDTH: no value"},
      {"a key twice", "INDENT 2\nINDENTATION 3\nINDENT",
       "rc:1: INDENTATION: set again in line 2\nrc:3: INDENTATION: no value"},
      {"a key without effect takes the value", "LINE ERROR 100 80",
       "rc:1: LINEWIDTH: no value\nrc:1: ERRORBELL: a key without effect"},
      {"no empty text", "BACKUPFILE \"\"", "rc:1: \": no quote closes the text, or it is empty"},
      {"a quote is missing", "BACKUPFILE '.old\nBLOCKCOMMENT '-='\n",
       "rc:1: '.old?BLOCKCOMMENT ': a text over several lines; is a quote missing?\n"
       "rc:2: -: without effect\nrc:2: ': no quote closes the text, or it is empty"},
      {"a comment that never ends", "INDENT 2\n# LINEWIDTH 100 wide",
       "rc:2: a comment needs a line end after it; this one is read as LINEWIDTH 100"},
      {"a comment that never ends and says nothing", "INDENT 2\n# two steps", ""},
  };
  for (const Case& row : cases) {
    const ConfigText file{"rc", row.text};
    EXPECT_EQ(joined(checkSettings({&file, 1}).complaints), row.expected) << row.name;
  }
  const ConfigText endless{"rc", std::string(1 << 20, '-')};
  EXPECT_EQ(checkSettings({&endless, 1}).complaints.size(), 1U);
  std::string words;
  for (int i = 0; i < 99; ++i) words += "foo\n";
  const ConfigText foreign{"rc", words};
  EXPECT_EQ(checkSettings({&foreign, 1}).complaints.back(), "rc:51: 49 further complaints");
}

TEST(SettingCheckTest, SettingsAreShownWithTheirOrigins) {
  const ConfigText files[] = {
      {"a/.qornrc",
       "KEYWORDCASE 5 STYLE\nINDENT 2\nBACKUPFILE '\"'\nLINEWIDTH TRUE COMMENTSTART 9"
       "\nTABSIZE"},
      {"b/.qornrc", "3\nINDENT 4 TABIFY 'x'\nBLOCKCOMMENT 1 STYLE"},
  };
  const std::string_view texts[] = {files[0].text, files[1].text};
  const SettingCheck check = checkSettings(files);
  EXPECT_EQ(settingsText(makeSettings(texts), check.origins),
            "KEYWORDCASE             0           # a/.qornrc:1\n"
            "IDENTIFIERCASE          LOWERCASE   # default\n"
            "ATTRIBUTECASE           UPPERCASE   # default\n"
            "HEXDIGITS               LOWERCASE   # default\n"
            "STYLE                   A           # default\n"
            "INDENTATION             4           # b/.qornrc:2\n"
            "LINEWIDTH               0           # a/.qornrc:4\n"
            "INTERFACEIDENTIFIERLIST WRAPPED     # default\n"
            "ASSOCIATIONLIST         WRAPPED     # default\n"
            "IDENTLENGTH             20          # default\n"
            "VHDL                    1993        # default\n"
            "BLOCKHEADER             LIST        # default\n"
            "COMMENTSTARTCOLUMN      9           # a/.qornrc:4\n"
            "EXTENDCOMMENTS          TRUE        # default\n"
            "FRAMEBLOCKCOMMENTS      FALSE       # default\n"
            "BLOCKCOMMENTCHARACTERS  0           # b/.qornrc:3\n"
            "TABSIZE                 3           # a/.qornrc:5\n"
            "TABIFY                  FALSE       # b/.qornrc:2\n"
            "KEEPBACKUPFILE          TRUE        # default\n"
            "BACKUPFILEEXTENSION     '\"'         # a/.qornrc:3\n");
  EXPECT_EQ(joined(check.complaints).find("INDENTATION: set again"), std::string::npos)
      << "files may overrule each other";
  EXPECT_NE(
      joined(check.complaints).find("b/.qornrc:1: 3: belongs to a key of an earlier file, TABSIZE"),
      std::string::npos);
}

}  // namespace
