// The tables of words, and the walks.
#include "scanner/lookahead.h"

#include <algorithm>
#include <array>

#include "base/columns.h"

namespace {

constexpr auto wordWidths = [] {
  TokenTable<std::array<std::int16_t, 2>> widths({0, 0});
  // clang-format off
  widths[T_IN]      [MODE_WORD] = 3;
  widths[T_OUT]     [MODE_WORD] = 4;
  widths[T_INOUT]   [MODE_WORD] = 6;
  widths[T_BUFFER]  [MODE_WORD] = 7;
  widths[T_LINKAGE] [MODE_WORD] = 8;
  widths[T_FILE]    [CLASS_WORD] = 5;
  widths[T_ALIAS]   [CLASS_WORD] = 6;
  widths[T_GROUP]   [CLASS_WORD] = 6;
  widths[T_SIGNAL]  [CLASS_WORD] = 7;
  widths[T_CONSTANT][CLASS_WORD] = 9;
  widths[T_VARIABLE][CLASS_WORD] = 9;
  // clang-format on
  return widths;
}();

constexpr auto nameRoles = [] {
  TokenTable<NameRole> roles(NAME_PART);
  for (int typ = 0; typ < tokenCodeCount; ++typ) {
    if (isClassWord(typ)) roles[typ] = NAME_CLASS;
    if (isSpacing(typ)) roles[typ] = NAME_NOTHING;
  }
  for (const int typ : {T_COLON, T_COMMA, T_EQUAL}) roles[typ] = NAME_END;
  for (const int typ : {T_INTERFACE_SUBPROGRAM, T_INTERFACE_PACKAGE}) roles[typ] = NAME_NONE;
  roles[T_SEMICOLON] = NAME_DROPPED;
  roles[T_RPAREN] = NAME_NOTHING;
  return roles;
}();

}  // namespace

int wordWidth(WordKind kind, int typ) { return wordWidths[typ][kind]; }

NameRole nameRole(int typ) { return nameRoles[typ]; }

const VhdlToken* findListEnd(const VhdlToken* ahead, int level) {
  while (ahead != nullptr && !endsList(*ahead, level)) ahead = ahead->getNext();
  return ahead;
}

int measureWords(const VhdlToken* ahead, int level, WordKind kind) {
  int widest = 0;
  for (; ahead != nullptr && !endsList(*ahead, level); ahead = ahead->getNext()) {
    widest = std::max(widest, wordWidth(kind, ahead->getTyp()));
  }
  return widest;
}

// In `signal clk, n : in bit;` the names are `signal clk`, 10 columns wide with a class column of
// 7, and `n`. What follows the colon is dropped at the semicolon, but a comma in it compares it
// like a name.
Measure measureNames(const VhdlToken* ahead, int level, int classColumn, int limit) {
  Measure longest;
  int length = 0;
  for (const auto* token = ahead; token != nullptr; token = token->getNext()) {
    if (endsList(*token, level)) {
      longest.end = token;
      return longest;
    }
    ++longest.steps;
    switch (nameRole(token->getTyp())) {
      case NAME_PART: length = addColumns(length, token->textLength(1)); break;
      case NAME_CLASS: length = addColumns(length, classColumn); break;
      case NAME_NONE: length = INT_MAX; break;
      case NAME_END:
        if (length > longest.value && length <= limit) longest.value = length;
        length = 0;
        break;
      case NAME_DROPPED: length = 0; break;
      case NAME_NOTHING: break;
    }
  }
  return longest;
}

// In `a(3) => x, b => y` the formals are 4 columns and 1 wide. An actual is dropped at the comma
// after it, one without a formal too.
Measure measureFormals(const VhdlToken* ahead, int level, int limit, int& hasArrow) {
  Measure longest;
  int length = 0;
  for (const auto* token = ahead; token != nullptr; token = token->getNext()) {
    const int typ = token->getTyp();
    if (endsList(*token, level)) {
      longest.end = token;
      return longest;
    }
    ++longest.steps;
    if (isSpacing(typ)) continue;
    if (typ == T_ARROW) {
      if (length > longest.value && length < limit) longest.value = length;
      length = 0;
      hasArrow = 1;
    } else if (typ == T_COMMA || typ == T_SEMICOLON) {
      length = token->getParenLevel() <= level ? 0 : addColumns(length, 2);
    } else {
      length = addColumns(length, token->textLength(1));
    }
  }
  return longest;
}

// A library clause ends at its semicolon, the index ranges of an array at their parenthesis.
Measure countEntries(const VhdlToken* ahead, int level, int separator, int stop) {
  Measure entries;
  int count = 1;
  for (const auto* token = ahead; token != nullptr; token = token->getNext(), ++entries.steps) {
    if (token->getParenLevel() > level) continue;
    if (token->getTyp() == stop) {
      entries.value = std::min(count, severalEntries);
      entries.end = token;
      return entries;
    }
    if (token->getTyp() == separator) ++count;
  }
  return entries;
}

Measure findSemicolon(const VhdlToken* ahead) {
  Measure way;
  for (; ahead != nullptr && ahead->getTyp() != T_SEMICOLON; ahead = ahead->getNext()) ++way.steps;
  way.end = ahead;
  return way;
}
