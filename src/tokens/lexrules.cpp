// The rules. Each scans a stretch of text once. A rule that fails is never tried again on the same
// stretch, so lexing is linear on any input.
#include "tokens/lexrules.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/ascii.h"
#include "tokens/tokencodes.h"

namespace {

constexpr std::string_view attributeNames[] = {
    "ACTIVE",        "ASCENDING",  "BASE",        "BEHAVIOR", "DELAYED",       "DRIVING",
    "DRIVING_VALUE", "EVENT",      "HIGH",        "IMAGE",    "INSTANCE_NAME", "LAST_ACTIVE",
    "LAST_EVENT",    "LAST_VALUE", "LEFT",        "LEFTOF",   "LENGTH",        "LOW",
    "PATH_NAME",     "POS",        "PRED",        "QUIET",    "RANGE",         "REVERSE_RANGE",
    "RIGHT",         "RIGHTOF",    "SIMPLE_NAME", "STABLE",   "STRUCTURE",     "SUCC",
    "TRANSACTION",   "VAL",        "VALUE"};
static_assert(std::ranges::is_sorted(attributeNames));
constexpr std::size_t shortestAttribute = 3;
constexpr std::size_t longestAttribute = 13;

struct Pragma {
  std::string_view word;
  int typ;
};

constexpr std::string_view pragmaMark = "--QORN-";
constexpr Pragma pragmas[] = {
    {"ON", T_FORMAT_ON},
    {"OFF", T_FORMAT_OFF},
    {"INDENT-ON", T_INDENT_ON},
    {"INDENT-OFF", T_INDENT_OFF},
};

/** A digit of the class, then further ones, each with at most one `_` before it. */
std::size_t matchDigits(const char* at, int digits) {
  if (!hasClass(*at, digits)) return 0;
  const char* here = at + 1;
  for (;;) {
    while (hasClass(*here, digits)) ++here;
    if (*here != '_' || !hasClass(here[1], digits)) break;
    ++here;
  }
  return static_cast<std::size_t>(here - at);
}

/** E, a sign if one stands there, and an integer. */
std::size_t matchExponent(const char* at, bool mayBeNegative) {
  if (asciiUpper(*at) != 'E') return 0;
  const bool hasSign = at[1] == '+' || (at[1] == '-' && mayBeNegative);
  const std::size_t front = hasSign ? 2 : 1;
  const std::size_t digits = matchDigits(at + front, DIGIT);
  return digits == 0 ? 0 : front + digits;
}

/** A point and digits. */
std::size_t matchFraction(const char* at, int digits) {
  if (*at != '.') return 0;
  const std::size_t fraction = matchDigits(at + 1, digits);
  return fraction == 0 ? 0 : 1 + fraction;
}

int digitsOfBase(char prefix) {
  switch (asciiUpper(prefix)) {
    case 'X': return HEX;
    case 'O': return OCTAL;
    case 'B': return BINARY;
    default: return 0;
  }
}

}  // namespace

bool startsWith(const char* at, std::string_view word) {
  return std::ranges::all_of(word, [&at](char letter) { return asciiUpper(*at++) == letter; });
}

std::size_t matchExtendedIdentifier(const char* at, const char* end) {
  const char* first = at + 1;
  const void* close = std::memchr(first, '\\', static_cast<std::size_t>(end - first));
  if (close == nullptr || close == first) return 0;
  return static_cast<std::size_t>(static_cast<const char*>(close) - at) + 1;
}

std::size_t matchIdentifier(const char* at) {
  return hasClass(*at, LETTER) ? matchDigits(at, LETTER | DIGIT) : 0;
}

std::size_t matchBlanks(const char* at) {
  const char* here = at;
  while (hasClass(*here, BLANK)) ++here;
  return static_cast<std::size_t>(here - at);
}

std::size_t matchInteger(const char* at) { return matchDigits(at, DIGIT); }

std::size_t matchDecimal(const char* at) {
  const std::size_t integer = matchDigits(at, DIGIT);
  if (integer == 0) return 0;
  const std::size_t fraction = matchFraction(at + integer, DIGIT);
  const std::size_t mantissa = integer + fraction;
  return mantissa + matchExponent(at + mantissa, /*mayBeNegative*/ fraction > 0);
}

std::size_t matchBased(const char* at) {
  std::size_t length = matchDigits(at, DIGIT);
  if (length == 0) return 0;
  const char mark = at[length];
  if (mark != '#' && mark != ':') return 0;
  ++length;
  const std::size_t digits = matchDigits(at + length, HEX);
  if (digits == 0) return 0;
  length += digits;
  length += matchFraction(at + length, HEX);
  if (at[length] != mark) return 0;
  ++length;
  return length + matchExponent(at + length, /*mayBeNegative*/ true);
}

std::size_t matchString(const char* at) {
  const char quote = *at;
  std::size_t complete = 0;
  const char* here = at + 1;
  for (;;) {
    while (*here != quote && *here != '\n') ++here;
    if (*here == '\n') return complete;
    complete = static_cast<std::size_t>(here - at) + 1;
    if (here[1] != quote) return complete;
    here += 2;
  }
}

std::size_t matchBitString(const char* at) {
  const char quote = at[1];
  if (quote != '"' && quote != '%') return 0;
  const int digits = digitsOfBase(*at);
  if (digits == 0) return 0;
  const std::size_t count = matchDigits(at + 2, digits);
  if (count == 0 || at[2 + count] != quote) return 0;
  return count + 3;
}

std::size_t matchAttribute(const char* at) {
  const char* name = at + 1;
  while (hasClass(*name, BLANK) || *name == '\n') ++name;
  std::array<char, longestAttribute> letters;
  std::size_t length = 0;
  while (length < longestAttribute && (hasClass(name[length], LETTER) || name[length] == '_')) {
    letters[length] = asciiUpper(name[length]);
    ++length;
  }
  for (; length >= shortestAttribute; --length) {
    if (std::ranges::binary_search(attributeNames, std::string_view(letters.data(), length))) {
      return static_cast<std::size_t>(name - at) + length;
    }
  }
  return 0;
}

bool isCharacterLiteral(const char* at) { return at[1] != '\n' && at[2] == '\''; }

bool isTickBeforeLiteral(const char* at) {
  return at[1] == '(' && at[2] == '\'' && isCharacterLiteral(at + 2);
}

std::size_t matchComment(const char* at, const char* lineEnd) {
  const std::string_view line(at, static_cast<std::size_t>(lineEnd - at));
  return std::min(line.find('\r'), line.size());
}

int commentTyp(const char* at) {
  if (!startsWith(at, pragmaMark)) return T_COMMENT;
  for (const Pragma& pragma : pragmas) {
    if (startsWith(at + pragmaMark.size(), pragma.word)) return pragma.typ;
  }
  return T_COMMENT;
}
