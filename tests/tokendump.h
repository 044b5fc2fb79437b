// From sources to token lists, and back to what people read.
#ifndef QORN_TESTS_TOKENDUMP_H
#define QORN_TESTS_TOKENDUMP_H

#include <cstdio>
#include <string>
#include <string_view>

#include "base/oldlist.h"
#include "tokens/tabs.h"
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

/** A stream that reads the text, which must outlive it. */
class TextStream {
 public:
  explicit TextStream(std::string_view text)
      : stream(fmemopen(const_cast<char*>(text.data()), text.size(), "r")) {}
  TextStream(const TextStream&) = delete;
  TextStream& operator=(const TextStream&) = delete;
  ~TextStream() { std::fclose(stream); }
  FILE* get() const { return stream; }

 private:
  FILE* stream;
};

/** Reads a source from its first column and appends its tokens. Lines and levels run on. */
inline void lexInto(OldList& list, std::string_view source, int tabSize = 4) {
  const TextStream stream(source);
  yyin = stream.get();
  yytoklist = &list;
  lexColumn = 0;
  YYsetInTabSize(tabSize);
  (void)yylex();
}

#endif
