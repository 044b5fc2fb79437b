// The configuration language: any text is read, letter case means nothing, and whatever was set, a
// source can be formatted.
#include <algorithm>

#include "config/settings.h"
#include "confignames.h"
#include "fmt/settingcheck.h"
#include "fuzzing.h"
#include "pipelinerun.h"

namespace {

constexpr int largestFormatted = 2000;  // columns are blanks, and blanks are memory

constexpr std::string_view sample =
    "entity e is port (a, b : in bit := '0'; long_name : out integer); end e; -- comment ==\n"
    "architecture a of e is signal s : bit_vector(7 downto 0) := X\"0F\"; begin\n"
    "--------\n-- block --\nlong_name <= a when b'event else 16#ff#; u : e port map (a => b);\n"
    "process (a) begin if a then b := (1, 2); else c <= d after 10 ns; end if; end process; end;\n";

/** Whatever stands in front, a closed quote and a key on a line of its own come through. */
void requireKeyBehind(std::string_view text) {
  ConfigList keys;
  xxlex(std::string(text) + "\n'\"'\"\nINDENT 3\n", keys);
  require(shown(*keys.getLast()) == "INDENTATION=3", "no text lasts");
}

bool isModest(const Settings& settings) {
  return std::ranges::all_of(settingTable(), [&](const Setting& setting) {
    return setting.number == nullptr || settings.*setting.number <= largestFormatted;
  });
}

/** What is shown of the settings gives them again, and what no key has set is as by default. */
void requireShownSettings(std::string_view text, const Settings& settings) {
  const ConfigText file{"rc", std::string(text)};
  std::vector<SettingOrigin> origins = checkSettings({&file, 1}).origins;
  const std::string whole = settingsText(settings, origins);
  const std::string_view again = whole;
  require(settingsText(makeSettings({&again, 1}), origins) == whole, "settings come back");
  std::erase_if(origins, [](const SettingOrigin& origin) { return !origin.place.empty(); });
  require(settingsText(settings, origins) == settingsText(Settings(), origins), "defaults stay");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = viewInput(data, size);
  ConfigList keys;
  xxlex(input, keys);
  ConfigList others;
  xxlex(folded(input), others);
  requireWholeLinks(keys);
  require(folded(shown(keys)) == folded(shown(others)), "letter case means nothing");
  requireKeyBehind(input);
  const Settings settings = makeSettings({&input, 1});
  requireShownSettings(input, settings);
  VhdlScanner scanner(settings);
  if (isModest(settings)) require(!formatted(scanner, sample).empty(), "there is output");
  return 0;
}
