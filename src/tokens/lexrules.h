// The lexical rules for literals, names and comments, one function for each class. A rule returns
// the length of the longest text that it matches at `at`, 0 if there is none; one that begins to
// match and then fails falls back to its longest complete match.
//
// The text is terminated as SourceText does it, so that a rule may look a few characters ahead
// without checking for the end.
#ifndef QORN_TOKENS_LEXRULES_H
#define QORN_TOKENS_LEXRULES_H

#include <array>
#include <cstddef>
#include <string_view>

enum CharClass : unsigned char {
  LETTER = 1,
  DIGIT = 2,
  HEX = 4,
  BLANK = 8,
  OCTAL = 16,
  BINARY = 32
};

constexpr auto charClasses = [] {
  std::array<unsigned char, 256> classes{};
  for (unsigned i = 0; i < 26; ++i) {
    const unsigned char hex = i < 6 ? HEX : 0;
    classes['A' + i] = classes['a' + i] = static_cast<unsigned char>(LETTER | hex);
  }
  for (unsigned i = '0'; i <= '9'; ++i) classes[i] = DIGIT | HEX | (i < '8' ? OCTAL : 0);
  classes['0'] |= BINARY;
  classes['1'] |= BINARY;
  for (const char blank : {' ', '\t', '\v', '\f'})
    classes[static_cast<unsigned char>(blank)] = BLANK;
  return classes;
}();

[[nodiscard]] constexpr bool hasClass(char character, int classes) {
  return (charClasses[static_cast<unsigned char>(character)] & classes) != 0;
}

/** Does the text begin with a word in capitals, in whatever case? */
[[nodiscard]] bool startsWith(const char* at, std::string_view word);
/** `\`, anything but `\`, line feeds included, `\`. `end` is the end of the whole text. */
[[nodiscard]] std::size_t matchExtendedIdentifier(const char* at, const char* end);
/** A letter, then letters and digits, each with at most one `_` before it. */
[[nodiscard]] std::size_t matchIdentifier(const char* at);
[[nodiscard]] std::size_t matchBlanks(const char* at);
/** Digits, each with at most one `_` before it. */
[[nodiscard]] std::size_t matchInteger(const char* at);
/** Decimal literal with fraction and exponent; a negative exponent needs the fraction. */
[[nodiscard]] std::size_t matchDecimal(const char* at);
/** Based literal, between `#` or between `:`. */
[[nodiscard]] std::size_t matchBased(const char* at);
/** A string delimited by the character at `at`, which stands for itself when doubled. */
[[nodiscard]] std::size_t matchString(const char* at);
/** X, O or B and digits between two `"` or two `%`. */
[[nodiscard]] std::size_t matchBitString(const char* at);
/** `'`, blanks and line feeds, and the longest of the names of predefined attributes. */
[[nodiscard]] std::size_t matchAttribute(const char* at);
/** `'`, one character, `'`. */
[[nodiscard]] bool isCharacterLiteral(const char* at);
/** `'(` and a character literal: a qualified expression, not the literal of a parenthesis. */
[[nodiscard]] bool isTickBeforeLiteral(const char* at);
/** From the two hyphens up to the line end or a carriage return before it, neither included. */
[[nodiscard]] std::size_t matchComment(const char* at, const char* lineEnd);
/** The code of a comment by its first word: one of the pragmas, or T_COMMENT. */
[[nodiscard]] int commentTyp(const char* at);

#endif
