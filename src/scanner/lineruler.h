// Measures the output line that the formatting pass is on without walking back to its start.
//
// A statement may be a table of millions of entries that is on one line until it is wrapped, and
// every call, arrow and assignment in it asks for its column. The ruler remembers the line's first
// token and how wide the line is up to some token already passed, the mark; a reading walks back to
// the mark only, and advances the mark. A table of 4,000 calls takes 280 instructions a byte with
// it and 38,900 without.
//
// Invariant, while there is a mark: it is no blank, no line end, and no comment that may still
// change; no line end is printed between `first` and the mark; and `width` counts the columns of
// the line up to and including the mark. It holds because the pass changes blanks and line ends
// after the mark only, with two exceptions that it reports: the blank before the line's first token
// (`indented`), and an anchor that goes back over what was read (`forget`).
#ifndef QORN_SCANNER_LINERULER_H
#define QORN_SCANNER_LINERULER_H

#include "base/columns.h"
#include "tokens/vhdltoken.h"

class LineRuler {
 public:
  /** What is before a place on its output line. */
  struct Reading {
    VhdlToken* first;  // the line's first token that is no blank; null at the list's end
    int column;        // columns before the place, counted from 0
  };

  // The readings are right as long as the places advance, as the pass does, or `forget` was called
  // before going back.

  /** Measures the line that `place` is on, as far as it is laid out. `place` may be the line end
      that ends the line. A tab counts `tabWidth` columns. */
  Reading read(VhdlToken* place, int tabWidth);

  /** Only the first token of the reading; leaves the mark where it is. */
  [[nodiscard]] VhdlToken* findFirst(VhdlToken* place) const;

  /** The columns before `place` on its line of the source. */
  [[nodiscard]] int readSource(const VhdlToken* place, int tabWidth);

  /** The length of the assignment's or declaration's target before `place`: the columns between it
      and the last semicolon or printed line end, without blanks and class words. One of at least
      `limit` columns may be measured too short, but not below the limit. */
  [[nodiscard]] int readTarget(const VhdlToken& place, int limit);
  /** The same for a place ahead of the pass, where line ends may still change. */
  [[nodiscard]] static int measureTarget(const VhdlToken& place, int limit);

  /** The blank before a line's first token has become wider by that many columns. */
  void indented(const VhdlToken* token, int columns) {
    if (token == first) width = addColumns(width, columns);  // else not the remembered line
  }

  /** Forgets the output line: its measured part may change. */
  void forget() {
    mark = nullptr;
    targetMark = nullptr;
  }
  /** Forgets all nodes, as when the list is freed. */
  void reset() {
    forget();
    sourceMark = nullptr;
  }

 private:
  VhdlToken* first = nullptr;
  VhdlToken* mark = nullptr;
  int width = 0;                          // columns
  const VhdlToken* sourceMark = nullptr;  // source texts never change
  int sourceColumn = 0;                   // columns before it on its source line
  const VhdlToken* targetMark = nullptr;  // subject to the invariant as well
  int targetWidth = 0;                    // columns of the target up to and including it
};

/** Columns beyond one each that the tabs of a token's text take, if a tab counts `tabWidth`. */
[[nodiscard]] int countTabColumns(const VhdlToken& token, int formatted, int tabWidth);

/** Columns of a token's text; a tab counts `tabWidth`. */
[[nodiscard]] inline int countColumns(const VhdlToken& token, int formatted, int tabWidth) {
  const int length = token.textLength(formatted);
  if (!token.holdsTabs()) return length;
  return addColumns(length, countTabColumns(token, formatted, tabWidth));
}

/** Is the token a line end that prints, or with 0 one that stood in the source? */
[[nodiscard]] inline bool isLineEnd(const VhdlToken& token, int formatted) {
  return token.getTyp() == T_NEWLINE && token.textLength(formatted) > 0;
}

#endif
