// What configuration makes of the settings, and where it is looked for.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "confignames.h"
#include "scannerprobe.h"
#include "tempfolder.h"

namespace {

using Settings = std::map<std::string, std::string>;

Settings settingsOf(VhdlScanner& scanner) {
  Settings settings;
  for (const auto& [name, member] : ScannerProbe::numbers) {
    settings[name] = codeName(scanner.*member);
  }
  settings["attributecase"] = codeName(VhdlToken::getAttributeCase());
  settings["hexcase"] = codeName(VhdlToken::getHexCase());
  settings["identcase"] = codeName(VhdlToken::getIdentCase());
  settings["keywordcase"] = codeName(VhdlToken::getKeywordCase());
  settings["backupFileExtension"] = ScannerProbe::backupFileExtension(scanner);
  settings["blockCommentCharacters"] = ScannerProbe::blockCommentCharacters(scanner);
  return settings;
}

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() : defaults(settingsOf(*std::make_unique<VhdlScanner>())) {}
  ~SettingsTest() override { setDefaultCases(); }

  /** The settings that a scanner has after reading, as far as they differ from the defaults. */
  std::string changes(VhdlScanner& scanner) {
    std::string line;
    for (const auto& [name, value] : settingsOf(scanner)) {
      if (value != defaults[name]) line += (line.empty() ? "" : " ") + name + "=" + value;
    }
    return line;
  }

  /** What a file changes, or with null the search. */
  std::string changesBy(const char* file) {
    setDefaultCases();
    VhdlScanner scanner;
    EXPECT_EQ(scanner.ReadConfigFile(file), 0);
    return changes(scanner);
  }

  Settings defaults;
  TempFolder folder;
};

TEST_F(SettingsTest, EachKeyReachesItsSetting) {
  const struct {
    const char* input;
    const char* expected;
  } cases[] = {
      {"", ""},
      {"ATTRIBUTECASE LOWERCASE", "attributecase=LOWERCASE"},
      {"HEXDIGITS UPPERCASE", "hexcase=UPPERCASE"},
      {"IDENTIFIERCASE CAPITALIZED", "identcase=CAPITALIZED"},
      {"KEYWORDCASE CAPITALIZEAFTERUNDERSCORE", "keywordcase=CAPITALIZEAFTERUNDERSCORE"},
      {"BACKUPFILEEXTENSION '~'", "backupFileExtension=~"},
      {"BLOCKCOMMENTCHARACTERS '#'", "blockCommentCharacters=#"},
      {"COMMENTSTARTCOLUMN 40 COMMENTSTARTCOLUMN", "commentColumn=39 commentStartColumn=39"},
      {"IDENTLENGTH 30", "identLength=30"},
      {"INDENTATION 2", "indentation=2"},
      {"LINEWIDTH 100", "lineWidth=100"},
      {"TABSIZE 8 4", "oldTabsize=8 tabSize=8"},
      {"ASSOCIATIONLIST LIST", "associationList=LIST"},
      {"INTERFACEIDENTIFIERLIST VERBOSE", "interfaceIdentifierList=VERBOSE"},
      {"STYLE B", "style=B"},
      {"EXTENDCOMMENTS FALSE", "extendComments=0"},
      {"FRAMEBLOCKCOMMENTS TRUE", "frameBlockComments=1"},
      {"KEEPBACKUPFILE FALSE", "keepBackupFile=0"},
      {"TABIFY TRUE", "tabify=1"},
      // Values of another kind count as zero.
      {"KEYWORDCASE 5", "keywordcase=0"},
      {"KEEPBACKUPFILE ALWAYS", "keepBackupFile=0"},
      {"TABIFY TRUE TABIFY 'TRUE'", ""},
      {"LINEWIDTH TRUE", "lineWidth=0"},
      {"COMMENTSTARTCOLUMN A", "commentColumn=-1 commentStartColumn=-1"},
      {"COMMENTSTARTCOLUMN 99999999999", "commentColumn=2147483646 commentStartColumn=2147483646"},
      {"BACKUPFILEEXTENSION TRUE", "backupFileExtension="},
      // Later keys win, unless they have no value.
      {"BACKUPFILE '1' BACKUPFILE '2' BACKUPFILE", "backupFileExtension=2"},
      {"STYLE B KEYWORDCASE LOWER TABSIZE 3 TABSIZE 2 TABIFY TRUE STYLE KEYWORDCASE TABSIZE TABIFY",
       "keywordcase=LOWERCASE oldTabsize=2 style=B tabSize=2 tabify=1"},
      // These keys have no effect.
      {"INSERTEDKEYWORDCASE TRUE MINIMUMFIELDWIDTH 3 VERBOSEINTERFACELIST TRUE PARAMETERLIST LIST "
       "FILEHEADERFILENAME 'x' PACKAGEHEADERFILENAME 'x' PADWITHTABS TRUE ERRORBELL TRUE",
       ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(changesBy(folder.write("rc", row.input).c_str()), row.expected) << row.input;
  }
}

TEST_F(SettingsTest, TheSearchReadsEveryFolderOfItsList) {
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
      {":" + a + "::" + b + ":", "indentation=3 lineWidth=70 tabify=1"},
      {b + ":" + a, "lineWidth=60 tabify=1"},
      {folder.path("missing") + ":" + b, "lineWidth=70"},
      {folder.path(longName), "identLength=9"},
  };
  for (const auto& row : cases) {
    setenv("QORNRC", row.searched.c_str(), 1);
    EXPECT_EQ(changesBy(nullptr), row.expected) << row.searched;
  }
}

TEST_F(SettingsTest, TheExampleSpellsOutTheDefaults) {
  const std::string example = QORN_SOURCE_DIR "/examples/qornrc";
  // Other values first, so that a key that the example lacks shows.
  folder.write("changed",
               "ATTRIBUTECASE ASIS HEXDIGITS ASIS IDENTIFIERCASE ASIS KEYWORDCASE ASIS STYLE B "
               "BACKUPFILE 'x' BLOCKCOMMENT 'x' COMMENTSTART 1 IDENTLENGTH 1 INDENTATION 1 "
               "LINEWIDTH 1 TABSIZE 1 ASSOCIATION LIST INTERFACEIDENTIFIER LIST EXTEND FALSE "
               "FRAME TRUE KEEPBACKUP FALSE TABIFY TRUE");
  VhdlScanner scanner;
  ASSERT_EQ(scanner.ReadConfigFile(folder.path("changed").c_str()), 0);
  ASSERT_NE(changes(scanner), "");
  ASSERT_EQ(scanner.ReadConfigFile(example.c_str()), 0);
  EXPECT_EQ(changes(scanner), "");
}

}  // namespace
