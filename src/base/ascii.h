// ASCII letters and digits, whatever the locale.
#ifndef QORN_BASE_ASCII_H
#define QORN_BASE_ASCII_H

[[nodiscard]] constexpr char asciiUpper(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - ('a' - 'A')) : letter;
}

[[nodiscard]] constexpr bool isAsciiDigit(char character) {
  return character >= '0' && character <= '9';
}

#endif
