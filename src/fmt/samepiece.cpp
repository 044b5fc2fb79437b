#include "fmt/samepiece.h"

#include <algorithm>

#include "base/ascii.h"

namespace {

/** Base and hexadecimal digits may change case. Z and z are two metavalues, and so may others be.
 */
bool isSameBitString(std::string_view old, std::string_view fresh) {
  const std::size_t quote = old.find_first_of("\"%");
  if (!isFoldedSame(old.substr(0, quote), fresh.substr(0, quote))) return false;
  const bool isHexadecimal = asciiUpper(old[quote - 1]) == 'X';
  for (std::size_t i = quote; i < old.size(); ++i) {
    if (old[i] == fresh[i]) continue;
    const char digit = asciiUpper(old[i]);
    if (!isHexadecimal || digit > 'F' || digit != asciiUpper(fresh[i])) return false;
  }
  return true;
}

bool hasTab(std::string_view blanks) { return blanks.find('\t') != std::string_view::npos; }

/** Of the same kind, but not the same text. */
bool isSameMeaning(const Piece& old, const Piece& fresh) {
  if (old.kind == PieceKind::BAR) return true;
  if (old.kind == PieceKind::BLANKS) return hasTab(old.text) || hasTab(fresh.text);
  if (old.isShielded || old.text.size() != fresh.text.size()) return false;
  switch (old.kind) {
    case PieceKind::WORD:
    case PieceKind::NUMBER:
    case PieceKind::DIRECTIVE: return isFoldedSame(old.text, fresh.text);
    case PieceKind::BIT_STRING: return isSameBitString(old.text, fresh.text);
    default: return false;
  }
}

/** These mean something else when moved to another line. */
bool isBoundToLine(PieceKind kind) {
  return kind == PieceKind::FOREIGN || kind == PieceKind::DIRECTIVE;
}

}  // namespace

bool isSamePiece(const Piece& old, const Piece& fresh) {
  if (old.kind != fresh.kind) return false;
  if (isBoundToLine(old.kind) && old.startsLine != fresh.startsLine) return false;
  return old.text == fresh.text || isSameMeaning(old, fresh);
}

bool isFoldedSame(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, {}, asciiUpper, asciiUpper);
}
