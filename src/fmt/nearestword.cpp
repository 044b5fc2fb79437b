// The measure counts letters: one that was left out costs 1, one too many costs 2, and another one
// in its place both. People shorten words (IDENTCASE, uper, capital) more often than they lengthen
// them.
#include "fmt/nearestword.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace {

constexpr std::size_t longestGuessed = 40;
constexpr int leftOut = 1;
constexpr int tooMuch = 2;

/** Requires: `meant` is a form of the vocabulary, `written` has at most longestGuessed letters. */
int distance(std::string_view written, std::string_view meant) {
  std::array<int, longestGuessed + 1> costs;  // to turn the beginnings of `written` into `meant`
  for (std::size_t i = 0; i <= written.size(); ++i) costs[i] = static_cast<int>(i) * tooMuch;
  for (const char letter : meant) {
    int diagonal = costs[0];
    costs[0] += leftOut;
    for (std::size_t i = 1; i <= written.size(); ++i) {
      const int above = costs[i];
      const int step = std::min(above + leftOut, costs[i - 1] + tooMuch);
      costs[i] = asciiUpper(written[i - 1]) == letter ? std::min(step, diagonal) : step;
      diagonal = above;
    }
  }
  return costs[written.size()];
}

bool isWordOf(const Setting& setting, int code) {
  return std::ranges::find(setting.choices, code) != setting.choices.end();
}

bool isSensible(const ConfigForm& form, const Setting* waiting) {
  if (form.kind == PIECE_KEY) return settingOf(form.code).kind != SETTING_NONE;
  if (waiting != nullptr) return isWordOf(*waiting, form.code);
  return std::ranges::any_of(settingTable(),
                             [&](const Setting& setting) { return isWordOf(setting, form.code); });
}

}  // namespace

const ConfigForm* nearestWord(std::string_view written, const Setting* waiting) {
  if (written.size() > longestGuessed) return nullptr;
  const ConfigForm* nearest = nullptr;
  int least = static_cast<int>(written.size()) + 1;  // more than that is no likeness
  for (const ConfigForm& form : configForms()) {
    if (!isSensible(form, waiting)) continue;
    const int cost = distance(written, form.text);
    if (cost >= least) continue;
    least = cost;
    nearest = &form;
  }
  return nearest;
}
