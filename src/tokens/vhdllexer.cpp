// Reading a source and cutting it into tokens: at each place the longest match of the rules, of
// equal ones the more special. A NUL byte ends the stored text of its token.
#include "tokens/vhdllexer.h"

#include <array>

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

/** What there was has been added or passed over. */
constexpr Match nothingLeft{T_UNKNOWN, 0};

/** Cuts one source into tokens. The line feed behind the end of the source lets no rule pass. */
class Lexer {
 public:
  Lexer(const SourceText& source, LexState& counters, OldList& list)
      : at(source.begin()),
        end(source.end()),
        holdsNul(source.view().find('\0') != std::string_view::npos),
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
    if (holdsNul) [[unlikely]]
      return text.substr(0, text.find('\0'));
    return text;
  }
  void add(Match match);
  /** Adds a token of another text; nothing is left. */
  Match addText(int typ, std::string_view text);
  /** Adds a token in whose text tabs have become blanks. */
  Match addExpanded(int typ, std::size_t length) {
    return addText(typ, state.tabs.ReplaceTabs(take(length)));
  }

  const char* at;
  const char* end;
  bool holdsNul;
  bool isEnded = false;
  LexState& state;
  OldList& yytoklist;
};

void Lexer::add(Match match) {
  const std::string_view text = take(match.length);
  state.tabs.advance(text.size());
  yytoklist.addItemLast(new VhdlToken(match.typ, state.line, state.parenLevel, RoomyText{text}));
  if (match.typ == T_RPAREN) --state.parenLevel;
  if (match.typ == T_NEWLINE) {
    state.tabs.setColumn(0);
    ++state.line;
  }
}

Match Lexer::addText(int typ, std::string_view text) {
  auto* token = new VhdlToken(typ, state.line, state.parenLevel, text);
  if (typ == T_ATTRIBUTE_NAME) token->deleteSpaces();
  yytoklist.addItemLast(token);
  return nothingLeft;
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
  if (hasClass(at[spaces], BLANK)) return addExpanded(T_WHITESPACE, matchBlanks(at));
  return {T_WHITESPACE, spaces};
}

Match Lexer::matchNumber() const {
  const std::size_t based = matchBased(at);
  return based > 0 ? Match{T_BASED, based} : Match{T_DECIMAL, matchDecimal(at)};
}

Match Lexer::matchSpecial() {
  switch (*at) {
    case '\n': return at == end ? matchEnd() : Match{T_NEWLINE, 1};
    case '\r': ++at; return nothingLeft;
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
      return addText(T_BAR, "|");
    default: return matchPunctuation();
  }
}

Match Lexer::matchEnd() {
  isEnded = true;
  return addText(T_EOF, "");
}

Match Lexer::matchCommentOrDelimiter() {
  if (at[1] != '-') return {T_DELIMITER, 1};
  const int typ = commentTyp(at);
  return typ == T_COMMENT ? addExpanded(typ, matchComment(at)) : Match{typ, matchComment(at)};
}

Match Lexer::matchTick() {
  if (isTickBeforeLiteral(at)) return {T_TICK, 1};
  if (isCharacterLiteral(at)) return {T_CHARACTER, 3};
  const std::size_t attribute = matchAttribute(at);
  return attribute > 0 ? addExpanded(T_ATTRIBUTE_NAME, attribute) : Match{T_DELIMITER, 1};
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

void yylex(const SourceText& source, LexState& state, OldList& yytoklist) {
  Lexer(source, state, yytoklist).addTokens();
}
