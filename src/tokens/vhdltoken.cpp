// Texts of a token.
#include "tokens/vhdltoken.h"

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

int VhdlToken::writeShort(char* target, int formatted, int style) const {
  const DynString& source = chosen(formatted);
  if (!source.isShort()) return -1;
  source.copyBlock(target);
  if (style == C_LOWERCASE || style == C_UPPERCASE) {
    convertCase(target, {target, DynString::shortMax + 1}, style);
  } else if (style != C_ASIS) {
    return -1;
  }
  return source.length();
}

int VhdlToken::getWrapGravity(int target) const {
  if (gravity < 1) return gravity;
  if (typ == T_NEWLINE) return 0;
  return column > target ? column - target + gravity : 0;
}
