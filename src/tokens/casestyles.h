// The letter case in which tokens are printed: a style for each group of token codes.
#ifndef QORN_TOKENS_CASESTYLES_H
#define QORN_TOKENS_CASESTYLES_H

#include <array>
#include <string_view>

#include "tokens/tokencodes.h"

/** Styles are configuration codes; one that is no case style acts as C_ASIS. */
class CaseStyles {
 public:
  int ofGroup(int group) const { return styles[static_cast<std::size_t>(group)]; }
  void setGroup(int group, int style) { styles[static_cast<std::size_t>(group)] = style; }
  /** The style of a token code. */
  int of(int typ) const { return ofGroup(caseGroup(typ)); }

 private:
  // By case group: as it is, keywords, identifiers, attributes, numbers.
  std::array<int, caseGroupCount> styles{C_ASIS, C_UPPERCASE, C_LOWERCASE, C_UPPERCASE,
                                         C_LOWERCASE};
};

/** Copies a text in a case style; only the ASCII letters ever change. A long text may come in
    pieces: `before` is then the character in front of the piece, 0 for the first one. The target
    may be the source. */
void convertCase(char* target, std::string_view source, int style, char before = '\0');

constexpr std::size_t caseBlock = 16;  // bytes

/** The same of a whole block of bytes: the short texts of tokens, whatever their length. */
void convertBlock(char* target, const char* source, int style);

#endif
