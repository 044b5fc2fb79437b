// What the handlers measure ahead of the cursor: where a list ends, how wide its words and names
// are, how many entries it has. Plain walks over the tokens from `ahead` on, which may be null;
// they change nothing.
//
// A list is measured before it is read, so that its first entry is put into the columns of all. In
// a well-formed source that reads each token a few times. Where sources leave lists open, a
// StopIndex answers in place of a walk, and a debug build compares the two.
#ifndef QORN_SCANNER_LOOKAHEAD_H
#define QORN_SCANNER_LOOKAHEAD_H

#include "tokens/vhdltoken.h"

/** Does a list end at this token, if a look-ahead for its end began at `level`? */
[[nodiscard]] inline bool endsList(const VhdlToken& token, int level) {
  const int typ = token.getTyp();
  return typ == T_END || (typ == T_RPAREN && token.getParenLevel() <= level);
}

/** The token that ends the list, or null. */
[[nodiscard]] const VhdlToken* findListEnd(const VhdlToken* ahead, int level);

/** The words of an interface list that claim columns, which all its entries then reserve. */
enum WordKind : unsigned { MODE_WORD, CLASS_WORD };

/** Columns that a word of that kind claims, itself and one blank; 0 for all other tokens. */
[[nodiscard]] int wordWidth(WordKind kind, int typ);

/** The largest width that a word of the list claims, 0 without one. */
[[nodiscard]] int measureWords(const VhdlToken* ahead, int level, WordKind kind);

/** The role of a token in the names of an interface list. */
enum NameRole : std::uint8_t {
  NAME_PART,     // counts
  NAME_CLASS,    // a class word, which counts as wide as the column of class words
  NAME_NONE,     // not part of a name; what contains it counts as too long for one
  NAME_END,      // the preceding name is complete
  NAME_DROPPED,  // what precedes was no name
  NAME_NOTHING,  // does not count
};
[[nodiscard]] NameRole nameRole(int typ);

/** A walk and what it measured. */
struct Measure {
  int value = 0;
  int steps = 0;                   // tokens passed
  const VhdlToken* end = nullptr;  // the token that ended the walk; null if none did
};

/** The longest name of an interface list, in columns; each class word counts as `classColumn`, and
    names wider than `limit` do not count. */
[[nodiscard]] Measure measureNames(const VhdlToken* ahead, int level, int classColumn, int limit);

/** The longest formal of an association list, in columns; those of `limit` and more do not count.
   Sets hasArrow to 1 at an arrow, and leaves it alone without one. */
[[nodiscard]] Measure measureFormals(const VhdlToken* ahead, int level, int limit, int& hasArrow);

constexpr int severalEntries = 2;  // no more are counted

/** The entries up to the next `stop`, at most severalEntries. Tokens deeper than `level` are passed
    over. */
[[nodiscard]] Measure countEntries(const VhdlToken* ahead, int level, int separator, int stop);

/** The next semicolon, as the walk's end. */
[[nodiscard]] Measure findSemicolon(const VhdlToken* ahead);

#endif
