// What configuration makes of the settings, and where it is looked for.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

#include "config/configfiles.h"
#include "config/settings.h"
#include "confignames.h"
#include "tempfolder.h"

namespace {

/** The value of each key, and the tab size of the input, which shares one. */
std::map<std::string, std::string> valuesOf(const Settings& settings) {
  std::map<std::string, std::string> values;
  for (const Setting& row : settingTable()) {
    std::string& value = values[codeName(row.key)];
    if (row.kind == SETTING_CASE) value = codeName(settings.caseStyles.ofGroup(row.group));
    if (row.number != nullptr) value = codeName(settings.*row.number);
    if (row.text != nullptr) value = (settings.*row.text).get();
  }
  values["oldTabsize"] = codeName(settings.oldTabsize);
  return values;
}

/** The settings as far as they differ from the defaults. */
std::string changes(const Settings& settings) {
  std::map<std::string, std::string> defaults = valuesOf(Settings());
  std::string line;
  for (const auto& [name, value] : valuesOf(settings)) {
    if (value != defaults[name]) line += (line.empty() ? "" : " ") + name + "=" + value;
  }
  return line;
}

/** What a text changes. */
std::string changesBy(std::string_view text) { return changes(makeSettings({&text, 1})); }

TEST(SettingsTest, EachKeyReachesItsSetting) {
  const struct {
    const char* input;
    const char* expected;
  } cases[] = {
      {"", ""},
      {"ATTRIBUTECASE LOWERCASE", "ATTRIBUTECASE=LOWERCASE"},
      {"HEXDIGITS UPPERCASE", "HEXDIGITS=UPPERCASE"},
      {"IDENTIFIERCASE CAPITALIZED", "IDENTIFIERCASE=CAPITALIZED"},
      {"KEYWORDCASE CAPITALIZEAFTERUNDERSCORE", "KEYWORDCASE=CAPITALIZEAFTERUNDERSCORE"},
      {"BACKUPFILEEXTENSION '~'", "BACKUPFILEEXTENSION=~"},
      {"BLOCKCOMMENTCHARACTERS '#'", "BLOCKCOMMENTCHARACTERS=#"},
      {"COMMENTSTARTCOLUMN 40 COMMENTSTARTCOLUMN", "COMMENTSTARTCOLUMN=39"},
      {"IDENTLENGTH 30", "IDENTLENGTH=30"},
      {"INDENTATION 2", "INDENTATION=2"},
      {"LINEWIDTH 100", "LINEWIDTH=100"},
      {"TABSIZE 8 4", "TABSIZE=8 oldTabsize=8"},
      {"VHDL2008 FALSE", "VHDL=2008"},  // a second value is dropped
      {"BLOCKHEADER WRAPPED", "BLOCKHEADER=WRAPPED"},
      {"ASSOCIATIONLIST LIST", "ASSOCIATIONLIST=LIST"},
      {"INTERFACEIDENTIFIERLIST VERBOSE", "INTERFACEIDENTIFIERLIST=VERBOSE"},
      {"STYLE B", "STYLE=B"},
      {"EXTENDCOMMENTS FALSE", "EXTENDCOMMENTS=0"},
      {"FRAMEBLOCKCOMMENTS TRUE", "FRAMEBLOCKCOMMENTS=1"},
      {"KEEPBACKUPFILE FALSE", "KEEPBACKUPFILE=0"},
      {"TABIFY TRUE", "TABIFY=1"},
      // Values of another kind count as zero.
      {"KEYWORDCASE 5", "KEYWORDCASE=0"},
      {"KEEPBACKUPFILE ALWAYS", "KEEPBACKUPFILE=0"},
      {"TABIFY TRUE TABIFY 'TRUE'", ""},
      {"LINEWIDTH TRUE", "LINEWIDTH=0"},
      {"COMMENTSTARTCOLUMN A", "COMMENTSTARTCOLUMN=-1"},
      {"COMMENTSTARTCOLUMN 99999999999", "COMMENTSTARTCOLUMN=2147483646"},
      {"BACKUPFILEEXTENSION TRUE", "BACKUPFILEEXTENSION="},
      // Later keys win, unless they have no value.
      {"BACKUPFILE '1' BACKUPFILE '2' BACKUPFILE", "BACKUPFILEEXTENSION=2"},
      {"STYLE B KEYWORDCASE LOWER TABSIZE 3 TABSIZE 2 TABIFY TRUE STYLE KEYWORDCASE TABSIZE TABIFY",
       "KEYWORDCASE=LOWERCASE STYLE=B TABIFY=1 TABSIZE=2 oldTabsize=2"},
      // These keys have no effect.
      {"INSERTEDKEYWORDCASE TRUE MINIMUMFIELDWIDTH 3 VERBOSEINTERFACELIST TRUE PARAMETERLIST LIST "
       "FILEHEADERFILENAME 'x' PACKAGEHEADERFILENAME 'x' PADWITHTABS TRUE ERRORBELL TRUE",
       ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(changesBy(row.input), row.expected) << row.input;
  }
}

TEST(SettingsTest, TheSearchReadsEveryFolderOfItsList) {
  const TempFolder folder;
  folder.write("a/.qornrc", "LINEWIDTH 60 TABIFY TRUE INDENTATION");
  folder.write("b/.qornrc", "3 LINEWIDTH 70");  // the number belongs to the last key of a
  const std::string longName = std::string(200, 'x') + "/" + std::string(200, 'y');
  folder.write(longName + "/.qornrc", "IDENTLENGTH 9");
  const std::string a = folder.path("a");
  const std::string b = folder.path("b");
  const struct {
    std::string searched;
    const char* expected;
  } cases[] = {
      {"", ""},
      {":::", ""},
      {folder.path(), ""},
      {":" + a + "::" + b + ":", "INDENTATION=3 LINEWIDTH=70 TABIFY=1"},
      {b + ":" + a, "LINEWIDTH=60 TABIFY=1"},
      {folder.path("missing") + ":" + b, "LINEWIDTH=70"},
      {folder.path(longName), "IDENTLENGTH=9"},
  };
  for (const auto& row : cases) {
    setenv("QORNRC", row.searched.c_str(), 1);
    Settings settings;
    EXPECT_EQ(ReadConfigFile(nullptr, settings), 0);
    EXPECT_EQ(changes(settings), row.expected) << row.searched;
  }
}

TEST(SettingsTest, TheExampleSpellsOutTheDefaults) {
  const std::string example = QORN_SOURCE_DIR "/examples/qornrc";
  const TempFolder folder;
  // Other values first, so that a key that the example lacks shows.
  folder.write("changed",
               "ATTRIBUTECASE ASIS HEXDIGITS ASIS IDENTIFIERCASE ASIS KEYWORDCASE ASIS STYLE B "
               "BACKUPFILE 'x' BLOCKCOMMENT 'x' COMMENTSTART 1 IDENTLENGTH 1 INDENTATION 1 "
               "LINEWIDTH 1 TABSIZE 1 ASSOCIATION LIST INTERFACEIDENTIFIER LIST EXTEND FALSE "
               "FRAME TRUE KEEPBACKUP FALSE TABIFY TRUE");
  Settings settings;
  ASSERT_EQ(ReadConfigFile(folder.path("changed").c_str(), settings), 0);
  ASSERT_NE(changes(settings), "");
  ASSERT_EQ(ReadConfigFile(example.c_str(), settings), 0);
  EXPECT_EQ(changes(settings), "");
}

}  // namespace
