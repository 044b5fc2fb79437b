// The lexer: source texts joined give the input back, and every token stands for itself.
#include <algorithm>

#include "fuzzing.h"

namespace {

/** The input as tokens can show it: `!` reads as a bar, tabs as blanks, and a carriage return is
    dropped between tokens. */
std::string comparable(std::string_view text, std::string_view input) {
  std::string dropped;
  if (input.find('\r') != std::string_view::npos) dropped += '\r';
  if (input.find('\t') != std::string_view::npos) dropped += "\t ";
  std::string result = without(text, dropped);
  std::ranges::replace(result, '!', '|');
  return result;
}

/** A token's class and text don't depend on what stands around it. A lone `\` would pair with the
    next one, and the tick before a parenthesis takes its class from what follows. */
void requireSameAlone(const std::vector<Lexed>& tokens) {
  const std::vector<Lexed> separator = {{T_NEWLINE, "\n"}, {T_SEMICOLON, ";"}, {T_NEWLINE, "\n"}};
  std::string text;
  std::vector<Lexed> expected;
  for (const Lexed& token : tokens) {
    if (token.typ == T_TICK || token.typ == T_BAR || token.text == "\\") continue;
    text += token.text + (token.typ == T_EOF ? "" : "\n;\n");
    expected.push_back(token);
    if (token.typ != T_EOF) expected.insert(expected.end(), separator.begin(), separator.end());
  }
  require(lexed(text) == expected, "tokens lex the same by themselves", text);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = viewInput(data, size);
  const std::vector<Lexed> tokens = lexed(input);
  require(tokens.back().typ == T_EOF && tokens.back().text.empty(), "the end closes the list");
  require(std::ranges::count(tokens, T_EOF, &Lexed::typ) == 1, "there is one end");
  if (input.find('\0') != std::string_view::npos) return 0;  // ends the text of its token
  for (const int edition : {1993, 2019}) {
    std::string joined;
    for (const Lexed& token : lexed(input, /*tabSize*/ 4, edition)) joined += token.text;
    require(comparable(joined, input) == comparable(input, input), "texts give the input", joined);
  }
  requireSameAlone(tokens);
  return 0;
}
