// From keys to settings. All files are read first; then one walk over their keys writes the values,
// so that several files behave like one long one. One table says what each key sets. No value is
// tested against a range.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/stringlist.h"
#include "config/configlexer.h"
#include "config/configtoken.h"
#include "scanner/vhdlscanner.h"

/** A key and what it sets: a member by way of a transfer, a text or a case style. A key alone is
   one that files may hold and nothing reads. */
struct VhdlScanner::Setting {
  using Transfer = void (QornConfigToken::*)(int*) const;

  constexpr explicit Setting(int code) : key(code) {}
  constexpr Setting(int code, Transfer kind, int VhdlScanner::*member,
                    int VhdlScanner::*other = nullptr, int difference = 0)
      : key(code), transfer(kind), number(member), twin(other), added(difference) {}
  constexpr Setting(int code, const char* VhdlScanner::*member) : key(code), text(member) {}
  constexpr Setting(int code, int (*get)(), void (*set)(int))
      : key(code), getStyle(get), setStyle(set) {}

  int key;
  Transfer transfer = nullptr;
  int VhdlScanner::*number = nullptr;
  int VhdlScanner::*twin = nullptr;  // takes the same value
  int added = 0;                     // to the configured value
  const char* VhdlScanner::*text = nullptr;
  int (*getStyle)() = nullptr;
  void (*setStyle)(int) = nullptr;

  static const Setting table[];
};

namespace {

constexpr auto asWord = &QornConfigToken::setCaseType;
constexpr auto asListFormat = &QornConfigToken::setListFormat;
constexpr auto asNumber = &QornConfigToken::setIntegerVariable;
constexpr auto asBoolean = &QornConfigToken::setTrueFalse;

constexpr int firstColumn = -1;  // files count columns from 1

}  // namespace

// clang-format off
constexpr VhdlScanner::Setting VhdlScanner::Setting::table[] = {
    {C_ATTRIBUTECASE,           VhdlToken::getAttributeCase, VhdlToken::setAttributeCase},
    {C_HEXDIGITS,               VhdlToken::getHexCase,       VhdlToken::setHexCase},
    {C_IDENTIFIERCASE,          VhdlToken::getIdentCase,     VhdlToken::setIdentCase},
    {C_KEYWORDCASE,             VhdlToken::getKeywordCase,   VhdlToken::setKeywordCase},
    {C_BACKUPFILEEXTENSION,     &VhdlScanner::backupFileExtension},
    {C_BLOCKCOMMENTCHARACTERS,  &VhdlScanner::blockCommentCharacters},
    {C_COMMENTSTARTCOLUMN,      asNumber,     &VhdlScanner::commentStartColumn,
                                              &VhdlScanner::commentColumn, firstColumn},
    {C_IDENTLENGTH,             asNumber,     &VhdlScanner::identLength},
    {C_INDENTATION,             asNumber,     &VhdlScanner::indentation},
    {C_LINEWIDTH,               asNumber,     &VhdlScanner::lineWidth},
    {C_TABSIZE,                 asNumber,     &VhdlScanner::tabSize, &VhdlScanner::oldTabsize},
    {C_ASSOCIATIONLIST,         asListFormat, &VhdlScanner::associationList},
    {C_INTERFACEIDENTIFIERLIST, asListFormat, &VhdlScanner::interfaceIdentifierList},
    {C_STYLE,                   asWord,       &VhdlScanner::style},
    {C_EXTENDCOMMENTS,          asBoolean,    &VhdlScanner::extendComments},
    {C_FRAMEBLOCKCOMMENTS,      asBoolean,    &VhdlScanner::frameBlockComments},
    {C_KEEPBACKUPFILE,          asBoolean,    &VhdlScanner::keepBackupFile},
    {C_TABIFY,                  asBoolean,    &VhdlScanner::tabify},
    Setting(C_ARCHITECTUREHEADERFILENAME),
    Setting(C_CONFIGURATIONHEADERFILENAME),
    Setting(C_ENTITYHEADERFILENAME),
    Setting(C_ERRORBELL),
    Setting(C_FILEHEADERFILENAME),
    Setting(C_INSERTEDKEYWORDCASE),
    Setting(C_MINIMUMFIELDWIDTH),
    Setting(C_PACKAGEBODYHEADERFILENAME),
    Setting(C_PACKAGEHEADERFILENAME),
    Setting(C_PADWITHTABS),
    Setting(C_PARAMETERLIST),
    Setting(C_PROCESSHEADERFILENAME),
    Setting(C_SUBPROGRAMHEADERFILENAME),
    Setting(C_VERBOSEINTERFACELIST),
};
// clang-format on

int VhdlScanner::ReadConfigFile(const char* path) {
  if (path != nullptr) {
    if (scanConfigFile(path) != 0) {
      std::fprintf(stderr, "Error! qorn: %s: %s\n", path, std::strerror(errno));
      return -1;
    }
    setConfigVariables();
    return 0;
  }
  const char* searched = std::getenv("QORNRC");
  StringList directories;
  directories.Split(searched == nullptr ? "." : searched, ':');
  const char* directory = directories.getFirstString();
  for (; directory != nullptr; directory = directories.getNextString()) {
    DynString file(directory);
    file.cat("/.qornrc");
    (void)scanConfigFile(file.get());  // a directory need not hold one
  }
  setConfigVariables();
  return 0;
}

int VhdlScanner::scanConfigFile(const char* path) {
  FILE* stream = std::fopen(path, "r");
  if (stream == nullptr) return -1;
  xxin = stream;
  xxname = path;
  xxconflist = &configList;
  xxlex();
  std::fclose(stream);
  return 0;
}

void VhdlScanner::setConfigVariables() {
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) \
  static_assert(std::ranges::count(Setting::table, name, &Setting::key) == 1, form " has no row");
#define QORN_VALUE(name, form)
#include "tokens/configcodes.def"
  for (auto* item = configList.getFirst(); item != nullptr; item = configList.getNext()) {
    const auto& key = static_cast<const QornConfigToken&>(*item);
    const Setting* setting = std::ranges::find(Setting::table, key.getTyp(), &Setting::key);
    applySetting(*setting, key);
  }
}

void VhdlScanner::applySetting(const Setting& setting, const QornConfigToken& key) {
  if (setting.setStyle != nullptr) {
    int code = setting.getStyle();
    key.setCaseType(&code);
    setting.setStyle(code);
  } else if (setting.text != nullptr) {
    key.setString(&(this->*setting.text));
  } else if (setting.number != nullptr) {
    int value = this->*setting.number - setting.added;
    (key.*setting.transfer)(&value);
    this->*setting.number = value + setting.added;
    if (setting.twin != nullptr) this->*setting.twin = this->*setting.number;
  }
}
