// The measuring walk, and the plain walk that a debug build checks it against.
#include "scanner/lineruler.h"

#include <algorithm>
#include <cassert>

namespace {

/** The first token at or after a node that is no blank, or null. */
VhdlToken* skipBlanks(VhdlToken* node) {
  while (node != nullptr && node->getTyp() == T_WHITESPACE) node = node->getNext();
  return node;
}

/** What read() must return, by a plain walk. */
[[maybe_unused]] LineRuler::Reading readPlainly(VhdlToken* place, int tabWidth) {
  int column = 0;
  VhdlToken* start = place;
  for (VhdlToken* node = place->getPrev(); node != nullptr; node = node->getPrev()) {
    if (isLineEnd(*node, 1)) break;
    column = addColumns(column, countColumns(*node, 1, tabWidth));
    start = node;
  }
  return {skipBlanks(start), column};
}

/** The columns that a token adds to the length of a target. Blanks do not count, as they may still
    change, so words of ranges and separators count with those that they will have:
    `x(3 downto 0)` is 13 columns wide. */
int widthInTarget(const VhdlToken& token) {
  const int typ = token.getTyp();
  if (isSpacing(typ) || isClassWord(typ)) return 0;
  if (typ == T_COLON || typ == T_COMMA) return 2;
  const int length = token.textLength(1);
  return typ == T_DOWNTO || typ == T_TO ? length + 2 : length;
}

bool endsTarget(const VhdlToken* token) {
  return token == nullptr || token->getTyp() == T_SEMICOLON || isLineEnd(*token, 1);
}

}  // namespace

int countTabColumns(const VhdlToken& token, int formatted, int tabWidth) {
  const auto tabs = std::ranges::count(token.viewText(formatted), '\t');
  return timesColumns(static_cast<int>(tabs), tabWidth - 1);
}

VhdlToken* LineRuler::findFirst(VhdlToken* place) const {
  VhdlToken* earliest = place;
  for (VhdlToken* node = place->getPrev(); node != nullptr; node = node->getPrev()) {
    if (node == mark) return first;
    if (node->getTyp() == T_WHITESPACE) continue;
    if (isLineEnd(*node, 1)) break;
    earliest = node;
  }
  return skipBlanks(earliest);
}

// The walk ends at the mark or at the start of the line. The nearest token that is no blank and no
// line end becomes the new mark.
LineRuler::Reading LineRuler::read(VhdlToken* place, int tabWidth) {
  long long column = 0;
  long long afterMark = 0;       // columns between the new mark and the place
  VhdlToken* newMark = nullptr;  // the nearest token before the place that can be a mark
  VhdlToken* earliest = place;   // the earliest token that is no blank
  VhdlToken* node = place->getPrev();
  for (; node != nullptr && node != mark; node = node->getPrev()) {
    const VhdlToken& token = *node;
    if (token.getTyp() == T_WHITESPACE) {
      column += token.textLength(1);
      continue;
    }
    if (isLineEnd(token, 1)) break;
    if (newMark == nullptr && token.getTyp() != T_NEWLINE) {
      newMark = node;
      afterMark = column;
    }
    column += countColumns(token, 1, tabWidth);
    earliest = node;
  }
  if (mark != nullptr && node == mark) {
    column += width;
  } else {
    first = skipBlanks(earliest);
    mark = nullptr;
  }
  if (newMark != nullptr) {
    mark = newMark;
    width = saturated(column - afterMark);
  }
  const Reading reading{first, saturated(column)};
  assert(reading.first == readPlainly(place, tabWidth).first);
  assert(reading.column == readPlainly(place, tabWidth).column);
  return reading;
}

// Tokens that the formatter has inserted have no source text, so they count nothing. A line end
// that was dropped still ends its line here.
int LineRuler::readSource(const VhdlToken* place, int tabWidth) {
  long long column = 0;
  const VhdlToken* node = place->getPrev();
  while (node != nullptr && node != sourceMark && !isLineEnd(*node, 0)) {
    column += countColumns(*node, 0, tabWidth);
    node = node->getPrev();
  }
  if (node != nullptr && node == sourceMark && !isLineEnd(*node, 0)) {
    column += sourceColumn + static_cast<long long>(countColumns(*node, 0, tabWidth));
  }
  sourceMark = place;
  sourceColumn = saturated(column);
  return sourceColumn;
}

int LineRuler::measureTarget(const VhdlToken& place, int limit) {
  int length = 0;
  const VhdlToken* token = place.getPrev();
  for (; !endsTarget(token) && length < limit; token = token->getPrev()) {
    length = addColumns(length, widthInTarget(*token));
  }
  return length;
}

// As `read`, with a mark of its own; the walk also ends where the target is too long to count.
int LineRuler::readTarget(const VhdlToken& place, int limit) {
  int length = 0;
  const VhdlToken* newMark = nullptr;
  const VhdlToken* token = place.getPrev();
  for (; !endsTarget(token) && token != targetMark && length < limit; token = token->getPrev()) {
    if (newMark == nullptr && !isSpacing(token->getTyp())) newMark = token;
    length = addColumns(length, widthInTarget(*token));
  }
  if (token == targetMark && token != nullptr) length = addColumns(length, targetWidth);
  if (newMark != nullptr) {
    targetMark = newMark;
    targetWidth = length;
  }
  assert(std::min(length, limit) == std::min(measureTarget(place, limit), limit));
  return length;
}
