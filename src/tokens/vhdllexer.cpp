// Reading a source and cutting it into tokens: at each place the longest match of the rules, of
// equal ones the more special. A NUL byte ends the stored text of its token.
#include "tokens/vhdllexer.h"

#include <array>

#include "base/sourcetext.h"
#include "tokens/lexrules.h"
#include "tokens/tabs.h"
#include "tokens/tokencodes.h"
#include "tokens/vhdltoken.h"

FILE* yyin = nullptr;
const char* yyname = "standard input";
OldList* yytoklist = nullptr;

namespace {

int lexLine = 1;
int lexParenLevel = 0;

/** A character that is a token of its own, or with one of two others behind it. */
struct Punctuation {
  int alone;
  struct {
    char second;
    int typ;
  } compounds[2];
};

constexpr auto punctuations = [] {
  std::array<Punctuation, 256> table{};
  for (auto& entry : table) entry = {T_UNKNOWN, {{'\0', 0}, {'\0', 0}}};
  for (const char delimiter : {'&', '\'', '+', '-', '|'}) {
    table[static_cast<unsigned char>(delimiter)].alone = T_DELIMITER;
  }
  // clang-format off
  table[':'] = {T_COLON,     {{'=', T_VARASSIGN}}};
  table['='] = {T_EQUAL,     {{'>', T_ARROW}}};
  table['<'] = {T_DELIMITER, {{'=', T_SIGASSIGN}, {'>', T_BOX}}};
  table['>'] = {T_DELIMITER, {{'=', T_GREATEREQ}}};
  table['/'] = {T_DELIMITER, {{'=', T_NOTEQUAL}}};
  table['*'] = {T_DELIMITER, {{'*', T_POWER}}};
  table[';'] = {T_SEMICOLON, {}};
  table[','] = {T_COMMA,     {}};
  table['.'] = {T_DOT,       {}};
  table['('] = {T_LPAREN,    {}};
  table[')'] = {T_RPAREN,    {}};
  table['['] = {T_LBRACKET,  {}};
  table[']'] = {T_RBRACKET,  {}};
  table['!'] = {T_BAR,       {}};
  // clang-format on
  return table;
}();

struct Match {
  int typ;
  std::size_t length;
};

Match matchWord(const char* at) {
  const std::size_t bits = matchBitString(at);
  if (bits > 0) return {T_BITSTRING, bits};
  const std::size_t length = matchIdentifier(at);
  const int word = findReservedWord({at, length});
  return {word == -1 ? static_cast<int>(T_IDENTIFIER) : word, length};
}

Match matchNumber(const char* at) {
  const std::size_t based = matchBased(at);
  if (based > 0) return {T_BASED, based};
  return {T_DECIMAL, matchDecimal(at)};
}

Match matchTick(const char* at) {
  if (isTickBeforeLiteral(at)) return {T_TICK, 1};
  if (isCharacterLiteral(at)) return {T_CHARACTER, 3};
  const std::size_t attribute = matchAttribute(at);
  if (attribute > 0) return {T_ATTRIBUTE_NAME, attribute};
  return {T_DELIMITER, 1};
}

Match matchPunctuation(const char* at) {
  const Punctuation& entry = punctuations[static_cast<unsigned char>(*at)];
  for (const auto& compound : entry.compounds) {
    if (compound.second != '\0' && compound.second == at[1]) return {compound.typ, 2};
  }
  return {entry.alone, 1};
}

/** The longest match at a place before the end, a carriage return excepted. */
Match matchToken(const char* at, const char* end) {
  if (hasClass(*at, LETTER)) return matchWord(at);
  if (hasClass(*at, BLANK)) return {T_WHITESPACE, matchBlanks(at)};
  if (hasClass(*at, DIGIT)) return matchNumber(at);
  std::size_t length = 0;
  switch (*at) {
    case '\n': return {T_NEWLINE, 1};
    case '\'': return matchTick(at);
    case '-':
      if (at[1] == '-') return {commentTyp(at), matchComment(at)};
      break;
    case '"':
    case '%':
      length = matchString(at);
      if (length > 0) return {T_STRING, length};
      break;
    case '\\':
      length = matchExtendedIdentifier(at, end);
      if (length > 0) return {T_IDENTIFIER, length};
      break;
    default: break;
  }
  return matchPunctuation(at);
}

/** Appends a token at the current line and level; tabs are expanded where the code says so. */
void addToken(std::string_view text, int typ) {
  if (!expandsTabs(typ)) {
    lexColumn = typ == T_NEWLINE ? 0 : lexColumn + static_cast<long>(text.size());
    yytoklist->addItemLast(new VhdlToken(typ, lexLine, lexParenLevel, text));
    return;
  }
  auto* token = new VhdlToken(typ, lexLine, lexParenLevel, ReplaceTabs(text));
  if (typ == T_ATTRIBUTE_NAME) token->deleteSpaces();
  yytoklist->addItemLast(token);
}

}  // namespace

int yylex() {
  const SourceText source(yyin, yyname);
  const bool holdsNul = source.view().find('\0') != std::string_view::npos;
  const char* at = source.begin();
  int typ = 0;
  while (typ != T_EOF) {
    while (*at == '\r') ++at;
    const Match match = at == source.end() ? Match{T_EOF, 0} : matchToken(at, source.end());
    std::string_view text(at, match.length);
    at += match.length;
    typ = match.typ;
    if (holdsNul) text = text.substr(0, text.find('\0'));
    if (typ == T_BAR) text = "|";
    if (typ == T_LPAREN) ++lexParenLevel;
    addToken(text, typ);
    if (typ == T_RPAREN) --lexParenLevel;
    if (typ == T_NEWLINE) ++lexLine;
  }
  return 0;
}
