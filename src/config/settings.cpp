// From keys to settings. All files are read first; then one walk over their keys writes the values,
// so that several files behave like one long one. No value is tested against a range.
#include "config/settings.h"

#include <algorithm>

#include "config/configlexer.h"
#include "config/configtoken.h"

namespace {

constexpr int firstColumn = -1;  // files count columns from 1

constexpr Setting caseStyle(int key, CaseGroup group) {
  return {.key = key, .kind = SETTING_CASE, .group = group};
}

constexpr Setting quoted(int key, DynString Settings::*text) {
  return {.key = key, .kind = SETTING_STRING, .text = text};
}

constexpr Setting none(int key) { return {.key = key}; }

// clang-format off
constexpr Setting table[] = {
    caseStyle(C_ATTRIBUTECASE,  CASE_ATTRIBUTE),
    caseStyle(C_HEXDIGITS,      CASE_NUMBER),
    caseStyle(C_IDENTIFIERCASE, CASE_IDENTIFIER),
    caseStyle(C_KEYWORDCASE,    CASE_KEYWORD),
    quoted(C_BACKUPFILEEXTENSION,    &Settings::backupFileExtension),
    quoted(C_BLOCKCOMMENTCHARACTERS, &Settings::blockCommentCharacters),
    {C_COMMENTSTARTCOLUMN,      SETTING_INTEGER, &Settings::commentStartColumn, nullptr, firstColumn},
    {C_IDENTLENGTH,             SETTING_INTEGER, &Settings::identLength},
    {C_INDENTATION,             SETTING_INTEGER, &Settings::indentation},
    {C_LINEWIDTH,               SETTING_INTEGER, &Settings::lineWidth},
    {C_TABSIZE,                 SETTING_INTEGER, &Settings::tabSize, &Settings::oldTabsize},
    {C_ASSOCIATIONLIST,         SETTING_WORD,    &Settings::associationList},
    {C_INTERFACEIDENTIFIERLIST, SETTING_WORD,    &Settings::interfaceIdentifierList},
    {C_STYLE,                   SETTING_WORD,    &Settings::style},
    {C_EXTENDCOMMENTS,          SETTING_BOOLEAN, &Settings::extendComments},
    {C_FRAMEBLOCKCOMMENTS,      SETTING_BOOLEAN, &Settings::frameBlockComments},
    {C_KEEPBACKUPFILE,          SETTING_BOOLEAN, &Settings::keepBackupFile},
    {C_TABIFY,                  SETTING_BOOLEAN, &Settings::tabify},
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

void setConfigVariables(OldList& keys, Settings& settings) {
  for (auto* item = keys.getFirst(); item != nullptr; item = keys.getNext()) {
    const auto& key = static_cast<const QornConfigToken&>(*item);
    applySetting(settingOf(key.getTyp()), key, settings);
  }
}

Settings makeSettings(std::span<const std::string_view> configurations) {
  OldList keys;
  for (const std::string_view text : configurations) xxlex(text, keys);
  Settings settings;
  setConfigVariables(keys, settings);
  return settings;
}
