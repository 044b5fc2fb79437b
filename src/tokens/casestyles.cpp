// Letter case. Lower and upper case go without a branch or a table, so that the compiler converts
// many letters at once.
#include "tokens/casestyles.h"

#include <cstring>

namespace {

constexpr int caseDistance = 'a' - 'A';
constexpr unsigned letterCount = 26;

char lower(char letter) {
  const bool isUpper = static_cast<unsigned char>(letter - 'A') < letterCount;
  return static_cast<char>(letter + (isUpper ? caseDistance : 0));
}

char upper(char letter) {
  const bool isLower = static_cast<unsigned char>(letter - 'a') < letterCount;
  return static_cast<char>(letter - (isLower ? caseDistance : 0));
}

}  // namespace

void convertCase(char* target, std::string_view source, int style, char before) {
  const std::size_t size = source.size();
  switch (style) {
    case C_UPPERCASE:
      for (std::size_t i = 0; i < size; ++i) target[i] = upper(source[i]);
      return;
    case C_LOWERCASE:
      for (std::size_t i = 0; i < size; ++i) target[i] = lower(source[i]);
      return;
    case C_CAPITALIZED:
      for (std::size_t i = 0; i < size; ++i) target[i] = lower(source[i]);
      if (size > 0 && before == '\0') target[0] = upper(source[0]);
      return;
    case C_CAPITALIZEAFTERUNDERSCORE:
      for (std::size_t i = 0; i < size; ++i) {
        const char letter = source[i];
        target[i] = before == '\0' || before == '_' ? upper(letter) : lower(letter);
        before = letter;
      }
      return;
    default: source.copy(target, size);
  }
}

void convertBlock(char* target, const char* source, int style) {
  std::array<char, caseBlock> block;  // apart, so that the compiler sees that nothing overlaps
  std::memcpy(block.data(), source, caseBlock);
  if (style == C_LOWERCASE) {
    for (char& letter : block) letter = lower(letter);
  } else if (style == C_UPPERCASE) {
    for (char& letter : block) letter = upper(letter);
  } else if (style != C_ASIS) {
    convertCase(block.data(), {source, caseBlock}, style);
  }
  std::memcpy(target, block.data(), caseBlock);
}
