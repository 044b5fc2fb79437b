// From sources to token lists, and back to what people read.
#ifndef QORN_TESTS_TOKENDUMP_H
#define QORN_TESTS_TOKENDUMP_H

#include <cstdio>
#include <list>
#include <string>
#include <string_view>

#include "tokens/tokencodes.h"
#include "tokens/vhdllexer.h"
#include "tokens/vhdltoken.h"

struct NamedCode {
  std::string_view name;
  int typ;
};

constexpr NamedCode namedCodes[] = {
#define QORN_WORD(name, code, word) {#name, code},
#define QORN_CODE(name, code, group) {#name, code},
#include "tokens/tokencodes.def"
};

/** The name of a token code without its prefix; any other number as its digits. */
inline std::string tokenName(int typ) {
  for (const NamedCode& code : namedCodes) {
    if (code.typ == typ) return std::string(code.name.substr(2));
  }
  return std::to_string(typ);
}

/** The text with control characters and bytes beyond ASCII as escapes. */
inline std::string visible(std::string_view text) {
  std::string line;
  for (const char character : text) {
    const std::size_t known = std::string_view("\n\t\r\v\f").find(character);
    char code[5] = {'\\', "ntrvf"[known % 5], '\0'};
    const bool isPlain = character >= ' ' && character <= '~';
    if (known == std::string_view::npos) {
      (void)std::snprintf(code, sizeof code, isPlain ? "%c" : "\\x%02x",
                          static_cast<unsigned char>(character));
    }
    line += code;
  }
  return line;
}

inline std::string repeated(std::string_view text, int count) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

/** VhdlToken::viewText of any text. */
inline std::string textOf(const VhdlToken& token, int formatted) {
  const int blanks = token.countBlanks(formatted);
  if (blanks < 0) return std::string(token.viewText(formatted));
  return std::string(static_cast<std::size_t>(blanks), ' ');
}

/** Appends the tokens of a source, which lives as long as they. Lines and levels run on with the
    state. */
inline void lexInto(TokenList& list, std::string_view text, LexState& state) {
  static std::list<SourceText> sources;
  SourceText& source = sources.emplace_back();
  source.set(text);
  yylex(source, state, list);
}

/** The same from line 1, level 0 and column 0. */
inline void lexInto(TokenList& list, std::string_view text, int tabSize = 4, int edition = 1993) {
  LexState state;
  state.edition = edition;
  state.tabs.YYsetInTabSize(tabSize);
  lexInto(list, text, state);
}

#endif
