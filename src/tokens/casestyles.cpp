// Letter case. Lower and upper case are converted without a branch or a table, so that the compiler
// can vectorise them.
#include "tokens/casestyles.h"

void convertCase(char* target, std::string_view source, int style, char before) {
  const std::size_t size = source.size();
  switch (style) {
    case C_UPPERCASE:
      for (std::size_t i = 0; i < size; ++i) target[i] = upperCase(source[i]);
      return;
    case C_LOWERCASE:
      for (std::size_t i = 0; i < size; ++i) target[i] = lowerCase(source[i]);
      return;
    case C_CAPITALIZED:
      for (std::size_t i = 0; i < size; ++i) target[i] = lowerCase(source[i]);
      if (size > 0 && before == '\0') target[0] = upperCase(source[0]);
      return;
    case C_CAPITALIZEAFTERUNDERSCORE:
      for (std::size_t i = 0; i < size; ++i) {
        const char letter = source[i];
        target[i] = before == '\0' || before == '_' ? upperCase(letter) : lowerCase(letter);
        before = letter;
      }
      return;
    default: source.copy(target, size);
  }
}
