// Word look-up. The words are in alphabetical order in tokencodes.def, which the compiler checks;
// it also builds a perfect hash table, so that a look-up costs one comparison: with a
// binary search the formatter executes a fifth more instructions.
#include "tokens/tokencodes.h"

#include <algorithm>
#include <cstdint>

namespace {

struct Word {
  std::string_view text;
  int typ;
  int edition = 0;  // from which on it is reserved
};

constexpr Word keywords[] = {
#define QORN_WORD(name, code, word) {word, name},
#define QORN_NEWER_WORD(name, code, word, edition) {word, name, edition},
#define QORN_CODE(name, code, group)
#include "tokens/tokencodes.def"
};

template <std::size_t Count>
constexpr bool wordsAscend(const Word (&words)[Count]) {
  for (std::size_t i = 1; i < Count; ++i) {
    if (!(words[i - 1].text < words[i].text)) return false;
  }
  return true;
}
static_assert(wordsAscend(keywords));

constexpr std::size_t longestWord =
    std::ranges::max(keywords, {}, [](const Word& word) { return word.text.size(); }).text.size();

constexpr std::size_t shortestWord =
    std::ranges::min(keywords, {}, [](const Word& word) { return word.text.size(); }).text.size();

/** Folds the case of a letter by the bit that distinguishes the cases; no other character of a name
    becomes a letter. */
constexpr unsigned folded(char letter) {
  constexpr unsigned caseBit = 'a' - 'A';
  return static_cast<unsigned char>(letter) | caseBit;
}

constexpr int slotBits = 11;
constexpr std::size_t slotCount = std::size_t{1} << slotBits;

/** A hash of the word's length and the four letters that distinguish words of one length. Requires:
    at least two characters. */
constexpr std::size_t slotOf(std::string_view word, std::uint32_t factor) {
  auto hash = static_cast<std::uint32_t>(word.size());
  hash = hash * factor + folded(word[0]);
  hash = hash * factor + folded(word[1]);
  hash = hash * factor + folded(word[(word.size() - 1) / 2]);
  hash = hash * factor + folded(word.back());
  return hash * 2654435769U >> (32 - slotBits);
}

constexpr bool spreadsWords(std::uint32_t factor) {
  std::array<bool, slotCount> taken{};
  for (const Word& word : keywords) {
    bool& slot = taken[slotOf(word.text, factor)];
    if (slot) return false;
    slot = true;
  }
  return true;
}

constexpr std::uint32_t spreadingFactor = [] {
  std::uint32_t factor = 3;
  while (!spreadsWords(factor)) factor += 2;
  return factor;
}();

constexpr auto wordSlots = [] {
  std::array<std::uint8_t, slotCount> slots{};  // index in keywords plus 1; 0 for none
  std::uint8_t place = 0;
  for (const Word& word : keywords) slots[slotOf(word.text, spreadingFactor)] = ++place;
  return slots;
}();

}  // namespace

int findReservedWord(std::string_view word, int edition) {
  if (word.size() < shortestWord || word.size() > longestWord) return -1;
  const std::size_t place = wordSlots[slotOf(word, spreadingFactor)];
  if (place == 0) return -1;
  const Word& found = keywords[place - 1];
  if (found.text.size() != word.size()) return -1;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (folded(word[i]) != folded(found.text[i])) return -1;
  }
  return found.edition <= edition ? found.typ : -1;
}
