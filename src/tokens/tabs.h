// Input tabs are expanded while reading, so that no later stage has to know about them. Only
// blanks, comments and attributes are expanded; a tab elsewhere counts as one column.
#ifndef QORN_TOKENS_TABS_H
#define QORN_TOKENS_TABS_H

#include <algorithm>
#include <string_view>

#include "base/dynstring.h"

/** Tracks the current column. */
class TabExpander {
 public:
  static constexpr int mostTabColumns = 1000;  // so that tabs can't exhaust memory

  /** Sets the tab distance of the input; one below 1 acts as 1, a larger one as mostTabColumns. */
  void YYsetInTabSize(int size) { tabSize = std::clamp(size, 1, mostTabColumns); }
  /** Column of the next character in the expanded source line, counted from 0. It carries over from
      source to source; a line end resets it. */
  long getColumn() const { return column; }
  void setColumn(long place) { column = place; }
  /** Advances the column over characters that are not tabs to be expanded. */
  void advance(std::size_t count) { column += static_cast<long>(count); }
  /** The width of the blanks and tabs at `at`, past which it and the column are advanced; -1, with
      both unchanged, if a vertical tab or a form feed comes next. */
  [[nodiscard]] int passBlanks(const char*& at);
  /** The text with tabs expanded to blanks up to the next tab stop. Advances the column over it.
      The result is the text itself, or is in `YYbuf` until the next call. */
  std::string_view ReplaceTabs(std::string_view text);

 private:
  int toNextStop(long place) const { return tabSize - static_cast<int>(place % tabSize); }

  int tabSize = 4;
  long column = 0;
  DynString YYbuf;
};

#endif
