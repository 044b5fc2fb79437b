// The rules. They look ahead over blanks and one word at most, except for the end of a comment.
#include "tokens/modernrules.h"

#include <algorithm>
#include <string_view>

#include "base/ascii.h"
#include "tokens/lexrules.h"
#include "tokens/tokencodes.h"

namespace {

struct Operator {
  std::string_view text;
  int typ;
};

// clang-format off
constexpr Operator operators[] = {  // longer ones before their prefixes
    {"?/=", T_MATCHING}, {"?<=", T_MATCHING}, {"?>=", T_MATCHING}, {"?=", T_MATCHEQUAL},
    {"?<",  T_MATCHING}, {"?>",  T_MATCHING}, {"??",  T_MATCHING},
    {"<->", T_MATCHING}, {"<<",  T_OPENEXTERNAL},
    {">>",  T_CLOSEEXTERNAL},
    {"|->", T_MATCHING}, {"|=>", T_MATCHING}, {"->",  T_MATCHING}, {"&&",  T_MATCHING},
    {"[->", T_MATCHING}, {"[*",  T_MATCHING}, {"[+",  T_MATCHING}, {"[=",  T_MATCHING},
};
constexpr std::string_view attributes[] = {"CONVERSE", "DESIGNATED_SUBTYPE", "ELEMENT", "SUBTYPE"};
// clang-format on

/** Does the text begin with the word, and does the word end there? */
bool hasWord(const char* at, std::string_view word) {
  return startsWith(at, word) && !hasClass(at[word.size()], LETTER | DIGIT) &&
         at[word.size()] != '_';
}

/** The position after the first word of a directive and the blanks that follow it. */
const char* behindWord(const char* at) {
  const char* word = at + 1;
  word += matchBlanks(word);
  word += matchIdentifier(word);
  return word + matchBlanks(word);
}

/** The digits of a base, after any U or S; 0 if there is no base. */
int digitsOfBase(const char* base) {
  switch (asciiUpper(*base)) {
    case 'X': return HEX;
    case 'O': return OCTAL;
    case 'B': return BINARY;
    case 'D': return DIGIT;
    default: return 0;
  }
}

}  // namespace

Match matchOperator(const char* at) {
  for (const Operator& candidate : operators) {
    if (startsWith(at, candidate.text)) return {candidate.typ, candidate.text.size()};
  }
  return noMatch;
}

Match matchModernBitString(const char* at) {
  const char* base = at;
  if (hasClass(*at, DIGIT)) base += matchInteger(at);
  const char sign = asciiUpper(*base);
  if (sign == 'U' || sign == 'S') ++base;
  const int digits = digitsOfBase(base);
  if (digits == 0 || (base[1] != '"' && base[1] != '%')) return noMatch;
  const std::size_t value = matchString(base + 1);
  if (value == 0) return noMatch;
  const std::string_view text(base + 2, value - 2);
  const bool isNumber = std::ranges::all_of(
      text, [digits](char digit) { return hasClass(digit, digits) || digit == '_'; });
  return {isNumber ? T_BITSTRING : T_STRING, static_cast<std::size_t>(base + 1 - at) + value};
}

std::size_t matchModernAttribute(const char* at) {
  const auto* found = std::ranges::find_if(
      attributes, [at](std::string_view name) { return hasWord(at + 1, name); });
  return found == std::end(attributes) ? 0 : 1 + found->size();
}

std::size_t matchBeforePath(const char* at) {
  const auto pass = [](const char* here) {
    while (hasClass(*here, BLANK) || *here == '\r') ++here;
    return here;
  };
  const char* word = pass(at + 2);
  const char* dot = pass(word + matchIdentifier(word));
  return *dot == '.' && dot > word ? static_cast<std::size_t>(dot - at) : 0;
}

std::size_t matchBlockComment(const char* at, const char* end) {
  const std::string_view text(at, static_cast<std::size_t>(end - at));
  const std::size_t close = text.find("*/", 2);
  return close == std::string_view::npos ? text.size() : close + 2;
}

bool isLineOver(const char* at) {
  while (hasClass(*at, BLANK) || *at == '\r') ++at;
  return *at == '\n' || (*at == '-' && at[1] == '-');
}

bool isLineStart(const char* at, const char* begin) {
  while (at > begin && hasClass(at[-1], BLANK)) --at;
  return at == begin || at[-1] == '\n';
}

int directiveTyp(const char* at) {
  const char* word = at + 1;
  word += matchBlanks(word);
  if (hasWord(word, "IF")) return T_IF_DIRECTIVE;
  if (hasWord(word, "ELSE") || hasWord(word, "ELSIF")) return T_ELSE_DIRECTIVE;
  return hasWord(word, "END") ? T_END_DIRECTIVE : T_DIRECTIVE;
}

bool opensProtected(const char* at) {
  return startsWith(at, "`PROTECT") && hasWord(behindWord(at), "BEGIN_PROTECTED");
}

bool closesProtected(const char* at) {
  at += matchBlanks(at);
  return startsWith(at, "`PROTECT") && hasWord(behindWord(at), "END_PROTECTED");
}

std::size_t matchRestOfLine(const char* at) {
  const char* lineEnd = at;
  while (*lineEnd != '\n') ++lineEnd;
  return lengthOfLine(at, lineEnd);
}

std::size_t lengthOfLine(const char* at, const char* lineEnd) {
  while (lineEnd > at && lineEnd[-1] == '\r') --lineEnd;
  return static_cast<std::size_t>(lineEnd - at);
}
