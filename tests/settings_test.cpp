// What configuration makes of the settings, and where it is looked for.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
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
  SettingsTest() {
    VhdlScanner scanner;
    defaults = settingsOf(scanner);
  }
  ~SettingsTest() override {
    restoreStyles();
    unsetenv("QORNRC");
  }

  // The case styles belong to the process, not to a scanner.
  static void restoreStyles() {
    VhdlToken::setAttributeCase(C_UPPERCASE);
    VhdlToken::setHexCase(C_LOWERCASE);
    VhdlToken::setIdentCase(C_LOWERCASE);
    VhdlToken::setKeywordCase(C_UPPERCASE);
  }

  /** The settings that a scanner has after reading, as far as they differ from the defaults. */
  std::string changes(VhdlScanner& scanner) {
    std::string line;
    for (const auto& [name, value] : settingsOf(scanner)) {
      if (value != defaults[name]) line += (line.empty() ? "" : " ") + name + "=" + value;
    }
    return line;
  }

  std::string changesOf(const std::string& text) {
    restoreStyles();
    VhdlScanner scanner;
    EXPECT_EQ(scanner.ReadConfigFile(folder.write("config", text).c_str()), 0);
    return changes(scanner);
  }

  std::string changesWith(const char* searched) {
    (void)(searched == nullptr ? unsetenv("QORNRC") : setenv("QORNRC", searched, 1));
    VhdlScanner scanner;
    EXPECT_EQ(scanner.ReadConfigFile(nullptr), 0);
    return changes(scanner);
  }

  Settings defaults;
  TempFolder folder;
};

TEST_F(SettingsTest, EachKeyReachesItsSetting) {
  struct Case {
    const char* input;
    const char* expected;
  };
  const Case cases[] = {
      {"", ""},
      {"ATTRIBUTECASE LOWERCASE", "attributecase=LOWERCASE"},
      {"HEXDIGITS UPPERCASE", "hexcase=UPPERCASE"},
      {"IDENTIFIERCASE CAPITALIZED", "identcase=CAPITALIZED"},
      {"KEYWORDCASE CAPITALIZEAFTERUNDERSCORE", "keywordcase=CAPITALIZEAFTERUNDERSCORE"},
      {"BACKUPFILEEXTENSION '~'", "backupFileExtension=~"},
      {"BLOCKCOMMENTCHARACTERS '#'", "blockCommentCharacters=#"},
      {"COMMENTSTARTCOLUMN 41", ""},
      {"COMMENTSTARTCOLUMN 40", "commentColumn=39 commentStartColumn=39"},
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
  };
  for (const Case& row : cases) EXPECT_EQ(changesOf(row.input), row.expected) << row.input;
}

TEST_F(SettingsTest, ValuesOfOtherKindsCountAsZero) {
  struct Case {
    const char* input;
    const char* expected;
  };
  const Case cases[] = {
      {"KEYWORDCASE TRUE", "keywordcase=TRUE"},
      {"KEYWORDCASE 5", "keywordcase=0"},
      {"KEEPBACKUPFILE ALWAYS", "keepBackupFile=0"},
      {"TABIFY TRUE TABIFY 'TRUE'", ""},
      {"LINEWIDTH TRUE", "lineWidth=0"},
      {"TABSIZE '8'", "oldTabsize=0 tabSize=0"},
      {"COMMENTSTARTCOLUMN A", "commentColumn=-1 commentStartColumn=-1"},
      {"COMMENTSTARTCOLUMN 99999999999", "commentColumn=2147483646 commentStartColumn=2147483646"},
      {"BACKUPFILEEXTENSION TRUE", "backupFileExtension="},
  };
  for (const Case& row : cases) EXPECT_EQ(changesOf(row.input), row.expected) << row.input;
}

TEST_F(SettingsTest, LaterKeysWinUnlessTheyHaveNoValue) {
  EXPECT_EQ(changesOf("LINEWIDTH 60 LINEWIDTH 70"), "lineWidth=70");
  EXPECT_EQ(changesOf("BACKUPFILE '1' BACKUPFILE '2' BACKUPFILE"), "backupFileExtension=2");
  EXPECT_EQ(changesOf("STYLE B KEYWORDCASE LOWER TABSIZE 2 TABIFY TRUE LINE 9\n"
                      "STYLE KEYWORDCASE TABSIZE TABIFY LINE"),
            "keywordcase=LOWERCASE lineWidth=9 oldTabsize=2 style=B tabSize=2 tabify=1");
}

TEST_F(SettingsTest, SomeKeysHaveNoEffect) {
  const char* keys[] = {"INSERTEDKEYWORDCASE",
                        "MINIMUMFIELDWIDTH",
                        "VERBOSEINTERFACELIST",
                        "PARAMETERLIST",
                        "ARCHITECTUREHEADERFILENAME",
                        "CONFIGURATIONHEADERFILENAME",
                        "ENTITYHEADERFILENAME",
                        "FILEHEADERFILENAME",
                        "PACKAGEHEADERFILENAME",
                        "PACKAGEBODYHEADERFILENAME",
                        "PROCESSHEADERFILENAME",
                        "SUBPROGRAMHEADERFILENAME",
                        "PADWITHTABS",
                        "ERRORBELL"};
  for (const std::string key : keys) {
    EXPECT_EQ(changesOf(key + " 3 " + key + " TRUE " + key + " 'x'"), "") << key;
  }
}

TEST_F(SettingsTest, TheSearchReadsEveryFolderOfItsList) {
  folder.write("a/.qornrc", "LINEWIDTH 60 TABIFY TRUE INDENTATION");
  folder.write("b/.qornrc", "3 LINEWIDTH 70");  // the number belongs to the last key of a
  const std::string longName = std::string(200, 'x') + "/" + std::string(200, 'y');
  folder.write(longName + "/.qornrc", "IDENTLENGTH 9");
  const std::string a = folder.path("a");
  const std::string b = folder.path("b");
  const std::string deep = folder.path(longName);
  struct Case {
    std::string searched;
    const char* expected;
  };
  const Case cases[] = {
      {"", ""},
      {":::", ""},
      {folder.path(), ""},
      {a, "lineWidth=60 tabify=1"},
      {b, "lineWidth=70"},
      {":" + a + "::" + b + ":", "indentation=3 lineWidth=70 tabify=1"},
      {b + ":" + a, "lineWidth=60 tabify=1"},
      {folder.path("missing") + ":" + b, "lineWidth=70"},
      {deep, "identLength=9"},
  };
  for (const Case& row : cases) EXPECT_EQ(changesWith(row.searched.c_str()), row.expected);
}

TEST_F(SettingsTest, AMissingNamedFileIsTold) {
  const std::string missing = folder.path("missing");
  VhdlScanner scanner;
  testing::internal::CaptureStderr();
  EXPECT_EQ(scanner.ReadConfigFile(missing.c_str()), -1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error! qorn: " + missing + ": No such file or directory\n");
  EXPECT_EQ(changes(scanner), "");
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

TEST(ConfigurationDocumentTest, TellsEveryWord) {
  std::ifstream stream(QORN_SOURCE_DIR "/docs/configuration.md");
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  const char* forms[] = {
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) "`" form "`",
#define QORN_VALUE(name, form) "`" form "`",
#include "tokens/configcodes.def"
  };
  for (const char* form : forms) EXPECT_NE(text.find(form), std::string::npos) << form;
}

}  // namespace
