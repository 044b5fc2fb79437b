// Tabs of the input are resolved while it is read, so that no later stage has to know about them.
// Only blanks, comments and attributes are expanded; a tab elsewhere counts as one column.
#ifndef QORN_TOKENS_TABS_H
#define QORN_TOKENS_TABS_H

#include <algorithm>
#include <string_view>

#include "base/dynstring.h"

/** Knows the column of the text under way. */
class TabExpander {
 public:
  static constexpr int mostTabColumns = 1000;  // so that a tab is no way to fill the memory

  /** Sets the tab distance of the input; one below 1 acts as 1, a larger one as mostTabColumns. */
  void YYsetInTabSize(int size) { tabSize = std::clamp(size, 1, mostTabColumns); }
  /** Column of the next character in the expanded source line, counted from 0. It runs on from
      source to source; a line end sets it back. */
  long getColumn() const { return column; }
  void setColumn(long place) { column = place; }
  /** Moves the column on over characters that are no tabs to be expanded. */
  void advance(std::size_t count) { column += static_cast<long>(count); }
  /** The columns of a text of blanks and tabs, over which it moves the column on; -1 for any other
      text, which moves nothing. */
  [[nodiscard]] int countBlanks(std::string_view text);
  /** The text with tabs turned into blanks up to the next tab stop. Moves the column on over it.
      The result is the text itself or stands in `YYbuf` until the next call. */
  std::string_view ReplaceTabs(std::string_view text);

 private:
  int toNextStop(long place) const { return tabSize - static_cast<int>(place % tabSize); }

  int tabSize = 4;
  long column = 0;
  DynString YYbuf;
};

#endif
