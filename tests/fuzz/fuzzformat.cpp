// The whole pipeline. A text that begins with # and nine bytes chooses its settings by them; any
// other text gets the defaults, and then the keys for the newest language.
//
// Checked on the list behind the passes and on the output: no token is lost, moved or changed but
// in its blanks, comments keep their words, what stands behind "--QORN-OFF" comes back, and the
// output is bounded.
#include <algorithm>
#include <array>

#include "fmt/formattext.h"
#include "fuzzing.h"
#include "pipelinerun.h"
#include "scannerprobe.h"

namespace {

constexpr std::string_view blanks = " \t\n\v\f\r";
constexpr std::string_view blockCharacters = "-=*";
constexpr std::string_view offLine = "--QORN-OFF\n";
constexpr std::size_t headerSize = 10;

// --- Settings ---

struct Choice {
  int Settings::*number;
  int byte;  // of the header
  std::array<int, 8> values;
};

constexpr Choice choices[] = {
    {&Settings::lineWidth, 1, {80, 0, 1, 20, 40, 60, 132, 1000}},
    {&Settings::indentation, 2, {4, 0, 1, 2, 3, 8, 40, 100}},
    {&Settings::identLength, 3, {20, 0, 1, 5, 10, 30, 80, 1000}},
    {&Settings::commentStartColumn, 4, {40, -1, 0, 1, 20, 60, 79, 200}},
    {&Settings::blockHeader,
     4,
     {C_LIST, C_WRAPPED, C_WRAPPED, C_LIST, C_A, C_B, C_LIST, C_WRAPPED}},
    {&Settings::oldTabsize, 5, {4, 0, 1, 2, 3, 8, 16, 100}},
    {&Settings::vhdl, 5, {1993, 2019, 2008, 2019, 1987, 2008, 2019, 0}},
    {&Settings::tabSize, 6, {4, 0, 1, 2, 3, 8, 16, 100}},
    {&Settings::tabify, 6, {0, 0, 0, 0, 1, 1, 1, 1}},
    {&Settings::style, 7, {C_A, C_B, C_A, C_B, C_A, C_B, C_A, C_B}},
    {&Settings::extendComments, 7, {1, 1, 0, 0, 1, 1, 0, 0}},
    {&Settings::frameBlockComments, 7, {0, 0, 0, 0, 1, 1, 1, 1}},
    {&Settings::interfaceIdentifierList,
     8,
     {C_WRAPPED, C_VERBOSE, C_ASIS, C_LIST, C_WRAPPED, C_VERBOSE, C_ASIS, C_LIST}},
    {&Settings::associationList,
     8,
     {C_WRAPPED, C_VERBOSE, C_ASIS, C_LIST, C_ASIS, C_LIST, C_WRAPPED, C_VERBOSE}},
};

constexpr std::array caseStyles = {C_ASIS,      C_CAPITALIZED, C_CAPITALIZEAFTERUNDERSCORE,
                                   C_LOWERCASE, C_UPPERCASE,   C_TRUE};

unsigned byteAt(std::string_view header, int place) {
  return static_cast<unsigned char>(header[static_cast<std::size_t>(place)]);
}

/** What the header says; with an empty one, the defaults. */
Settings settingsBy(std::string_view header) {
  Settings settings;
  if (header.empty()) return settings;
  for (const Choice& choice : choices) {
    settings.*choice.number = choice.values[byteAt(header, choice.byte) % 8];
  }
  const unsigned last = byteAt(header, 9);
  settings.keepIndentation = last % 2 == 1 ? 1 : 0;
  settings.caseStyles.setGroup(CASE_KEYWORD, caseStyles[last / 2 % 6]);
  settings.caseStyles.setGroup(CASE_IDENTIFIER, caseStyles[last / 3 % 6]);
  settings.caseStyles.setGroup(CASE_NUMBER, caseStyles[last / 5 % 6]);
  settings.caseStyles.setGroup(CASE_ATTRIBUTE, caseStyles[last / 7 % 6]);
  return settings;
}

// --- Properties ---

/** The words of a comment, without the marks and fillers that reflowing adds and takes away. */
void addWords(std::string& words, std::string_view comment, std::string_view mark) {
  if (comment.starts_with(mark)) comment.remove_prefix(mark.size());
  while (!comment.empty()) {
    const std::size_t end = std::min(comment.find(' '), comment.size());
    const std::string_view word = comment.substr(0, end);
    const std::size_t last = word.find_last_not_of(blockCharacters);
    if (last != std::string_view::npos) words.append(word.substr(0, last + 1)).append(" ");
    comment.remove_prefix(std::min(end + 1, comment.size()));
  }
}

/** What has become of one token of the source. */
void requireKept(const VhdlToken& token, const Lexed& source) {
  const std::string text = textOf(token, 1);
  require(token.getTyp() == source.typ && textOf(token, 0) == source.text, "sources stay");
  if (source.typ == T_WHITESPACE || source.typ == T_NEWLINE) {
    require(without(text, blanks).empty(), "blanks stay blank", text);
  } else if (source.typ != T_COMMENT) {
    require(without(text, blanks) == without(source.text, blanks), "code stays", text);
  }
}

void requireInserted(const VhdlToken& token) {
  const int typ = token.getTyp();
  require(typ == T_WHITESPACE || typ == T_NEWLINE || typ == T_COMMENT, "layout is inserted");
  require(token.textLength(0) == 0, "an inserted token has no source");
  if (typ != T_COMMENT) require(without(textOf(token, 1), blanks).empty(), "with blanks alone");
}

/** The list behind the passes holds the tokens of the source in their order. */
void requireSourceKept(TokenList& list, const std::vector<Lexed>& source) {
  std::size_t next = 0;
  std::string words;
  std::string sourceWords;
  list.getFirst();  // the sentinel
  while (const auto* token = list.getNext()) {
    const bool isInserted = token->getLineNo() == 0;
    if (isInserted) {
      requireInserted(*token);
    } else {
      require(next < source.size(), "no token comes from nowhere");
      requireKept(*token, source[next++]);
    }
    if (token->getTyp() != T_COMMENT) continue;
    addWords(words, textOf(*token, 1), isInserted ? "-- " : "--");
    addWords(sourceWords, textOf(*token, 0), "--");
  }
  require(next == source.size(), "no token is lost");
  require(words == sourceWords, "comments keep their words", words + "\n" + sourceWords);
}

/** The output shows the tokens by the switches of the pragma comments, and nothing else. */
void requireListPrinted(TokenList& list, std::string_view output) {
  std::string expected;
  int formatting = 1;
  int layout = 1;
  list.getFirst();
  while (const auto* token = list.getNext()) {
    const int typ = token->getTyp();
    if (typ == T_FORMAT_ON || typ == T_FORMAT_OFF) formatting = typ == T_FORMAT_ON ? 1 : 0;
    if (typ == T_INDENT_ON || typ == T_INDENT_OFF) layout = typ == T_INDENT_ON ? 1 : 0;
    expected += without(textOf(*token, formatting & layout), blanks);
  }
  require(folded(without(output, blanks)) == folded(expected), "output is the list", output);
}

/** A column is made of texts to its left, here or on the lines that the indent comes from, with at
    most one step for each token, and comments reach to the line's width. Every printed line end
    stands before or behind a token or a piece of a comment. */
void requireBounded(const Settings& settings, const std::vector<Lexed>& source,
                    std::string_view output) {
  const int step = std::max(settings.indentation, settings.identLength) + 16;
  const int margin = settings.lineWidth + settings.commentStartColumn;
  std::size_t bytes = 0;
  for (const Lexed& token : source) bytes += token.text.size();
  const std::size_t widest = bytes + source.size() * static_cast<std::size_t>(step) +
                             static_cast<std::size_t>(std::max(margin, 0)) + 16;
  std::size_t lines = 0;
  for (std::size_t at = 0; at < output.size(); ++lines) {
    const std::size_t end = std::min(output.find('\n', at), output.size());
    require(end - at <= widest, "no line is wider than its tokens call for", output);
    at = end + 1;
  }
  require(lines <= 2 * source.size() + bytes, "line ends are bounded", output);
}

/** A text behind "--QORN-OFF" comes back as the lexer read it. */
void requireOffComesBack(Settings settings, std::string_view text,
                         const std::vector<Lexed>& source) {
  std::string expected(offLine);
  for (const Lexed& token : source) {
    if (token.typ == T_FORMAT_ON) return;
    expected += token.text;
  }
  settings.tabify = 0;
  VhdlScanner scanner(settings);
  require(formatted(scanner, std::string(offLine).append(text)) == expected, "off is off", text);
}

/** What settled stays. */
void requireSettled(const Settings& settings, std::string_view text) {
  const SettledText result = formatUntilSettled(text, settings);
  if (result.settlement != SETTLED && result.settlement != SWINGING) return;
  require(formatUntilSettled(result.text, settings).text == result.text, "a result stays", text);
}

void requireAll(const Settings& settings, std::string_view text) {
  const std::vector<Lexed> source = lexed(text, settings.oldTabsize, settings.vhdl);
  VhdlScanner scanner(settings);
  const std::string output = formatted(scanner, text);
  TokenList& list = ScannerProbe::tokenList(scanner);
  require(list.countPushedAnchors() == 0, "every anchor saved is restored");
  requireWholeLinks(list);
  requireSourceKept(list, source);
  requireListPrinted(list, output);
  requireBounded(settings, source, output);
  requireOffComesBack(settings, text, source);
  require(formatText(text, settings) == output, "the library does the same", text);
  requireSettled(settings, text);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = viewInput(data, size);
  const bool isConfigured = size >= headerSize && input[0] == '#';
  const std::string_view header = input.substr(0, isConfigured ? headerSize : 0);
  const std::string_view text = input.substr(header.size());
  Settings settings = settingsBy(header);
  requireAll(settings, text);
  if (isConfigured) return 0;
  settings.vhdl = 2019;
  settings.blockHeader = C_WRAPPED;
  requireAll(settings, text);
  return 0;
}
