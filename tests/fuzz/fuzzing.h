// What the fuzz targets share. A target is a function over one text; it aborts where a property
// does not hold.
#ifndef QORN_TESTS_FUZZ_FUZZING_H
#define QORN_TESTS_FUZZ_FUZZING_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/ascii.h"
#include "tokendump.h"
#include "tokens/vhdltoken.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/** Ends the run with a message unless the property holds. */
inline void require(bool holds, std::string_view property, std::string_view shown = "") {
  if (holds) return;
  std::fprintf(stderr, "\nproperty fails: %s\n%s\n", std::string(property).c_str(),
               std::string(shown).c_str());
  std::abort();
}

inline std::string_view viewInput(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/** The links of a list lead through the same items forward and backward. */
template <typename Item>
void requireWholeLinks(OldList<Item>& list) {
  std::vector<const Item*> items;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) items.push_back(item);
  for (auto* item = list.getLast(); item != nullptr; item = list.getPrev()) {
    require(!items.empty() && items.back() == item, "links are whole backward");
    items.pop_back();
  }
  require(items.empty(), "links are whole forward");
}

/** What the lexer says of a token. */
struct Lexed {
  int typ;
  std::string text;

  bool operator==(const Lexed&) const = default;
};

/** The tokens of a text, T_EOF included. */
inline std::vector<Lexed> lexed(std::string_view text, int tabSize = 4, int edition = 1993) {
  SourceText source;
  source.set(text);
  LexState state;
  state.edition = edition;
  state.tabs.YYsetInTabSize(tabSize);
  TokenList list;
  yylex(source, state, list);
  requireWholeLinks(list);
  std::vector<Lexed> tokens;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    tokens.push_back({item->getTyp(), textOf(*item, 0)});
  }
  return tokens;
}

/** The text with its ASCII letters in one case. */
inline std::string folded(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), asciiUpper);
  return result;
}

/** The text without the characters. */
inline std::string without(std::string_view text, std::string_view characters) {
  std::string result(text);
  std::erase_if(result, [&](char letter) { return characters.find(letter) != characters.npos; });
  return result;
}

#endif
