// What the language has added from its 2008 edition on: operators, literals, attributes, comments
// between delimiters and tool directives. As with the rules of the older language, a rule returns
// the length of the text that it matches at `at`, 0 if there is none.
#ifndef QORN_TOKENS_MODERNRULES_H
#define QORN_TOKENS_MODERNRULES_H

#include <cstddef>

struct Match {
  int typ;
  std::size_t length;
};
constexpr Match noMatch{0, 0};

/** The longest operator, or noMatch: of matching relations, external names or properties. */
[[nodiscard]] Match matchOperator(const char* at);
/** A bit string with a length, a sign or a base of its own, or with characters other than digits.
    Only one whose characters are digits of its base may change case: a metavalue may not. */
[[nodiscard]] Match matchModernBitString(const char* at);
/** `'` and the name of an attribute that older editions lack. */
[[nodiscard]] std::size_t matchModernAttribute(const char* at);
/** From `<<` on, a class word and the dot that opens an absolute path: what stands before the dot.
 */
[[nodiscard]] std::size_t matchBeforePath(const char* at);
/** From `/`, `*` to their counterpart, or to the end of the text if there is none. */
[[nodiscard]] std::size_t matchBlockComment(const char* at, const char* end);
/** Is there nothing but a comment between a position and the end of its line? */
[[nodiscard]] bool isLineOver(const char* at);
/** Is there nothing before a position on its line? */
[[nodiscard]] bool isLineStart(const char* at, const char* begin);
/** The code of the directive at `at`. */
[[nodiscard]] int directiveTyp(const char* at);
/** Is it a directive that opens text for other tools, up to the one that closes it? */
[[nodiscard]] bool opensProtected(const char* at);
[[nodiscard]] bool closesProtected(const char* at);
/** Up to the line feed, without the carriage returns before it. */
[[nodiscard]] std::size_t matchRestOfLine(const char* at);
/** The same if the end is known. */
[[nodiscard]] std::size_t lengthOfLine(const char* at, const char* lineEnd);

#endif
