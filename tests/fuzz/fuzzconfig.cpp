// The configuration language: any text is read, letter case means nothing, and whatever was set, a
// source can be formatted.
#include <algorithm>

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
  readConfiguration(others, folded(input));
  requireWholeLinks(keys);
  require(folded(shown(keys)) == folded(shown(others)), "letter case means nothing");
  requireKeyBehind(input);
  require(scanner.ReadConfigFile(nullptr) == 0, "the search has no way to fail");
  if (isModest(scanner)) require(!formatted(scanner, sample).empty(), "there is output");
  return 0;
}
