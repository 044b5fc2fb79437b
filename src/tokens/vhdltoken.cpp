// Texts and letter case of a token. Only the ASCII letters ever change case.
#include "tokens/vhdltoken.h"

#include <algorithm>
#include <climits>
#include <new>

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

alignas(DynString) char bufferRoom[2][sizeof(DynString)];

}  // namespace

// By case group: as it is, keywords, identifiers, attributes, numbers.
int VhdlToken::caseStyles[] = {C_ASIS, C_UPPERCASE, C_LOWERCASE, C_UPPERCASE, C_LOWERCASE};
// Never destroyed: a signal may end the run at any moment, and then nothing is to be freed.
DynString& VhdlToken::caseBuffer = *::new (bufferRoom[0]) DynString;
DynString& VhdlToken::wideCaseBuffer = *::new (bufferRoom[1]) DynString;
std::size_t VhdlToken::longestSource = DynString::shortMax;

// Before the output is opened, so that running out of memory costs no file.
void VhdlToken::provideFor(std::size_t length) {
  if (length <= longestSource || caseGroup(typ) == CASE_ASIS) return;
  longestSource = std::min<std::size_t>(2 * length, INT_MAX - 1);
  wideCaseBuffer.reserve(static_cast<int>(longestSource));
}

DynString& VhdlToken::bufferFor(const DynString& source) {
  DynString& buffer = source.length() > DynString::shortMax ? wideCaseBuffer : caseBuffer;
  buffer = source;
  return buffer;
}

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
  return formatting == 0 ? viewText(0) : getUpperLowerText(layout, caseStyleOf(typ));
}

int VhdlToken::writeShort(char* target, int formatted, int style) const {
  const DynString& source = chosen(formatted);
  if (!source.isShort()) return -1;
  source.copyBlock(target);
  if (style == C_LOWERCASE) {
    for (int i = 0; i <= DynString::shortMax; ++i) target[i] = lower(target[i]);
  } else if (style == C_UPPERCASE) {
    for (int i = 0; i <= DynString::shortMax; ++i) target[i] = upper(target[i]);
  } else if (style != C_ASIS) {
    return -1;
  }
  return source.length();
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
  DynString& buffer = bufferFor(source);
  buffer.transform([](char letter) { return lower(letter); });
  return buffer.view();
}

std::string_view VhdlToken::UpperCase(const DynString& source) {
  DynString& buffer = bufferFor(source);
  buffer.transform([](char letter) { return upper(letter); });
  return buffer.view();
}

std::string_view VhdlToken::Capitalized(const DynString& source) {
  DynString& buffer = bufferFor(source);
  buffer.transform([](char letter) { return lower(letter); });
  if (buffer.length() > 0) *buffer.edit() = upper(*buffer.edit());
  return buffer.view();
}

std::string_view VhdlToken::CapitalizedAfterUnderscore(const DynString& source) {
  DynString& buffer = bufferFor(source);
  char before = '_';  // the first character counts as one behind an underscore
  buffer.transform([&before](char letter) {
    const char converted = before == '_' ? upper(letter) : lower(letter);
    before = letter;
    return converted;
  });
  return buffer.view();
}

int VhdlToken::getWrapGravity(int target) const {
  if (gravity < 1) return gravity;
  if (typ == T_NEWLINE) return 0;
  return column > target ? column - target + gravity : 0;
}
