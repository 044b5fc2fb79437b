// Word look-up. The words stand in tokencodes.def in alphabetical order, which the compiler checks;
// it also derives the hash table, without a collision, so that a look-up costs one comparison.
#include "tokens/tokencodes.h"

#include <algorithm>
#include <cstdint>

namespace {

struct Word {
  std::string_view text;
  int typ;
};

constexpr Word keywords[] = {
#define QORN_WORD(name, code, word) {word, name},
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

constexpr char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

constexpr int slotBits = 10;
constexpr std::size_t slotCount = std::size_t{1} << slotBits;

constexpr std::size_t slotOf(std::string_view word, std::uint32_t factor) {
  std::uint32_t hash = static_cast<std::uint32_t>(word.size());
  for (const char letter : word) {
    hash = hash * factor + static_cast<std::uint32_t>(static_cast<unsigned char>(lowered(letter)));
  }
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
  std::array<std::uint8_t, slotCount> slots{};  // place in keywords, from 1 on; 0 for none
  std::uint8_t place = 0;
  for (const Word& word : keywords) slots[slotOf(word.text, spreadingFactor)] = ++place;
  return slots;
}();

constexpr auto caseGroups = [] {
  TokenTable<CaseGroup> groups(CASE_KEYWORD);
#define QORN_WORD(name, code, word)
#define QORN_CODE(name, code, group) groups[name] = group;
#include "tokens/tokencodes.def"
  return groups;
}();

}  // namespace

int findReservedWord(std::string_view word) {
  if (word.size() > longestWord) return -1;
  const std::size_t place = wordSlots[slotOf(word, spreadingFactor)];
  if (place == 0) return -1;
  const Word& found = keywords[place - 1];
  const bool same = std::ranges::equal(word, found.text, {}, lowered);
  return same ? found.typ : -1;
}

CaseGroup caseGroup(int typ) { return caseGroups[typ]; }
