// The one record of the system: a source file is a list of these, and formatting means changing
// them. A token never leaves its list; one that is to vanish gets an empty format text.
#ifndef QORN_TOKENS_VHDLTOKEN_H
#define QORN_TOKENS_VHDLTOKEN_H

#include <cstdint>
#include <string_view>

#include "base/dynstring.h"
#include "base/oldlist.h"
#include "tokens/casestyles.h"
#include "tokens/tokencodes.h"

/** A text and the case style in which it is to be printed. */
struct CaseText {
  std::string_view text;
  int style;
};

/** A token owns its two texts and copies what it is given. Texts that it hands out live until that
    text changes. */
class VhdlToken : public OldListItem {
 public:
  VhdlToken() : VhdlToken(0, 0, 0, std::string_view()) {}
  VhdlToken(int code, int line, int level, std::string_view source)
      : typ(static_cast<std::int16_t>(code)), parenLevel(level), lineNo(line), text(source) {}
  /** The same of a text that can be copied in one block. */
  VhdlToken(int code, int line, int level, RoomyText source)
      : typ(static_cast<std::int16_t>(code)), parenLevel(level), lineNo(line), text(source) {}
  VhdlToken(const VhdlToken&) = default;
  VhdlToken& operator=(const VhdlToken&) = delete;
  ~VhdlToken() override = default;

  static void* operator new(std::size_t size);
  static void operator delete(void* token);

  int getTyp() const { return typ; }
  void setTyp(int code) { typ = static_cast<std::int16_t>(code); }
  int getLineNo() const { return lineNo; }
  void setLineNo(int line) { lineNo = line; }
  int getParenLevel() const { return parenLevel; }
  void setParenLevel(int level) { parenLevel = level; }
  int getIndent() const { return indent; }
  void setIndent(int amount) { indent = amount; }
  int getGravity() const { return gravity; }
  void setGravity(int priority) { gravity = static_cast<std::int8_t>(priority); }
  int getColumn() const { return column; }
  void setColumn(int place) { column = place; }

  // --- Texts ---

  /** Replaces the source text; the format text stays. */
  void setText(std::string_view source) { text.set(source); }
  /** Sets what is printed instead of the source text, the empty text included. */
  void setFormatText(std::string_view replacement);
  void setFormatText(DynString&& replacement);
  /** As setFormatText with that many blanks; with the empty text for 0 or less. */
  void setFormatBlanks(int count) {
    formatText.setBlanks(count);
    hasFormatText = 1;
  }
  /** As setFormatText, unless a format text was set before. */
  void setTextIfUnformatted(std::string_view replacement);
  const char* getFormatText() const { return formatText.get(); }
  bool isFormatted() const { return hasFormatText == 1; }
  /** With 1 the effective text: the format text once one was set, else the source text. With 0 the
      source text. */
  const char* getText(int formatted) const { return chosen(formatted).get(); }
  std::string_view viewText(int formatted) const { return chosen(formatted).view(); }
  /** Length of getText in bytes. */
  int textLength(int formatted) const { return chosen(formatted).length(); }
  /** Is it an identifier between backslashes, which may hold any character? */
  bool isExtended() const { return typ == T_IDENTIFIER && *text.get() == '\\'; }
  /** May a tab stand in its text? Those of blanks, comments and attributes have been expanded. */
  bool mayHoldTabs() const { return keepsTabs(typ) || isExtended(); }
  /** Takes the space characters out of the effective text. */
  void deleteSpaces();

  // --- Letter case ---

  /** The text that is printed, where `formatting` and `layout` are the output's two switches. */
  CaseText getCaseText(int formatting, int layout, const CaseStyles& styles) const {
    if (formatting == 0) return {viewText(0), C_ASIS};
    return {viewText(layout), styles.of(typ)};
  }
  /** Writes getText(formatted) in a case style, if it is short, and returns its length; -1 for any
      other text. Touches DynString::shortMax + 1 bytes of the target. */
  int writeShort(char* target, int formatted, int style) const;

  // --- Wrapping ---

  /** Priority of a line break behind this token, if what follows would then stand at column
      `target`. 0: no place to break; below 0: nor is the token before it. */
  int getWrapGravity(int target) const;

  // --- Comments (layout/commenttext.cpp) ---
  //
  // Nothing happens to other tokens. The token's indent counts as the comment's column; `width` is
  // the count of columns of a line; `chars` are the characters that frame a block comment when the
  // last two of a comment are the same.

  /** Draws a comment that ends in a pair of frame characters out to the last column, or tidies the
      pair away; `frame` is 1 where the pair is to stand at the margin behind blanks too. */
  void alignComment(int width, std::string_view chars, int frame);
  /** Cuts an over-long comment at a blank. True if it did; `rest` is then the text for the next
      line. */
  [[nodiscard]] bool stripComment(int width, std::string_view chars, DynString& rest);
  /** Takes filler in front of the closing `pair` off a comment that is wider than the line. */
  void trimmComment(int width, std::string_view pair);

 private:
  const DynString& chosen(int formatted) const {
    return hasFormatText != 0 && formatted != 0 ? formatText : text;
  }

  std::int16_t typ;
  std::int8_t gravity = 1;         // wrap priority; written by VhdlScanner::getNextToken
  std::uint8_t hasFormatText = 0;  // 1 once a format text was set
  int parenLevel;                  // depth of parentheses; 1 between the outermost pair
  int indent = 0;                  // columns, if the token comes first on its line
  int column = 0;                  // columns; written by the line layout
  int lineNo;                      // source line; 0 if the formatter inserted the token
  DynString text;                  // from the source, tabs expanded
  DynString formatText;            // what is printed instead
};

/** The token that a node of a token list holds. */
[[nodiscard]] inline VhdlToken& tokenAt(const OldListRefItem* node) {
  return *static_cast<VhdlToken*>(node->getItem());
}

/** The code of that token; -1 without a node. */
[[nodiscard]] inline int typAt(const OldListRefItem* node) {
  return node == nullptr ? -1 : tokenAt(node).getTyp();
}

#endif
