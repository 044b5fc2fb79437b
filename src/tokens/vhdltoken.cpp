// Texts and letter case of a token. Only the ASCII letters ever change case.
#include "tokens/vhdltoken.h"

namespace {

// Without a branch or a table, so that a whole word is converted at once.
constexpr int caseDistance = 'a' - 'A';
constexpr unsigned letterCount = 26;

char lower(char letter) {
  const bool isUpper = static_cast<unsigned char>(letter - 'A') < letterCount;
  return static_cast<char>(letter + (isUpper ? caseDistance : 0));
}

char upper(char letter) {
  const bool isLower = static_cast<unsigned char>(letter - 'a') < letterCount;
  return static_cast<char>(letter - (isLower ? caseDistance : 0));
}

}  // namespace

// By case group: as it is, keywords, identifiers, attributes, numbers.
int VhdlToken::caseStyles[] = {C_ASIS, C_UPPERCASE, C_LOWERCASE, C_UPPERCASE, C_LOWERCASE};
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
  const int style = caseStyles[caseGroup(typ)];
  return style == C_ASIS ? viewText(layout) : getUpperLowerText(layout, style);
}

std::string_view VhdlToken::getUpperLowerText(int formatted, int style) const {
  const DynString& source = chosen(formatted);
  switch (style) {
    case C_CAPITALIZED: return Capitalized(source);
    case C_CAPITALIZEAFTERUNDERSCORE: return CapitalizedAfterUnderscore(source);
    case C_LOWERCASE: return LowerCase(source);
    case C_UPPERCASE: return UpperCase(source);
    default: return AsIs(source);
  }
}

std::string_view VhdlToken::LowerCase(const DynString& source) {
  caseBuffer = source;
  caseBuffer.transform([](char letter) { return lower(letter); });
  return caseBuffer.view();
}

std::string_view VhdlToken::UpperCase(const DynString& source) {
  caseBuffer = source;
  caseBuffer.transform([](char letter) { return upper(letter); });
  return caseBuffer.view();
}

std::string_view VhdlToken::Capitalized(const DynString& source) {
  LowerCase(source);
  if (source.length() > 0) *caseBuffer.edit() = upper(*caseBuffer.edit());
  return caseBuffer.view();
}

std::string_view VhdlToken::CapitalizedAfterUnderscore(const DynString& source) {
  Capitalized(source);
  char* text = caseBuffer.edit();
  for (int i = 1; i < source.length(); ++i) {
    if (text[i - 1] == '_') text[i] = upper(text[i]);
  }
  return caseBuffer.view();
}

int VhdlToken::getWrapGravity(int target) const {
  if (gravity < 1) return gravity;
  if (typ == T_NEWLINE) return 0;
  return column > target ? column - target + gravity : 0;
}
