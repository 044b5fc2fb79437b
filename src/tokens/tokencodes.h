// The two closed vocabularies: token codes (T_) and configuration codes (C_), with the predicates
// that several stages share. All stages decide by codes alone, never by a token's letters.
#ifndef QORN_TOKENS_TOKENCODES_H
#define QORN_TOKENS_TOKENCODES_H

#include <array>
#include <cassert>
#include <cstddef>
#include <string_view>

enum TokenCode : int {
#define QORN_WORD(name, code, word) name = code,
#define QORN_CODE(name, code, group) name = code,
#include "tokens/tokencodes.def"
};

enum ConfigCode : int {
#define QORN_CONFIGCODE(name, code) name = code,
#define QORN_KEY(name, form)
#define QORN_VALUE(name, form)
#include "tokens/configcodes.def"
};

/** Which setting determines the letter case of a token. */
enum CaseGroup : int { CASE_ASIS, CASE_KEYWORD, CASE_IDENTIFIER, CASE_ATTRIBUTE, CASE_NUMBER };
constexpr int caseGroupCount = CASE_NUMBER + 1;

constexpr int tokenCodeCount = T_END_DIRECTIVE + 1;  // unused codes included
static_assert(T_INDENT_OFF - T_FORMAT_ON == 3, "the pragmas are neighbours");
static_assert(T_INLINECOMMENT < T_FORMAT_ON && T_INDENT_OFF < T_RAWLINE,
              "and between the comments of one kind and lines that are no code of the other");

/** The edition of the language from which on newer constructs are recognised. */
constexpr int firstModernEdition = 2008;

/** A table with one entry for each token code; `fill` where none is set. */
template <typename T>
class TokenTable {
 public:
  constexpr explicit TokenTable(T fill) : entries() { entries.fill(fill); }
  // Requires: a token code.
  constexpr T& operator[](int typ) { return entries[place(typ)]; }
  constexpr const T& operator[](int typ) const { return entries[place(typ)]; }

 private:
  static constexpr std::size_t place(int typ) {
    assert(typ >= 0 && typ < tokenCodeCount);
    return static_cast<unsigned>(typ);
  }

  std::array<T, tokenCodeCount> entries;
};

/** The code of a word that is reserved in an edition of the language, in whatever case it is
    written, or -1. */
[[nodiscard]] int findReservedWord(std::string_view word, int edition);

constexpr auto caseGroups = [] {
  TokenTable<CaseGroup> groups(CASE_KEYWORD);
#define QORN_WORD(name, code, word)
#define QORN_CODE(name, code, group) groups[name] = group;
#include "tokens/tokencodes.def"
  return groups;
}();

/** The case group of a token code. */
[[nodiscard]] constexpr CaseGroup caseGroup(int typ) { return caseGroups[typ]; }

/** A comment that switches the layout or the output. */
[[nodiscard]] constexpr bool isPragma(int typ) { return typ >= T_FORMAT_ON && typ <= T_INDENT_OFF; }

/** Any comment, pragma comments, tool directives and encrypted lines included: no part of the code
    around it. */
[[nodiscard]] constexpr bool isComment(int typ) {
  return typ == T_COMMENT || typ >= T_INLINECOMMENT;  // up to the last code
}

/** A comment with nothing after it on its line. */
[[nodiscard]] constexpr bool endsLine(int typ) { return isComment(typ) && typ != T_INLINECOMMENT; }

/** A whole line meant for a tool, which no setting touches. */
[[nodiscard]] constexpr bool isToolLine(int typ) {
  return typ >= T_RAWLINE && typ <= T_END_DIRECTIVE;
}

/** One line of a delimited comment, with nothing after it. */
[[nodiscard]] constexpr bool isBlockComment(int typ) {
  return typ == T_BLOCKCOMMENT || typ == T_COMMENTLINE;
}

/** Blanks, line ends and comments. */
[[nodiscard]] constexpr bool isSpacing(int typ) {
  return typ == T_WHITESPACE || typ == T_NEWLINE || isComment(typ);
}

/** Literals and comments that keep the tabs of their source text. */
[[nodiscard]] constexpr bool keepsTabs(int typ) {
  return typ == T_STRING || typ == T_CHARACTER || (typ >= T_FORMAT_ON && typ <= T_END_DIRECTIVE);
}

/** A word that older sources use as a name; it may occur wherever a name can. */
[[nodiscard]] constexpr bool isNewerWord(int typ) { return typ >= T_ASSUME && typ <= T_VUNIT; }

/** Can it be a name? */
[[nodiscard]] constexpr bool isName(int typ) { return typ == T_IDENTIFIER || isNewerWord(typ); }

/** The class words of an interface list or a declaration. */
[[nodiscard]] constexpr bool isClassWord(int typ) {
  return typ == T_SIGNAL || typ == T_CONSTANT || typ == T_VARIABLE || typ == T_FILE ||
         typ == T_ALIAS || typ == T_GROUP;
}

#endif
