// The rules of the reading. Each looks at one line at most, so that a text with an unterminated
// string or name costs no more than any other.
#ifndef QORN_FMT_READINGRULES_H
#define QORN_FMT_READINGRULES_H

#include <array>
#include <string_view>

enum class CharacterClass : unsigned char {
  FOREIGN,  // no character of VHDL outside comments and literals
  BLANK,    // a carriage return too
  LINE_FEED,
  LETTER,  // underline and every byte beyond ASCII too
  DIGIT,
  DELIMITER,
  SPECIAL,  // a delimiter, or the begin of something longer
};

constexpr auto characterClasses = [] {
  std::array<CharacterClass, 256> table{};
  const auto set = [&table](std::string_view characters, CharacterClass value) {
    for (const char character : characters) table[static_cast<unsigned char>(character)] = value;
  };
  set(" \t\v\f\r", CharacterClass::BLANK);
  set("\n", CharacterClass::LINE_FEED);
  set("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_", CharacterClass::LETTER);
  for (std::size_t i = 128; i < table.size(); ++i) table[i] = CharacterClass::LETTER;
  set("0123456789", CharacterClass::DIGIT);
  set("&()*+,.:;<=>?@[]^{|}!", CharacterClass::DELIMITER);
  set("-/'\"%\\`", CharacterClass::SPECIAL);
  return table;
}();

[[nodiscard]] constexpr CharacterClass classOf(char character) {
  return characterClasses[static_cast<unsigned char>(character)];
}
[[nodiscard]] constexpr bool isWordCharacter(char character) {
  return classOf(character) == CharacterClass::LETTER ||
         classOf(character) == CharacterClass::DIGIT;
}

/** Whether the text begins with the word, which is in upper case, in any case. */
[[nodiscard]] bool startsWithWord(std::string_view text, std::string_view word);
/** A word of PSL that a ! makes strong. */
[[nodiscard]] bool isStrongWord(std::string_view word);
/** A reserved word that an operand follows, so that a tick after it begins a character. */
[[nodiscard]] bool isBeforeOperand(std::string_view word);

/** Of a single or a compound one; the text begins with it. */
[[nodiscard]] std::size_t lengthOfDelimiter(std::string_view text);

// Each is the end of what begins at `at`. Where a null pointer can come out, nothing of the kind
// begins there, or it doesn't end on its line.
[[nodiscard]] const char* endOfNumber(const char* at, const char* end);
/** Null without a quote. Its length, if any, precedes it. */
[[nodiscard]] const char* endOfBitString(const char* base, const char* end);
/** Of a string or an extended identifier: the mark at `at` ends it unless it is doubled. */
[[nodiscard]] const char* endOfQuoted(const char* at, const char* end);
[[nodiscard]] const char* endOfCharacter(const char* at, const char* end);

#endif
