// Decimal numbers as people write them, in options and configuration.
#ifndef QORN_BASE_NUMBER_H
#define QORN_BASE_NUMBER_H

#include <algorithm>
#include <climits>
#include <cstdlib>

/** The number at the start of the text: blanks, a sign and digits, whatever follows them. 0 without
    digits; a number too large for an integer gives the nearest integer. */
[[nodiscard]] inline int integerAt(const char* text) {
  return static_cast<int>(std::clamp<long>(std::strtol(text, nullptr, 10), INT_MIN, INT_MAX));
}

#endif
