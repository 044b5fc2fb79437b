// Reading a source and cutting it into tokens: at each place the longest match of the rules, of
// equal ones the more special. A NUL byte ends the stored text of its token.
#include "tokens/vhdllexer.h"

#include <array>
#include <climits>

#include "base/fatal.h"
#include "tokens/lexrules.h"
#include "tokens/tokencodes.h"
#include "tokens/vhdltoken.h"

namespace {

/** A character that is a token of its own, or with one of two others behind it. */
struct Punctuation {
  static constexpr int none = -1000;  // no character
  int alone = T_UNKNOWN;
  struct {
    int second = none;
    int typ = 0;
  } compounds[2];
};

constexpr auto punctuations = [] {
  std::array<Punctuation, 256> table{};
  table.fill(Punctuation{});  // spelled out: gcc 12 leaves entries empty otherwise
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
  table['['] = {T_LBRACKET,  {}};
  table[']'] = {T_RBRACKET,  {}};
  // clang-format on
  return table;
}();

struct Match {
  int typ;
  std::size_t length;
};

/** The text of every T_BAR, with its padding. */
constexpr char barRoom[1 + VhdlToken::textPadding] = "|";
constexpr std::string_view barText(barRoom, 1);

/** The rule has appended its token, or there was none. */
constexpr Match alreadyAdded{T_UNKNOWN, 0};

/** Cuts one source into tokens. The line feed behind the end of the source lets no rule pass. */
class Lexer {
 public:
  Lexer(const SourceText& source, LexState& counters, TokenList& list)
      : at(source.begin()),
        end(source.end()),
        isOdd(source.view().find('\0') != std::string_view::npos || source.view().size() > INT_MAX),
        state(counters),
        yytoklist(list) {}
  /** Adds all tokens of the source, T_EOF last. */
  void addTokens();

 private:
  // Each finds the token at `at`. Those whose texts are not as in the source add it themselves and
  // go on behind it.
  Match matchNext();
  Match matchWord() const;
  Match matchWhitespace();
  Match matchNumber() const;
  Match matchSpecial();
  Match matchEnd();
  Match matchCommentOrDelimiter();
  Match matchTick();
  Match matchPunctuation() const;
  Match orPunctuation(Match match) const;

  /** The text of that length, which is passed over. */
  std::string_view take(std::size_t length) {
    const std::string_view text(at, length);
    at += length;
    if (isOdd) [[unlikely]]
      return storable(text);
    return text;
  }
  static std::string_view storable(std::string_view text);
  void add(Match match);
  /** Adds a token with a text that need not be the source's, or with a number of blanks. */
  template <typename Text>
  VhdlToken& addToken(int typ, Text text) {
    return *yytoklist.addItemLast(typ, state.line, state.parenLevel, text);
  }
  /** Adds a token in whose text tabs have become blanks. */
  VhdlToken& addExpanded(int typ, std::size_t length);
  Match addBlanks(std::size_t length);

  const char* at;
  const char* end;
  bool isOdd;  // does the source hold NUL bytes, or texts whose length is no integer?
  bool isEnded = false;
  LexState& state;
  TokenList& yytoklist;
};

std::string_view Lexer::storable(std::string_view text) {
  if (text.size() > INT_MAX) outOfMemory();
  return text.substr(0, text.find('\0'));
}

void Lexer::add(Match match) {
  const std::string_view text = take(match.length);
  state.tabs.advance(text.size());
  addToken(match.typ, text);
  if (match.typ == T_RPAREN) --state.parenLevel;
  if (match.typ == T_NEWLINE) {
    state.tabs.setColumn(0);
    ++state.line;
  }
}

VhdlToken& Lexer::addExpanded(int typ, std::size_t length) {
  const std::string_view source = take(length);
  std::string_view text = state.tabs.ReplaceTabs(source);
  if (text.data() != source.data()) {
    const std::span<char> copy = VhdlToken::newText(text, yytoklist.getArena());
    text = {copy.data(), copy.size()};
  }
  return addToken(typ, text);
}

Match Lexer::addBlanks(std::size_t length) {
  const int blanks = state.tabs.countBlanks({at, length});
  if (blanks < 0) {  // form feeds and vertical tabs stay
    addExpanded(T_WHITESPACE, length);
  } else {
    at += length;
    addToken(T_WHITESPACE, blanks);
  }
  return alreadyAdded;
}

Match Lexer::matchWord() const {
  const std::size_t length = matchIdentifier(at);
  if (length == 1) {
    const std::size_t bits = matchBitString(at);
    return bits > 0 ? Match{T_BITSTRING, bits} : Match{T_IDENTIFIER, 1};
  }
  const int word = findReservedWord({at, length});
  return {word == -1 ? static_cast<int>(T_IDENTIFIER) : word, length};
}

Match Lexer::matchWhitespace() {
  const std::size_t spaces = matchSpaces(at);
  if (hasClass(at[spaces], BLANK)) return addBlanks(matchBlanks(at));
  state.tabs.advance(spaces);
  addToken(T_WHITESPACE, static_cast<int>(take(spaces).size()));
  return alreadyAdded;
}

Match Lexer::matchNumber() const {
  const std::size_t based = matchBased(at);
  return based > 0 ? Match{T_BASED, based} : Match{T_DECIMAL, matchDecimal(at)};
}

Match Lexer::matchSpecial() {
  switch (*at) {
    case '\n': return at == end ? matchEnd() : Match{T_NEWLINE, 1};
    case '\r': ++at; return alreadyAdded;
    case '(': ++state.parenLevel; return {T_LPAREN, 1};
    case ')': return {T_RPAREN, 1};
    case '-': return matchCommentOrDelimiter();
    case '\'': return matchTick();
    case '"':
    case '%': return orPunctuation({T_STRING, matchString(at)});
    case '\\': return orPunctuation({T_IDENTIFIER, matchExtendedIdentifier(at, end)});
    case '!':
      ++at;
      state.tabs.advance(1);
      addToken(T_BAR, barText);
      return alreadyAdded;
    default: return matchPunctuation();
  }
}

Match Lexer::matchEnd() {
  isEnded = true;
  addToken(T_EOF, /*blanks*/ 0);
  return alreadyAdded;
}

Match Lexer::matchCommentOrDelimiter() {
  if (at[1] != '-') return {T_DELIMITER, 1};
  const int typ = commentTyp(at);
  if (typ != T_COMMENT) return {typ, matchComment(at)};
  addExpanded(typ, matchComment(at));
  return alreadyAdded;
}

Match Lexer::matchTick() {
  if (isTickBeforeLiteral(at)) return {T_TICK, 1};
  if (isCharacterLiteral(at)) return {T_CHARACTER, 3};
  const std::size_t attribute = matchAttribute(at);
  if (attribute == 0) return {T_DELIMITER, 1};
  addExpanded(T_ATTRIBUTE_NAME, attribute).deleteSpaces(yytoklist.getArena());
  return alreadyAdded;
}

Match Lexer::matchPunctuation() const {
  const Punctuation& entry = punctuations[static_cast<unsigned char>(*at)];
  for (const auto& compound : entry.compounds) {
    if (compound.second == at[1]) return {compound.typ, 2};
  }
  return {entry.alone, 1};
}

Match Lexer::orPunctuation(Match match) const {
  return match.length > 0 ? match : matchPunctuation();
}

Match Lexer::matchNext() {
  if (hasClass(*at, LETTER)) return matchWord();
  if (hasClass(*at, BLANK)) return matchWhitespace();
  if (hasClass(*at, DIGIT)) return matchNumber();
  return matchSpecial();
}

void Lexer::addTokens() {
  while (!isEnded) {
    const Match match = matchNext();
    if (match.length > 0) add(match);
  }
}

}  // namespace

void yylex(const SourceText& source, LexState& state, TokenList& yytoklist) {
  Lexer(source, state, yytoklist).addTokens();
}
