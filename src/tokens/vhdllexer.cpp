// Splitting a source into tokens: at each position the longest match of the rules wins, of equal
// ones the more specific. A NUL byte ends the stored text of its token.
#include "tokens/vhdllexer.h"

#include <algorithm>
#include <array>
#include <climits>

#include "base/fatal.h"
#include "tokens/lexrules.h"
#include "tokens/moderncontext.h"
#include "tokens/tokencodes.h"
#include "tokens/vhdltoken.h"

namespace {

/** What a token may be, by its first character. */
enum Start : unsigned char {
  START_MARK,  // delimiters and all characters without a rule of their own
  START_WORD,
  START_NUMBER,
  START_BLANK,
  START_LINE_END,
  START_RETURN,
  START_OPENING,
  START_CLOSING,
  START_HYPHEN,
  START_TICK,
  START_STRING,
  START_EXTENDED,
  START_BAR,
};

constexpr auto starts = [] {
  std::array<Start, 256> table{};
  table.fill(START_MARK);
  for (unsigned i = 0; i < table.size(); ++i) {
    const auto character = static_cast<char>(i);
    if (hasClass(character, LETTER)) table[i] = START_WORD;
    if (hasClass(character, DIGIT)) table[i] = START_NUMBER;
    if (hasClass(character, BLANK)) table[i] = START_BLANK;
  }
  table['\n'] = START_LINE_END;
  table['\r'] = START_RETURN;
  table['('] = START_OPENING;
  table[')'] = START_CLOSING;
  table['-'] = START_HYPHEN;
  table['\''] = START_TICK;
  table['"'] = table['%'] = START_STRING;
  table['\\'] = START_EXTENDED;
  table['!'] = START_BAR;
  return table;
}();

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

/** Splits one source into tokens; `isModern` selects the editions whose rules apply, and a source
    of an older one pays nothing for the newer rules. No rule matches past the end of the source: a
    line feed follows it. */
template <bool isModern>
class Lexer {
 public:
  Lexer(const SourceText& source, LexState& counters, TokenList& list)
      : at(source.begin()),
        end(source.end()),
        isOdd(source.view().find('\0') != std::string_view::npos || source.view().size() > INT_MAX),
        state(counters),
        yytoklist(list),
        context(source, counters.parenLevel) {}
  /** Adds all tokens of the source, T_EOF last. */
  void addTokens();

 private:
  // Each adds the token at `at` and advances past it.
  void addNext();
  bool addModern();
  void addWord();
  void addNumber();
  void addWhitespace();
  void addLineEnd();
  void addOpening();
  void addClosing();
  void addCommentOrDelimiter();
  void addTick();
  void addBar();
  void addMark();
  /** With a length of 0, the mark alone. */
  void addVerbatimOrMark(int typ, std::size_t length);

  void add(int typ, std::size_t length);
  /** A text that may contain tabs and keeps them. */
  void addVerbatim(int typ, std::size_t length);
  /** A text in which tabs become blanks. */
  VhdlToken& addExpanded(int typ, std::size_t length);

  /** Returns the text of that length and advances past it. */
  std::string_view take(std::size_t length) {
    const std::string_view text(at, length);
    at += length;
    if (isOdd) [[unlikely]]
      return storable(text);
    return text;
  }
  static std::string_view storable(std::string_view text);
  /** The end of the line of the source that `at` is on. */
  const char* endOfLine();
  /** Adds a token with a text that need not be the source's, or with a number of blanks. */
  template <typename Text>
  VhdlToken& addToken(int typ, Text text) {
    return *yytoklist.addItemLast(typ, state.line, state.parenLevel, text);
  }

  const char* at;
  const char* end;
  const char* lineEnd = nullptr;  // the line feed found last
  bool isOdd;  // does the source hold NUL bytes, or texts too long for an integer?
  LexState& state;
  TokenList& yytoklist;
  ModernContext context;
};

template <bool isModern>
std::string_view Lexer<isModern>::storable(std::string_view text) {
  if (text.size() > INT_MAX) outOfMemory();
  return text.substr(0, text.find('\0'));
}

// Carriage returns may end any number of comments on one line, so its end is searched for once.
template <bool isModern>
const char* Lexer<isModern>::endOfLine() {
  if (lineEnd < at) {
    const std::string_view rest(at, static_cast<std::size_t>(end - at));
    lineEnd = at + std::min(rest.find('\n'), rest.size());
  }
  return lineEnd;
}

template <bool isModern>
void Lexer<isModern>::add(int typ, std::size_t length) {
  const std::string_view text = take(length);
  state.tabs.advance(text.size());
  addToken(typ, text);
}

template <bool isModern>
void Lexer<isModern>::addVerbatim(int typ, std::size_t length) {
  const std::string_view text = take(length);
  state.tabs.advance(text.size());
  addToken(typ, text).setHoldsTabs(text.find('\t') != std::string_view::npos);
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
void Lexer<isModern>::addWord() {
  const std::size_t length = matchIdentifier(at);
  if (length == 1) {
    const std::size_t bits = matchBitString(at);
    bits > 0 ? add(T_BITSTRING, bits) : add(T_IDENTIFIER, 1);
    return;
  }
  int typ = findReservedWord({at, length}, state.edition);
  if (typ == -1) {
    typ = T_IDENTIFIER;
  } else if constexpr (isModern) {
    typ = context.typOfWord(typ);
  }
  add(typ, length);
}

template <bool isModern>
void Lexer<isModern>::addNumber() {
  const std::size_t based = matchBased(at);
  based > 0 ? add(T_BASED, based) : add(T_DECIMAL, matchDecimal(at));
}

template <bool isModern>
void Lexer<isModern>::addWhitespace() {
  const int blanks = state.tabs.passBlanks(at);
  if (blanks < 0) {  // form feeds and vertical tabs are kept
    addExpanded(T_WHITESPACE, matchBlanks(at));
  } else {
    addToken(T_WHITESPACE, blanks);
  }
}

template <bool isModern>
void Lexer<isModern>::addLineEnd() {
  addToken(T_NEWLINE, take(1));
  state.tabs.setColumn(0);
  ++state.line;
}

template <bool isModern>
void Lexer<isModern>::addOpening() {
  ++state.parenLevel;
  add(T_LPAREN, 1);
}

template <bool isModern>
void Lexer<isModern>::addClosing() {
  add(T_RPAREN, 1);
  --state.parenLevel;
}

template <bool isModern>
void Lexer<isModern>::addCommentOrDelimiter() {
  if (at[1] != '-') {
    add(T_DELIMITER, 1);
    return;
  }
  const int typ = commentTyp(at);
  const std::size_t length = matchComment(at, endOfLine());
  typ == T_COMMENT ? (void)addExpanded(typ, length) : addVerbatim(typ, length);
}

template <bool isModern>
void Lexer<isModern>::addTick() {
  if (isTickBeforeLiteral(at)) {
    add(T_TICK, 1);
  } else if (isCharacterLiteral(at)) {
    addVerbatim(T_CHARACTER, 3);
  } else if (const std::size_t attribute = matchAttribute(at); attribute > 0) {
    addExpanded(T_ATTRIBUTE_NAME, attribute).deleteSpaces(yytoklist.getArena());
  } else {
    add(T_DELIMITER, 1);
  }
}

template <bool isModern>
void Lexer<isModern>::addBar() {
  ++at;
  state.tabs.advance(1);
  addToken(T_BAR, barText);
}

template <bool isModern>
void Lexer<isModern>::addMark() {
  const Punctuation& entry = punctuations[static_cast<unsigned char>(*at)];
  for (const auto& compound : entry.compounds) {
    if (compound.second == at[1]) {
      add(compound.typ, 2);
      return;
    }
  }
  add(entry.alone, 1);
}

template <bool isModern>
void Lexer<isModern>::addVerbatimOrMark(int typ, std::size_t length) {
  length > 0 ? addVerbatim(typ, length) : addMark();
}

template <bool isModern>
bool Lexer<isModern>::addModern() {
  const auto [typ, length] = context.match(at);
  if (length == 0) return false;
  if (isBlockComment(typ) || typ == T_INLINECOMMENT) {
    addExpanded(typ, length);
  } else if (keepsTabs(typ)) {
    addVerbatim(typ, length);
  } else {
    add(typ, length);
  }
  return true;
}

template <bool isModern>
void Lexer<isModern>::addNext() {
  if constexpr (isModern) {
    if (addModern()) return;
  }
  switch (starts[static_cast<unsigned char>(*at)]) {
    case START_WORD: addWord(); break;
    case START_NUMBER: addNumber(); break;
    case START_BLANK: addWhitespace(); break;
    case START_LINE_END: addLineEnd(); break;
    case START_RETURN: ++at; break;
    case START_OPENING: addOpening(); break;
    case START_CLOSING: addClosing(); break;
    case START_HYPHEN: addCommentOrDelimiter(); break;
    case START_TICK: addTick(); break;
    case START_STRING: addVerbatimOrMark(T_STRING, matchString(at)); break;
    case START_EXTENDED: addVerbatimOrMark(T_IDENTIFIER, matchExtendedIdentifier(at, end)); break;
    case START_BAR: addBar(); break;
    case START_MARK: addMark(); break;
  }
}

template <bool isModern>
void Lexer<isModern>::addTokens() {
  if constexpr (isModern) state.parenLevel = 0;
  while (at != end) addNext();
  addToken(T_EOF, /*blanks*/ 0);
}

/** Flattened, so that the lexer's members are in registers. */
template <bool isModern>
[[gnu::flatten]] void lex(const SourceText& source, LexState& state, TokenList& yytoklist) {
  Lexer<isModern>(source, state, yytoklist).addTokens();
}

}  // namespace

void yylex(const SourceText& source, LexState& state, TokenList& yytoklist) {
  const bool isModern = state.edition >= firstModernEdition;
  (isModern ? lex<true> : lex<false>)(source, state, yytoklist);
}
