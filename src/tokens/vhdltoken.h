// The central record: a source file is a list of these, and formatting means changing them. A token
// never leaves its list; one that is to disappear gets an empty format text.
//
// A record copies no text. Its source text is in the source or, if tabs were expanded, in the
// storage of the list. Its format text is nearly always a run of blanks, a line end or nothing,
// which one number encodes, so that a run of blanks costs the same whatever its length. With texts
// of its own a record would take two thirds more memory, and the formatter a third more
// instructions.
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

  /** Sets what is printed instead of the source text: the empty text or a line end. */
  void setFormatText(std::string_view replacement) {
    assert(replacement.empty() || replacement == "\n");
    format = replacement.empty() ? 0 : LINE_END;
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
  void setFormatBlanks(int count) { format = count > 0 ? count : 0; }
  bool isFormatted() const { return format != UNFORMATTED; }
  /** In bytes. */
  int textLength(int formatted) const {
    if (formatted == 0 || format == UNFORMATTED) return length;
    if (format >= 0) return format;
    return format == LINE_END ? 1 : static_cast<int>(texts->format.size());
  }
  /** The number of blanks if the text is empty or was set as a count of blanks, else -1. */
  int countBlanks(int formatted) const {
    if (formatted != 0 && format != UNFORMATTED) return format >= 0 ? format : -1;
    return sourceText() == nullptr ? length : -1;
  }
  /** Requires: the text is empty or not a count of blanks. */
  std::string_view viewText(int formatted) const {
    assert(countBlanks(formatted) <= 0);
    if (formatted == 0 || format == UNFORMATTED) {
      return {sourceText(), static_cast<std::size_t>(length)};
    }
    return format == LINE_END ? lineEnd : ownFormatText();
  }
  /** Does its text contain a tab? Those of blanks, comments and attributes have been expanded. */
  bool holdsTabs() const { return hasTabs; }
  void setHoldsTabs(bool holds) { hasTabs = holds; }
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

  /** Extends a comment that ends in a pair of frame characters to the last column, or tidies the
      pair up; `frame` is 1 if the pair is to be at the margin after blanks too. */
  void alignComment(int width, std::string_view chars, int frame, Arena& arena);
  /** Cuts an over-long comment at a blank. Returns the text for the next line, as a comment's own;
      empty when the comment stays whole. */
  [[nodiscard]] std::span<char> stripComment(int width, std::string_view chars, Arena& arena);
  /** Removes filler before the closing `pair` from a comment that is wider than the line. */
  void trimmComment(int width, std::string_view pair, Arena& arena);

 private:
  enum Format : int { UNFORMATTED = -1, LINE_END = -2, OWN_TEXT = -3 };  // else a count of blanks

  /** Both texts of a token with a format text of any other kind. */
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
