#include "fmt/lines.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

constexpr unsigned lastOfAll = std::numeric_limits<unsigned>::max();

/** The number that the whole text consists of, clamped to the range; 0 if it is none. */
unsigned parsedLine(std::string_view text) {
  unsigned line = 0;
  const std::from_chars_result result =
      std::from_chars(text.data(), text.data() + text.size(), line);
  if (result.ptr != text.data() + text.size()) return 0;
  return result.ec == std::errc::result_out_of_range ? lastOfAll : line;
}

/** The lines that the stretch replaces, or those that it comes between. */
LineRange touchedLines(const Lines& old) {
  if (old.count > 0) return {old.first, old.first + old.count - 1};
  return {old.first - 1, old.first};
}

}  // namespace

bool LineSet::addParsed(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return false;
  const LineRange range{parsedLine(text.substr(0, colon)), parsedLine(text.substr(colon + 1))};
  if (range.first == 0 || range.last < range.first) return false;
  addRange(range);
  return true;
}

void LineSet::add(unsigned first, unsigned count) {
  if (count > 0) addRange({first, first + std::min(count - 1, lastOfAll - first)});
}

void LineSet::addRange(LineRange range) {
  const auto touchesNot = [](const LineRange& left, const LineRange& right) {
    return left.last < right.first && right.first - left.last > 1;
  };
  const auto begin = std::ranges::lower_bound(ranges, range, touchesNot);
  const auto end = std::ranges::upper_bound(begin, ranges.end(), range, touchesNot);
  if (begin != end) {
    range = {std::min(range.first, begin->first), std::max(range.last, (end - 1)->last)};
  }
  ranges.insert(ranges.erase(begin, end), range);
}

unsigned LineSet::countIn(LineRange range) const {
  unsigned count = 0;
  auto part = std::ranges::lower_bound(ranges, range.first, {}, &LineRange::last);
  for (; part != ranges.end() && part->first <= range.last; ++part) {
    count += std::min(part->last, range.last) - std::max(part->first, range.first) + 1;
  }
  return count;
}

PartialText takeOver(std::string_view old, std::string_view fresh,
                     const std::vector<Stretch>& changed, const LineSet& lines) {
  PartialText result;
  std::size_t copied = 0;  // of the old text
  unsigned added = 0;      // lines; may wrap around below zero
  for (const Stretch& stretch : changed) {
    const LineRange touched = touchedLines(stretch.old);
    const unsigned asked = lines.countIn(touched);
    if (asked == 0) continue;
    if (stretch.old.count > asked + mostFurtherLines) {
      result.leftOut.push_back(touched);
      continue;
    }
    result.text += old.substr(copied, stretch.old.place - copied);
    Lines here = stretch.fresh;
    here.first = stretch.old.first + added;
    here.place = result.text.size();
    result.taken.push_back({stretch.old, here});
    result.text += fresh.substr(stretch.fresh.place, stretch.fresh.size);
    copied = stretch.old.place + stretch.old.size;
    added += stretch.fresh.count - stretch.old.count;
  }
  result.text += old.substr(copied);
  return result;
}
