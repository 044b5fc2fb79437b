// Texts and letter case of a token. Only the ASCII letters ever change case.
#include "tokens/vhdltoken.h"

#include <array>

namespace {

constexpr auto upperCased = [] {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < table.size(); ++i) {
    table[i] = static_cast<char>(i >= 'a' && i <= 'z' ? i - ('a' - 'A') : i);
  }
  return table;
}();

constexpr auto lowerCased = [] {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < table.size(); ++i) {
    table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
  }
  return table;
}();

char upper(char letter) { return upperCased[static_cast<unsigned char>(letter)]; }
char lower(char letter) { return lowerCased[static_cast<unsigned char>(letter)]; }

}  // namespace

int VhdlToken::attributecase = C_UPPERCASE;
int VhdlToken::hexcase = C_LOWERCASE;
int VhdlToken::identcase = C_LOWERCASE;
int VhdlToken::keywordcase = C_UPPERCASE;
// Never destroyed: a signal may end the run at any moment, and then nothing is to be freed.
DynString& VhdlToken::caseBuffer = *new DynString;

void* VhdlToken::operator new(std::size_t) { return Pool<sizeof(VhdlToken)>::take(); }

void VhdlToken::operator delete(void* token) { Pool<sizeof(VhdlToken)>::give(token); }

void VhdlToken::setFormatText(std::string_view replacement) {
  formatText.set(replacement);
  hasFormatText = 1;
}

void VhdlToken::setFormatText(DynString&& replacement) {
  formatText = std::move(replacement);
  hasFormatText = 1;
}

void VhdlToken::setFormatBlanks(int count) {
  formatText.setBlanks(count);
  hasFormatText = 1;
}

void VhdlToken::setTextIfUnformatted(std::string_view replacement) {
  if (hasFormatText == 0) setFormatText(replacement);
}

void VhdlToken::deleteSpaces() {
  DynString rest;
  for (const char letter : viewText(1)) {
    if (letter != ' ') rest.cat(letter);
  }
  setFormatText(std::move(rest));
}

std::string_view VhdlToken::getCaseText(int formatting, int layout) const {
  if (formatting == 0) return viewText(0);
  switch (caseGroup(typ)) {
    case CASE_ASIS: return viewText(layout);
    case CASE_ATTRIBUTE: return getUpperLowerText(layout, attributecase);
    case CASE_IDENTIFIER: return getUpperLowerText(layout, identcase);
    case CASE_NUMBER: return getUpperLowerText(layout, hexcase);
    case CASE_KEYWORD: break;
  }
  return getUpperLowerText(layout, keywordcase);
}

std::string_view VhdlToken::getUpperLowerText(int formatted, int style) const {
  const std::string_view source = viewText(formatted);
  switch (style) {
    case C_CAPITALIZED: return Capitalized(source);
    case C_CAPITALIZEAFTERUNDERSCORE: return CapitalizedAfterUnderscore(source);
    case C_LOWERCASE: return LowerCase(source);
    case C_UPPERCASE: return UpperCase(source);
    default: return AsIs(source);
  }
}

std::string_view VhdlToken::LowerCase(std::string_view source) {
  char* target = caseBuffer.rewrite(static_cast<int>(source.size()));
  for (const char letter : source) *target++ = lower(letter);
  return caseBuffer.view();
}

std::string_view VhdlToken::UpperCase(std::string_view source) {
  char* target = caseBuffer.rewrite(static_cast<int>(source.size()));
  for (const char letter : source) *target++ = upper(letter);
  return caseBuffer.view();
}

std::string_view VhdlToken::Capitalized(std::string_view source) {
  char* target = caseBuffer.rewrite(static_cast<int>(source.size()));
  for (std::size_t i = 0; i < source.size(); ++i) {
    target[i] = i == 0 ? upper(source[i]) : lower(source[i]);
  }
  return caseBuffer.view();
}

std::string_view VhdlToken::CapitalizedAfterUnderscore(std::string_view source) {
  char* target = caseBuffer.rewrite(static_cast<int>(source.size()));
  char before = '_';  // the first character counts as one behind an underscore
  for (const char letter : source) {
    *target++ = before == '_' ? upper(letter) : lower(letter);
    before = letter;
  }
  return caseBuffer.view();
}

int VhdlToken::getWrapGravity(int target) const {
  if (gravity < 1) return gravity;
  if (typ == T_NEWLINE) return 0;
  return column > target ? column - target + gravity : 0;
}
