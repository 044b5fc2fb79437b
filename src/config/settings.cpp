// From keys to settings. All files are read first; then one walk over their keys writes the values,
// so that several files behave like one long one. No value is range-checked.
#include "config/settings.h"

#include <algorithm>

#include "config/configlexer.h"
#include "config/configtoken.h"

namespace {

constexpr int firstColumn = -1;  // files count columns from 1

constexpr int caseStyles[] = {C_UPPERCASE, C_LOWERCASE, C_CAPITALIZED, C_CAPITALIZEAFTERUNDERSCORE,
                              C_ASIS};
constexpr int styles[] = {C_A, C_B};
constexpr int listFormats[] = {C_WRAPPED, C_LIST, C_VERBOSE};
constexpr int blockFormats[] = {C_WRAPPED, C_LIST};
constexpr int editions[] = {1993, 2008, 2019};
constexpr int truthValues[] = {C_TRUE, C_FALSE};

constexpr Setting cased(int key, CaseGroup group, const char* help) {
  return {.key = key, .kind = SETTING_CASE, .group = group, .choices = caseStyles, .help = help};
}

constexpr Setting word(int key, int Settings::*member, std::span<const int> choices,
                       const char* help) {
  return {.key = key, .kind = SETTING_WORD, .number = member, .choices = choices, .help = help};
}

constexpr Setting number(int key, int Settings::*member, int least, int most, const char* help) {
  return {.key = key,
          .kind = SETTING_INTEGER,
          .number = member,
          .least = least,
          .most = most,
          .help = help};
}

constexpr Setting chosen(int key, int Settings::*member, std::span<const int> numbers,
                         const char* help) {
  return {.key = key, .kind = SETTING_INTEGER, .number = member, .choices = numbers, .help = help};
}

constexpr Setting truth(int key, int Settings::*member, const char* help) {
  return {
      .key = key, .kind = SETTING_BOOLEAN, .number = member, .choices = truthValues, .help = help};
}

constexpr Setting quoted(int key, DynString Settings::*text, const char* help) {
  return {.key = key, .kind = SETTING_STRING, .text = text, .help = help};
}

constexpr Setting withTwin(Setting setting, int Settings::*twin) {
  setting.twin = twin;
  return setting;
}

constexpr Setting shifted(Setting setting, int added) {
  setting.added = added;
  return setting;
}

constexpr Setting none(int key) { return {.key = key}; }

// Rows are in the order in which they are shown to people.
// clang-format off
constexpr Setting table[] = {
    cased(C_KEYWORDCASE,    CASE_KEYWORD,    "letter case of reserved words"),
    cased(C_IDENTIFIERCASE, CASE_IDENTIFIER, "letter case of names"),
    cased(C_ATTRIBUTECASE,  CASE_ATTRIBUTE,  "letter case of predefined attributes"),
    cased(C_HEXDIGITS,      CASE_NUMBER,     "letter case in numbers and bit strings"),
    word(C_STYLE,           &Settings::style, styles,
         "B gives opening parentheses lines of their own"),
    number(C_INDENTATION,   &Settings::indentation, 1, 16, "columns of one step"),
    number(C_LINEWIDTH,     &Settings::lineWidth, 20, 10000,
           "columns of a line; longer lines are wrapped"),
    word(C_INTERFACEIDENTIFIERLIST, &Settings::interfaceIdentifierList, listFormats,
         "entries of port and generic clauses: WRAPPED gives each a line"),
    word(C_ASSOCIATIONLIST, &Settings::associationList, listFormats,
         "entries of port and generic maps: WRAPPED gives each a line"),
    number(C_IDENTLENGTH,   &Settings::identLength, 1, 1000,
           "names of this length and more are left out of alignment"),
    chosen(C_VHDL,          &Settings::vhdl, editions,
           "edition of the language; from 2008 on its constructs"),
    word(C_BLOCKHEADER,     &Settings::blockHeader, blockFormats,
         "head of a block: WRAPPED gives its clauses and declarations lines of their own"),
    shifted(number(C_COMMENTSTARTCOLUMN, &Settings::commentStartColumn, 1, 10000,
                   "column of comments after code, counted from 1"), firstColumn),
    truth(C_EXTENDCOMMENTS, &Settings::extendComments,
          "draw comment lines that end in frame characters out to the margin"),
    truth(C_FRAMEBLOCKCOMMENTS, &Settings::frameBlockComments,
          "set a closing pair of frame characters after words at the margin"),
    quoted(C_BLOCKCOMMENTCHARACTERS, &Settings::blockCommentCharacters,
           "characters that make frames"),
    withTwin(number(C_TABSIZE, &Settings::tabSize, 1, 16,
                    "columns between tab stops, in the input and in the output"),
             &Settings::oldTabsize),
    truth(C_TABIFY,         &Settings::tabify, "write tabs for runs of blanks"),
    truth(C_KEEPBACKUPFILE, &Settings::keepBackupFile, "qorn keeps the old text of a file"),
    quoted(C_BACKUPFILEEXTENSION, &Settings::backupFileExtension,
           "what qorn puts after the name of a backup"),
    none(C_ARCHITECTUREHEADERFILENAME),
    none(C_CONFIGURATIONHEADERFILENAME),
    none(C_ENTITYHEADERFILENAME),
    none(C_ERRORBELL),
    none(C_FILEHEADERFILENAME),
    none(C_INSERTEDKEYWORDCASE),
    none(C_MINIMUMFIELDWIDTH),
    none(C_PACKAGEBODYHEADERFILENAME),
    none(C_PACKAGEHEADERFILENAME),
    none(C_PADWITHTABS),
    none(C_PARAMETERLIST),
    none(C_PROCESSHEADERFILENAME),
    none(C_SUBPROGRAMHEADERFILENAME),
    none(C_VERBOSEINTERFACELIST),
};
// clang-format on

#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) \
  static_assert(std::ranges::count(table, name, &Setting::key) == 1, form " has no row");
#define QORN_VALUE(name, form)
#include "tokens/configcodes.def"

void applyNumber(const Setting& setting, const QornConfigToken& key, Settings& settings) {
  int value = settings.*setting.number - setting.added;
  switch (setting.kind) {
    case SETTING_INTEGER: key.setIntegerVariable(&value); break;
    case SETTING_BOOLEAN: key.setTrueFalse(&value); break;
    default: key.setCaseType(&value);
  }
  settings.*setting.number = value + setting.added;
  if (setting.twin != nullptr) settings.*setting.twin = settings.*setting.number;
}

void applySetting(const Setting& setting, const QornConfigToken& key, Settings& settings) {
  if (setting.kind == SETTING_CASE) {
    int style = settings.caseStyles.ofGroup(setting.group);
    key.setCaseType(&style);
    settings.caseStyles.setGroup(setting.group, style);
  } else if (setting.kind == SETTING_STRING) {
    key.setString(&(settings.*setting.text));
  } else if (setting.kind != SETTING_NONE) {
    applyNumber(setting, key, settings);
  }
}

}  // namespace

std::span<const Setting> settingTable() { return table; }

const Setting& settingOf(int key) { return *std::ranges::find(table, key, &Setting::key); }

void setConfigVariables(ConfigList& keys, Settings& settings) {
  for (const auto* key = keys.getFirst(); key != nullptr; key = keys.getNext()) {
    applySetting(settingOf(key->getTyp()), *key, settings);
  }
}

Settings makeSettings(std::span<const std::string_view> configurations) {
  ConfigList keys;
  for (const std::string_view text : configurations) xxlex(text, keys);
  Settings settings;
  setConfigVariables(keys, settings);
  return settings;
}
