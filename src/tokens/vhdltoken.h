// The central record: a source file is a list of these, and formatting means changing them. A token
// never leaves its list; one that is to disappear gets an empty format text.
//
// A record copies no text. Its source text is in the source or, if tabs were expanded, in the
// storage of the list. Its format text is nearly always a run of blanks, a line end or nothing,
// which a byte and a number tell, so that a run of blanks costs the same whatever its length. With
// copies of its texts a record took three quarters more memory.
#ifndef QORN_TOKENS_VHDLTOKEN_H
#define QORN_TOKENS_VHDLTOKEN_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "base/arena.h"
#include "base/oldlist.h"
#include "tokens/casestyles.h"
#include "tokens/tokencodes.h"

/** A text and the case style in which it is to be printed. */
struct CaseText {
  std::string_view text;
  int style;
};

/** A token owns no texts. Those that it is given must live as long as the token, with textPadding
    readable bytes after them. */
class VhdlToken : public OldListItem<VhdlToken> {
 public:
  static constexpr int textPadding = caseBlock;

  VhdlToken(int code, int line, int level, std::string_view source)
      : VhdlToken(code, line, level, source.data(), static_cast<int>(source.size())) {}
  VhdlToken(int code, int line, int level, std::nullptr_t) = delete;  // a text is never null
  /** A token whose source text is that many blanks. */
  VhdlToken(int code, int line, int level, int blanks)
      : VhdlToken(code, line, level, nullptr, blanks) {}
  /** A token that the formatter inserts, with no source. */
  VhdlToken(int code, int level) : VhdlToken(code, /*line*/ 0, level, /*blanks*/ 0) {}

  int getTyp() const { return typ; }
  /** Requires: a token code. */
  void setTyp(int code) {
    assert(code >= 0 && code < tokenCodeCount);
    typ = static_cast<std::int16_t>(code);
  }
  int getLineNo() const { return lineNo; }
  void setLineNo(int line) { lineNo = line; }
  int getParenLevel() const { return place; }
  void setParenLevel(int level) { place = level; }
  int getIndent() const { return indent; }
  void setIndent(int amount) { indent = amount; }
  int getGravity() const { return gravity; }
  /** Clamped to -128 to 127. */
  void setGravity(int priority) {
    gravity = static_cast<std::int8_t>(std::clamp<int>(priority, INT8_MIN, INT8_MAX));
  }
  int getColumn() const { return place; }
  void setColumn(int column) { place = column; }

  // --- Texts ---
  //
  // With `formatted` 1 the effective text: the format text once one was set, else the source text.
  // With 0 the source text.

  // A token that is given a text of its own is given no other from then on.

  /** Sets what is printed instead of the source text: the empty text or a line end. */
  void setFormatText(std::string_view replacement) {
    assert(replacement.empty() || replacement == "\n");
    print(replacement.empty() ? BLANKS : LINE_END, static_cast<int>(replacement.size()));
  }
  /** The same for any text, which is copied into the arena. */
  void setFormatText(std::string_view replacement, Arena& arena) {
    setFormatText(newText(replacement, arena), arena);
  }
  /** The same for a text in the arena, which the token may change. */
  void setFormatText(std::span<char> replacement, Arena& arena);
  /** A copy with its padding. */
  static std::span<char> newText(std::string_view text, Arena& arena);
  /** The effective text, which from now on the token may change. */
  std::span<char> ownText(Arena& arena);
  /** As setFormatText with that many blanks; with the empty text for 0 or less. */
  void setFormatBlanks(int count) { print(BLANKS, count > 0 ? count : 0); }
  bool isFormatted() const { return printed >= BLANKS; }
  /** In bytes. */
  int textLength(int formatted) const { return formatted == 0 ? length : printedLength; }
  /** The number of blanks if the text is empty or was set as a count of blanks, else -1. */
  int countBlanks(int formatted) const {
    if (formatted == 0) return sourceText() == nullptr ? length : -1;
    return printed == SOURCE_BLANKS || printed == BLANKS ? printedLength : -1;
  }
  /** Requires: the text is empty or not a count of blanks. */
  std::string_view viewText(int formatted) const {
    assert(countBlanks(formatted) <= 0);
    if (formatted == 0) return {sourceText(), static_cast<std::size_t>(length)};
    return {printedText(), static_cast<std::size_t>(printedLength)};
  }
  /** Does its text contain a tab? Those of blanks, comments and attributes have been expanded. */
  bool holdsTabs() const { return printed == TABBED_TEXT; }
  /** Requires: the token is unformatted and has a source text. */
  void setHoldsTabs(bool holds) { printed = holds ? TABBED_TEXT : SOURCE_TEXT; }
  /** Removes the space characters from the effective text. */
  void deleteSpaces(Arena& arena);

  // --- Letter case ---

  /** The text that is printed, where `formatting` and `layout` are the output's two switches.
     Requires: as viewText. */
  CaseText getCaseText(int formatting, int layout, const CaseStyles& styles) const {
    if (formatting == 0) return {viewText(0), C_ASIS};
    return {viewText(layout), styles.of(typ)};
  }

  // --- Wrapping ---

  /** Priority of a line break after this token, if what follows would then start at column
      `target`. 0: no break here; below 0: nor directly before this token. */
  int getWrapGravity(int target) const {
    if (gravity < 1) return gravity;
    return typ != T_NEWLINE && place > target ? place - target + gravity : 0;
  }

  // --- Comments (layout/commenttext.cpp) ---
  //
  // Other tokens are left alone. The token's indent counts as the comment's column; `width` is the
  // number of columns of a line; `chars` are the characters that frame a block comment when the
  // last two of a comment are the same. New texts are taken from the arena.

  /** Of a comment that fits and ends in a pair of frame characters: with two more of them before
     the pair, as in `-- Title ====`, extends the frame to the last column. Else closes the pair up
     with the text, and drops it if it is of hyphens; with `frame` 1 it is moved to the last
     columns. */
  void alignComment(int width, std::string_view chars, int frame, Arena& arena);
  /** Trims a comment that is too long, and cuts it at a blank if that is not enough. Returns the
      text for the next line, which begins with "-- "; empty when the comment stays whole. */
  [[nodiscard]] std::span<char> stripComment(int width, std::string_view chars, Arena& arena);
  /** Removes filler, blanks or more of the same character, before the closing `pair` of a comment
      that reaches the last column or goes beyond, as far as that takes it back there. */
  void trimmComment(int width, std::string_view pair, Arena& arena);

 private:
  /** What the effective text is: that of the source up to SOURCE_BLANKS. */
  enum Printed : std::uint8_t {
    SOURCE_TEXT,
    TABBED_TEXT,
    SOURCE_BLANKS,
    BLANKS,
    LINE_END,
    OWN_TEXT,
  };

  /** Both texts of a token with one of its own. */
  struct Texts {
    const char* source;
    char* format;
  };

  VhdlToken(int code, int line, int level, const char* source, int size)
      : text(source),
        length(size),
        printedLength(size),
        typ(static_cast<std::int16_t>(code)),
        printed(source == nullptr ? SOURCE_BLANKS : SOURCE_TEXT),
        place(level),
        lineNo(line) {}
  void print(Printed kind, int size) {
    assert(printed != OWN_TEXT || kind == OWN_TEXT);
    printed = kind;
    printedLength = size;
  }
  static constexpr char lineEndRoom[1 + textPadding] = "\n";

  const char* sourceText() const { return printed == OWN_TEXT ? texts->source : text; }
  const char* printedText() const {
    switch (printed) {
      case LINE_END: return lineEndRoom;
      case OWN_TEXT: return texts->format;
      case BLANKS: return nullptr;
      default: return text;
    }
  }

  union {
    const char* text;  // from the source, tabs expanded; null stands for blanks
    Texts* texts;      // of OWN_TEXT
  };
  int length;         // of the source text, in bytes
  int printedLength;  // of the effective text, in bytes
  std::int16_t typ;
  std::int8_t gravity = 1;  // wrap priority; written by VhdlScanner::getNextToken
  Printed printed;
  // Parenthesis depth, 1 inside the outermost pair, for the layout of lines; from wrapping on,
  // which no longer needs it, a column. Two numbers would take a seventh more memory.
  int place;
  int indent = 0;  // columns, used if the token is first on its line
  int lineNo;      // source line; 0 if the formatter inserted the token
};
static_assert(sizeof(VhdlToken) <= 48 || sizeof(void*) != 8);
static_assert(std::is_trivially_destructible_v<VhdlToken>, "a list lets go of its tokens unseen");

using TokenList = OldList<VhdlToken>;

/** The code of a token; -1 for null. */
[[nodiscard]] inline int typAt(const VhdlToken* token) {
  return token == nullptr ? -1 : token->getTyp();
}

#endif
