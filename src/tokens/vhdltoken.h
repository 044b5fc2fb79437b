// The one record of the system: a source file is a list of these, and formatting means changing
// them. A token never leaves its list; one that is to vanish gets an empty format text.
//
// A record copies no text. Its source text stands in the source or, where tabs were expanded, in
// the storage of the list. Its format text is nearly always a run of blanks, a line end or nothing,
// which one number tells, so that a run of blanks costs the same whatever its length. With texts of
// its own a record takes two thirds more memory, and the formatter a third more instructions.
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

/** A token owns no texts. Those that it is given live as long as the token, and textPadding
   bytes after them can be read. */
class VhdlToken : public OldListItem<VhdlToken> {
 public:
  static constexpr int textPadding = caseBlock;

  VhdlToken(int code, int line, int level, std::string_view source)
      : VhdlToken(code, line, level, source.data(), static_cast<int>(source.size())) {}
  VhdlToken(int code, int line, int level, std::nullptr_t) = delete;  // a text is never null
  /** One whose source text is that many blanks. */
  VhdlToken(int code, int line, int level, int blanks)
      : VhdlToken(code, line, level, nullptr, blanks) {}
  /** One that the formatter inserts, without a source. */
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
  /** Holds the nearest of -128 to 127. */
  void setGravity(int priority) {
    gravity = static_cast<std::int8_t>(std::clamp<int>(priority, INT8_MIN, INT8_MAX));
  }
  int getColumn() const { return place; }
  void setColumn(int column) { place = column; }

  // --- Texts ---
  //
  // With `formatted` 1 the effective text: the format text once one was set, else the source text.
  // With 0 the source text.

  /** Sets what is printed instead of the source text: the empty text or a line end. */
  void setFormatText(std::string_view replacement) {
    assert(replacement.empty() || replacement == "\n");
    format = replacement.empty() ? 0 : LINE_END;
  }
  /** The same of any text, of which it makes a copy in the arena. */
  void setFormatText(std::string_view replacement, Arena& arena) {
    setFormatText(newText(replacement, arena), arena);
  }
  /** The same of a text in the arena, which is the token's to change. */
  void setFormatText(std::span<char> replacement, Arena& arena);
  /** A copy with its padding. */
  static std::span<char> newText(std::string_view text, Arena& arena);
  /** The effective text, from now on one that is the token's to change. */
  std::span<char> ownText(Arena& arena);
  /** As setFormatText with that many blanks; with the empty text for 0 or less. */
  void setFormatBlanks(int count) { format = count > 0 ? count : 0; }
  bool isFormatted() const { return format != UNFORMATTED; }
  /** In bytes. */
  int textLength(int formatted) const {
    if (formatted == 0 || format == UNFORMATTED) return length;
    if (format >= 0) return format;
    return format == LINE_END ? 1 : static_cast<int>(texts->format.size());
  }
  /** The number of blanks, if the text is empty or was set as a count of blanks; -1 for all else.
   */
  int countBlanks(int formatted) const {
    if (formatted != 0 && format != UNFORMATTED) return format >= 0 ? format : -1;
    return sourceText() == nullptr ? length : -1;
  }
  /** Requires: the text is empty or no count of blanks. */
  std::string_view viewText(int formatted) const {
    assert(countBlanks(formatted) <= 0);
    if (formatted == 0 || format == UNFORMATTED) {
      return {sourceText(), static_cast<std::size_t>(length)};
    }
    return format == LINE_END ? lineEnd : ownFormatText();
  }
  /** Does a tab stand in its text? Those of blanks, comments and attributes have been expanded. */
  bool holdsTabs() const { return hasTabs; }
  void setHoldsTabs(bool holds) { hasTabs = holds; }
  /** Takes the space characters out of the effective text. */
  void deleteSpaces(Arena& arena);

  // --- Letter case ---

  /** The text that is printed, where `formatting` and `layout` are the output's two switches.
     Requires: as viewText. */
  CaseText getCaseText(int formatting, int layout, const CaseStyles& styles) const {
    if (formatting == 0) return {viewText(0), C_ASIS};
    return {viewText(layout), styles.of(typ)};
  }

  // --- Wrapping ---

  /** Priority of a line break behind this token, if what follows would then stand at column
      `target`. 0: no place to break; below 0: nor is the token before it. */
  int getWrapGravity(int target) const {
    if (gravity < 1) return gravity;
    return typ != T_NEWLINE && place > target ? place - target + gravity : 0;
  }

  // --- Comments (layout/commenttext.cpp) ---
  //
  // Nothing happens to other tokens. The token's indent counts as the comment's column; `width` is
  // the count of columns of a line; `chars` are the characters that frame a block comment when the
  // last two of a comment are the same. New texts are taken from the arena.

  /** Draws a comment that ends in a pair of frame characters out to the last column, or tidies the
      pair away; `frame` is 1 where the pair is to stand at the margin behind blanks too. */
  void alignComment(int width, std::string_view chars, int frame, Arena& arena);
  /** Cuts an over-long comment at a blank. Returns the text for the next line, as a comment's own;
      empty when the comment stays whole. */
  [[nodiscard]] std::span<char> stripComment(int width, std::string_view chars, Arena& arena);
  /** Takes filler in front of the closing `pair` off a comment that is wider than the line. */
  void trimmComment(int width, std::string_view pair, Arena& arena);

 private:
  enum Format : int { UNFORMATTED = -1, LINE_END = -2, OWN_TEXT = -3 };  // else a count of blanks

  /** Both texts of a token that was given a format text of another kind. */
  struct Texts {
    const char* source;
    std::span<char> format;
  };

  VhdlToken(int code, int line, int level, const char* source, int size)
      : text(source),
        length(size),
        typ(static_cast<std::int16_t>(code)),
        place(level),
        lineNo(line) {}
  static constexpr char lineEndRoom[1 + textPadding] = "\n";
  static constexpr std::string_view lineEnd{lineEndRoom, 1};

  std::string_view ownFormatText() const {
    if (format != OWN_TEXT) return {};
    return {texts->format.data(), texts->format.size()};
  }
  const char* sourceText() const { return hasTexts ? texts->source : text; }

  union {
    const char* text;  // from the source, tabs expanded; null stands for blanks
    Texts* texts;      // with hasTexts
  };
  int length;                // of the source text, in bytes
  int format = UNFORMATTED;  // what is printed instead
  std::int16_t typ;
  std::int8_t gravity = 1;  // wrap priority; written by VhdlScanner::getNextToken
  bool hasTexts : 1 = false;
  bool hasTabs : 1 = false;
  // Depth of parentheses, 1 between the outermost pair, which lines are laid out by; from the
  // wrapping on, which no longer asks for it, a column. Two numbers would take a seventh more
  // memory.
  int place;
  int indent = 0;  // columns, if the token comes first on its line
  int lineNo;      // source line; 0 if the formatter inserted the token
};
static_assert(sizeof(VhdlToken) <= 48 || sizeof(void*) != 8);
static_assert(std::is_trivially_destructible_v<VhdlToken>, "a list lets go of its tokens unseen");

using TokenList = OldList<VhdlToken>;

/** The code of a token; -1 without one. */
[[nodiscard]] inline int typAt(const VhdlToken* token) {
  return token == nullptr ? -1 : token->getTyp();
}

#endif
