#include "fmt/readingrules.h"

#include <algorithm>
#include <iterator>

#include "base/ascii.h"

namespace {

constexpr std::size_t longestBase = 2;  // letters before a bit string

// By their first characters, which ascend; of one first character the longer ones first.
constexpr std::string_view compounds[] = {
    "!=",  "&&",  "**",  "->", "/=", ":=", "<->", "<<",  "<=",  "<>", "==", "=>",  ">=",  ">>",
    "?/=", "?<=", "?>=", "?<", "?=", "?>", "??",  "[->", "[+]", "[*", "[=", "|->", "|=>", "||"};
static_assert(std::ranges::is_sorted(compounds, {}, [](std::string_view text) { return text[0]; }));

/** Place of the first compound that begins with the character or a later one. */
constexpr auto firstCompounds = [] {
  std::array<unsigned char, 129> table{};
  std::size_t place = 0;
  for (std::size_t character = 0; character < table.size(); ++character) {
    while (place < std::size(compounds) &&
           static_cast<unsigned char>(compounds[place][0]) < character) {
      ++place;
    }
    table[character] = static_cast<unsigned char>(place);
  }
  return table;
}();

constexpr std::string_view bases[] = {"B", "D", "O", "X", "SB", "SO", "SX", "UB", "UO", "UX"};
constexpr std::string_view strongWords[] = {"BEFORE",    "BEFORE_",      "EVENTUALLY",   "NEXT",
                                            "NEXT_A",    "NEXT_E",       "NEXT_EVENT",   "UNTIL",
                                            "UNTIL_",    "NEXT_EVENT_A", "NEXT_EVENT_E", "WHILENOT",
                                            "WHILENOT_", "WITHIN",       "WITHIN_"};
constexpr std::string_view wordsBeforeOperand[] = {
    "ABS",   "AFTER",  "AND",    "ASSERT", "CASE", "DOWNTO", "ELSE", "ELSIF", "EXIT",
    "FORCE", "IF",     "IN",     "IS",     "MOD",  "NAND",   "NOR",  "NOT",   "OR",
    "REM",   "REPORT", "RETURN", "ROL",    "ROR",  "SELECT", "SLA",  "SLL",   "SRA",
    "SRL",   "THEN",   "TO",     "UNTIL",  "WHEN", "WHILE",  "WITH", "XNOR",  "XOR"};

bool isWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() && startsWithWord(text, word);
}

template <std::size_t count>
bool isAmong(std::string_view text, const std::string_view (&words)[count]) {
  return std::ranges::any_of(words, [text](std::string_view word) { return isWord(text, word); });
}

bool isDigitAt(const char* at, const char* end) {
  return at < end && classOf(*at) == CharacterClass::DIGIT;
}

const char* endOfDigits(const char* at, const char* end) {
  while (at < end && (classOf(*at) == CharacterClass::DIGIT || *at == '_')) ++at;
  return at;
}

const char* endOfExponent(const char* at, const char* end) {
  if (at == end || asciiUpper(*at) != 'E') return at;
  const char* digits = at + 1;
  if (digits < end && (*digits == '+' || *digits == '-')) ++digits;
  return isDigitAt(digits, end) ? endOfDigits(digits, end) : at;
}

/** From the first mark of a based literal to after the second one. */
const char* endOfBased(const char* mark, const char* end) {
  const char* here = mark + 1;
  while (here < end && (isWordCharacter(*here) || *here == '.')) ++here;
  return here > mark + 1 && here < end && *here == *mark ? here + 1 : nullptr;
}

}  // namespace

bool startsWithWord(std::string_view text, std::string_view word) {
  return std::ranges::equal(text.substr(0, word.size()), word, {}, asciiUpper);
}

bool isStrongWord(std::string_view word) { return isAmong(word, strongWords); }

bool isBeforeOperand(std::string_view word) { return isAmong(word, wordsBeforeOperand); }

std::size_t lengthOfDelimiter(std::string_view text) {
  const auto character = static_cast<unsigned char>(text[0]);
  for (std::size_t i = firstCompounds[character]; i < firstCompounds[character + 1U]; ++i) {
    if (text.starts_with(compounds[i])) return compounds[i].size();
  }
  return 1;
}

const char* endOfNumber(const char* at, const char* end) {
  const char* here = endOfDigits(at, end);
  if (here == end) return here;
  const char* based = *here == '#' || *here == ':' ? endOfBased(here, end) : nullptr;
  if (based != nullptr) return endOfExponent(based, end);
  if (*here == '.' && isDigitAt(here + 1, end)) here = endOfDigits(here + 1, end);
  return endOfExponent(here, end);
}

const char* endOfBitString(const char* base, const char* end) {
  const char* quote = base;
  while (quote < end && classOf(*quote) == CharacterClass::LETTER) ++quote;
  const auto length = static_cast<std::size_t>(quote - base);
  if (length == 0 || length > longestBase || quote == end) return nullptr;
  if ((*quote != '"' && *quote != '%') || !isAmong({base, length}, bases)) return nullptr;
  return endOfQuoted(quote, end);
}

const char* endOfQuoted(const char* at, const char* end) {
  const char mark = *at;
  for (++at; at < end && *at != '\n'; ++at) {
    if (*at != mark) continue;
    ++at;
    if (at == end || *at != mark) return at;
  }
  return nullptr;
}

const char* endOfCharacter(const char* at, const char* end) {
  if (end - at < 3 || at[1] == '\n') return nullptr;
  const char* close = at + 2;
  if (static_cast<unsigned char>(at[1]) >= 0xC0) {  // UTF-8: continuation bytes
    while (close < end && (static_cast<unsigned char>(*close) & 0xC0) == 0x80) ++close;
  }
  return close < end && *close == '\'' ? close + 1 : nullptr;
}
