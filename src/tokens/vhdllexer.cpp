// Splitting a source into tokens: at each position the longest match of the rules wins, of equal
// ones the more specific. A NUL byte ends the stored text of its token.
#include "tokens/vhdllexer.h"

#include <algorithm>
#include <array>
#include <climits>
#include <vector>

#include "base/fatal.h"
#include "tokens/lexrules.h"
#include "tokens/modernrules.h"
#include "tokens/tokencodes.h"
#include "tokens/vhdltoken.h"

namespace {

/** A character that is a token on its own, or together with one of two others after it. */
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

/** The text of every T_BAR, with padding. */
constexpr char barRoom[1 + VhdlToken::textPadding] = "|";
constexpr std::string_view barText(barRoom, 1);

/** The rule has appended its token, or there was none. */
constexpr Match alreadyAdded{T_UNKNOWN, 0};

/** No rule matched. */
constexpr Match noMatch{0, 0};

Match orNoMatch(Match match) { return match.length > 0 ? match : noMatch; }

/** Splits one source into tokens; `isModern` selects the editions whose rules apply, and a source
    of an older one pays nothing for the newer rules. No rule matches past the end of the source: a
    line feed follows it. */
template <bool isModern>
class Lexer {
 public:
  Lexer(const SourceText& source, LexState& counters, TokenList& list)
      : begin(source.begin()),
        at(begin),
        end(source.end()),
        isOdd(source.view().find('\0') != std::string_view::npos || source.view().size() > INT_MAX),
        state(counters),
        yytoklist(list) {}
  /** Adds all tokens of the source, T_EOF last. Flattened, or the two instances would call shared
      rules. */
  [[gnu::flatten]] void addTokens();

 private:
  // Each returns the token at `at`. Rules whose text differs from the source append the token
  // themselves, advance past it and return alreadyAdded.
  Match matchNext();
  Match matchWord();
  Match matchWhitespace();
  Match matchNumber() const;
  Match matchSpecial();
  Match matchEnd();
  Match matchCommentOrDelimiter();
  Match matchTick();
  Match matchPunctuation() const;
  Match orPunctuation(Match match) const;

  // What only the newer editions have; `noMatch` if the older rules are to be tried.
  Match matchModern();
  Match matchModernMark();
  Match matchBrace();
  Match matchOpenComment();
  Match matchProtected();
  Match matchDirective();
  Match openComment();
  /** The code of a word whose meaning depends on the context. */
  int typInContext(int word);

  /** Returns the text of that length and advances past it. */
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

  const char* begin;
  const char* at;
  const char* end;
  bool isOdd;  // does the source hold NUL bytes, or texts too long for an integer?
  bool isEnded = false;
  const char* pathDot = nullptr;     // the dot that opens the path of an external name
  bool awaitsUnit = false;           // has the head of a verification unit begun?
  bool isInRepetition = false;       // is a bracket of a sequence open?
  bool isProtected = false;          // does text for other tools follow?
  const char* commentEnd = nullptr;  // of the current delimited comment
  int braceLevel = 0;                // of sequences
  std::vector<int> branchLevels;     // of parentheses, before each open conditional directive
  LexState& state;
  TokenList& yytoklist;
};

template <bool isModern>
std::string_view Lexer<isModern>::storable(std::string_view text) {
  if (text.size() > INT_MAX) outOfMemory();
  return text.substr(0, text.find('\0'));
}

template <bool isModern>
void Lexer<isModern>::add(Match match) {
  const std::string_view text = take(match.length);
  state.tabs.advance(text.size());
  VhdlToken& token = addToken(match.typ, text);
  if (keepsTabs(match.typ) || *text.data() == '\\') {
    token.setHoldsTabs(text.find('\t') != std::string_view::npos);
  }
  if (match.typ == T_RPAREN) --state.parenLevel;
  if (match.typ == T_NEWLINE) {
    state.tabs.setColumn(0);
    ++state.line;
  }
}

template <bool isModern>
VhdlToken& Lexer<isModern>::addExpanded(int typ, std::size_t length) {
  const std::string_view source = take(length);
  std::string_view text = state.tabs.ReplaceTabs(source);
  if (text.data() != source.data()) {
    const std::span<char> copy = VhdlToken::newText(text, yytoklist.getArena());
    text = {copy.data(), copy.size()};
  }
  return addToken(typ, text);
}

template <bool isModern>
Match Lexer<isModern>::addBlanks(std::size_t length) {
  const int blanks = state.tabs.countBlanks({at, length});
  if (blanks < 0) {  // form feeds and vertical tabs are kept
    addExpanded(T_WHITESPACE, length);
  } else {
    at += length;
    addToken(T_WHITESPACE, blanks);
  }
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchWord() {
  const std::size_t length = matchIdentifier(at);
  if (length == 1) {
    const std::size_t bits = matchBitString(at);
    return bits > 0 ? Match{T_BITSTRING, bits} : Match{T_IDENTIFIER, 1};
  }
  const int word = findReservedWord({at, length}, state.edition);
  if (word == -1) return {T_IDENTIFIER, length};
  if constexpr (isModern) return {typInContext(word), length};
  return {word, length};
}

template <bool isModern>
Match Lexer<isModern>::matchWhitespace() {
  const std::size_t spaces = matchSpaces(at);
  if (hasClass(at[spaces], BLANK)) return addBlanks(matchBlanks(at));
  state.tabs.advance(spaces);
  addToken(T_WHITESPACE, static_cast<int>(take(spaces).size()));
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchNumber() const {
  const std::size_t based = matchBased(at);
  return based > 0 ? Match{T_BASED, based} : Match{T_DECIMAL, matchDecimal(at)};
}

template <bool isModern>
Match Lexer<isModern>::matchSpecial() {
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

template <bool isModern>
Match Lexer<isModern>::matchEnd() {
  isEnded = true;
  addToken(T_EOF, /*blanks*/ 0);
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchCommentOrDelimiter() {
  if (at[1] != '-') return {T_DELIMITER, 1};
  const int typ = commentTyp(at);
  if (typ != T_COMMENT) return {typ, matchComment(at)};
  addExpanded(typ, matchComment(at));
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchTick() {
  if (isTickBeforeLiteral(at)) return {T_TICK, 1};
  if (isCharacterLiteral(at)) return {T_CHARACTER, 3};
  const std::size_t attribute = matchAttribute(at);
  if (attribute == 0) return {T_DELIMITER, 1};
  addExpanded(T_ATTRIBUTE_NAME, attribute).deleteSpaces(yytoklist.getArena());
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchPunctuation() const {
  const Punctuation& entry = punctuations[static_cast<unsigned char>(*at)];
  for (const auto& compound : entry.compounds) {
    if (compound.second == at[1]) return {compound.typ, 2};
  }
  return {entry.alone, 1};
}

template <bool isModern>
Match Lexer<isModern>::orPunctuation(Match match) const {
  return match.length > 0 ? match : matchPunctuation();
}

template <bool isModern>
Match Lexer<isModern>::matchNext() {
  if constexpr (isModern) {
    const Match match = matchModern();
    if (match.typ != noMatch.typ) return match;
  }
  if (hasClass(*at, LETTER)) return matchWord();
  if (hasClass(*at, BLANK)) return matchWhitespace();
  if (hasClass(*at, DIGIT)) return matchNumber();
  return matchSpecial();
}

template <bool isModern>
void Lexer<isModern>::addTokens() {
  if constexpr (isModern) state.parenLevel = 0;
  while (!isEnded) {
    const Match match = matchNext();
    if (match.length > 0) add(match);
  }
}

// --- The newer editions ---

template <bool isModern>
Match Lexer<isModern>::matchModern() {
  if (at < commentEnd) return matchOpenComment();
  if (isProtected) return matchProtected();
  if (hasClass(*at, LETTER | DIGIT)) return matchModernBitString(at);
  return hasClass(*at, BLANK) ? noMatch : matchModernMark();
}

template <bool isModern>
Match Lexer<isModern>::matchModernMark() {
  switch (*at) {
    case '!': return {T_BAR, 1};
    case '\'': return orNoMatch({T_ATTRIBUTE_NAME, matchModernAttribute(at)});
    case '.': return at == pathDot ? Match{T_PATHDOT, 1} : noMatch;
    case '/': return at[1] == '*' ? openComment() : noMatch;
    case '`': return isLineStart(at, begin) ? matchDirective() : noMatch;
    case '{':
    case '}':
    case ']':
    case ';': return matchBrace();
    case '<':
      if (at[1] == '<') pathDot = at + matchBeforePath(at);
      return matchOperator(at);
    case '[': {
      const Match match = matchOperator(at);
      isInRepetition = match.length > 0;
      return match;
    }
    case '?':
    case '>':
    case '|':
    case '-':
    case '&': return matchOperator(at);
    default: return noMatch;
  }
}

template <bool isModern>
int Lexer<isModern>::typInContext(int word) {
  if (word == T_VUNIT || word == T_VPROP || word == T_VMODE) awaitsUnit = true;
  if (state.parenLevel == 0) return word;
  if (word == T_FUNCTION || word == T_PROCEDURE) return T_INTERFACE_SUBPROGRAM;
  return word == T_PACKAGE ? static_cast<int>(T_INTERFACE_PACKAGE) : word;
}

// Semicolons in the braces of a sequence end no statement; the braces of a unit hold declarations.
template <bool isModern>
Match Lexer<isModern>::matchBrace() {
  const bool opensUnit = awaitsUnit && *at == '{';
  const bool closesUnit = braceLevel == 0 && *at == '}';
  if (*at == '{' || *at == ';') awaitsUnit = false;
  if (opensUnit) return {T_LBRACE, 1};
  if (closesUnit) return {T_RBRACE, 1};
  if (*at == ']' && !isInRepetition) return noMatch;
  if (*at == ';') return braceLevel > 0 ? Match{T_SEQUENCE_SEMICOLON, 1} : noMatch;
  isInRepetition = false;
  if (*at == '{') ++braceLevel;
  if (*at == '}') --braceLevel;
  return {T_MATCHING, 1};
}

// One token per line, so that only an extended identifier can hold a line end.
template <bool isModern>
Match Lexer<isModern>::openComment() {
  commentEnd = at + matchBlockComment(at, end);
  const char* lineEnd = std::find(at, commentEnd, '\n');
  const bool isInline = lineEnd == commentEnd && !isLineOver(commentEnd);
  addExpanded(isInline ? T_INLINECOMMENT : T_BLOCKCOMMENT, lengthOfLine(at, lineEnd));
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchOpenComment() {
  if (*at == '\n' || *at == '\r') return noMatch;
  if (hasClass(*at, BLANK)) return addBlanks(matchBlanks(at));
  const char* lineEnd = std::find(at, commentEnd, '\n');
  addExpanded(T_COMMENTLINE, lengthOfLine(at, lineEnd));
  return alreadyAdded;
}

template <bool isModern>
Match Lexer<isModern>::matchDirective() {
  const int typ = directiveTyp(at);
  isProtected = opensProtected(at);
  if (typ == T_IF_DIRECTIVE) branchLevels.push_back(state.parenLevel);
  if (!branchLevels.empty() && typ == T_ELSE_DIRECTIVE) state.parenLevel = branchLevels.back();
  if (!branchLevels.empty() && typ == T_END_DIRECTIVE) branchLevels.pop_back();
  return {typ, matchRestOfLine(at)};
}

template <bool isModern>
Match Lexer<isModern>::matchProtected() {
  if (*at == '\n' || *at == '\r') return noMatch;
  if (!closesProtected(at)) return {T_RAWLINE, matchRestOfLine(at)};
  isProtected = false;
  return *at == '`' ? matchDirective() : noMatch;
}

}  // namespace

void yylex(const SourceText& source, LexState& state, TokenList& yytoklist) {
  if (state.edition >= firstModernEdition) {
    Lexer<true>(source, state, yytoklist).addTokens();
  } else {
    Lexer<false>(source, state, yytoklist).addTokens();
  }
}
