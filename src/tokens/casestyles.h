// The letter case in which tokens are printed: a style for each group of token codes.
#ifndef QORN_TOKENS_CASESTYLES_H
#define QORN_TOKENS_CASESTYLES_H

#include <array>
#include <cstring>
#include <string_view>

#include "tokens/tokencodes.h"

/** Styles are configuration codes; any code that is not a case style acts as C_ASIS. */
class CaseStyles {
 public:
  int ofGroup(int group) const { return styles[static_cast<std::size_t>(group)]; }
  void setGroup(int group, int style) { styles[static_cast<std::size_t>(group)] = style; }
  /** The style of a token code. */
  int of(int typ) const { return ofGroup(caseGroup(typ)); }

 private:
  // By case group: as is, keywords, identifiers, attributes, numbers.
  std::array<int, caseGroupCount> styles{C_ASIS, C_UPPERCASE, C_LOWERCASE, C_UPPERCASE,
                                         C_LOWERCASE};
};

// Without a branch or a table, so that the compiler can vectorise them.

[[nodiscard]] constexpr char lowerCase(char letter) {
  const bool isUpper = static_cast<unsigned char>(letter - 'A') < 26U;
  return static_cast<char>(letter + (isUpper ? 'a' - 'A' : 0));
}

[[nodiscard]] constexpr char upperCase(char letter) {
  const bool isLower = static_cast<unsigned char>(letter - 'a') < 26U;
  return static_cast<char>(letter - (isLower ? 'a' - 'A' : 0));
}

/** Copies a text in a case style; only the ASCII letters ever change. A long text may be passed in
    pieces: `before` is then the character before the piece, 0 for the first one. The target may be
    the source. */
void convertCase(char* target, std::string_view source, int style, char before = '\0');

constexpr std::size_t caseBlock = 16;  // bytes

/** The same for a whole block of bytes, whatever the length of the text in it: copying texts and
    blanks by their lengths takes a sixth more instructions in all. */
inline void convertBlock(char* target, const char* source, int style) {
  std::array<char, caseBlock> block;  // separate, so that the compiler sees that nothing overlaps
  std::memcpy(block.data(), source, caseBlock);
  if (style == C_LOWERCASE) {
    for (char& letter : block) letter = lowerCase(letter);
  } else if (style == C_UPPERCASE) {
    for (char& letter : block) letter = upperCase(letter);
  } else if (style != C_ASIS) {
    convertCase(block.data(), {source, caseBlock}, style);
  }
  std::memcpy(target, block.data(), caseBlock);
}

#endif
