// The configuration language: any text is read, letter case means nothing, and whatever was set, a
// source can be formatted.
#include <algorithm>
#include <iterator>

#include "base/ascii.h"
#include "confignames.h"
#include "fuzzing.h"
#include "pipelinerun.h"
#include "scannerprobe.h"

namespace {

constexpr int largestFormatted = 2000;  // columns are blanks, and blanks are memory

constexpr std::string_view sample =
    "entity e is port (a, b : in bit := '0'; long_name : out integer); end e; -- comment ==\n"
    "architecture a of e is signal s : bit_vector(7 downto 0) := X\"0F\"; begin\n"
    "--------\n-- block --\nlong_name <= a when b'event else 16#ff#; u : e port map (a => b);\n"
    "process (a) begin if a then b := (1, 2); else c <= d after 10 ns; end if; end process; end;\n";

char swapped(char letter) {
  const char upper = asciiUpper(letter);
  if (upper != letter) return upper;
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string swapped(std::string_view text) {
  std::string result;
  std::ranges::transform(text, std::back_inserter(result), [](char c) { return swapped(c); });
  return result;
}

void requireSameKeys(OldList& keys, OldList& others) {
  auto* other = static_cast<QornConfigToken*>(others.getFirst());
  for (auto* item = keys.getFirst(); item != nullptr; item = keys.getNext()) {
    const auto& key = static_cast<const QornConfigToken&>(*item);
    const bool same = other != nullptr && key.getTyp() == other->getTyp() &&
                      key.getValue() == other->getValue() &&
                      key.getInteger() == other->getInteger() &&
                      swapped(key.getPath()) == other->getPath();
    require(same, "keys and values are read in any case");
    require(key.getInteger() >= 0, "numbers are not negative");
    other = static_cast<QornConfigToken*>(others.getNext());
  }
  require(other == nullptr, "no key is read in one case only");
}

/** Whatever stands in front, a closed quote and a key on a line of its own come through. */
void requireKeyBehind(std::string_view text) {
  OldList keys;
  readConfiguration(keys, std::string(text) + "\n'\"'\"\nINDENT 3\n");
  require(shown(static_cast<QornConfigToken&>(*keys.getLast())) == "INDENTATION=3",
          "no text lasts");
}

bool isModest(VhdlScanner& scanner) {
  return std::ranges::all_of(ScannerProbe::numbers, [&](const ScannerProbe::Number& number) {
    return scanner.*number.member <= largestFormatted;
  });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = viewInput(data, size);
  setDefaultCases();
  resetLexer();
  setenv("QORNRC", ":", 1);  // no folder to search: what is in the list is applied
  VhdlScanner scanner;
  OldList& keys = ScannerProbe::configList(scanner);
  readConfiguration(keys, input);
  OldList others;
  const std::string other = swapped(input);
  readConfiguration(others, other);
  requireWholeLinks(keys);
  requireSameKeys(keys, others);
  requireKeyBehind(input);
  require(scanner.ReadConfigFile(nullptr) == 0, "the search has no way to fail");
  if (isModest(scanner)) require(!formatted(scanner, sample).empty(), "there is output");
  return 0;
}
