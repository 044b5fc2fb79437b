// Taking over no more of a layout than the requested lines need.
#ifndef QORN_FMT_LINES_H
#define QORN_FMT_LINES_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/comparison.h"

struct LineRange {
  unsigned first;  // 1-based
  unsigned last;   // inclusive

  bool operator==(const LineRange&) const = default;
};

/** Lines of a text, as ranges that ascend and neither overlap nor touch. */
class LineSet {
 public:
  /** Adds the lines of "A:B". False, and nothing is added, unless 1 <= A <= B. */
  [[nodiscard]] bool addParsed(std::string_view text);
  /** Adds count lines; none where it is 0, as git has it for a place where lines were deleted. */
  void add(unsigned first, unsigned count);
  bool isEmpty() const { return ranges.empty(); }
  const std::vector<LineRange>& getRanges() const { return ranges; }
  /** How many lines of the range belong to the set. */
  [[nodiscard]] unsigned countIn(LineRange range) const;

 private:
  void addRange(LineRange range);

  std::vector<LineRange> ranges;
};

/** A stretch that would bring along more lines than these, beyond those asked for, is left out. */
constexpr unsigned mostFurtherLines = 5;

struct PartialText {
  std::string text;
  std::vector<Stretch> taken;      // between the old text and this one
  std::vector<LineRange> leftOut;  // lines of the old text, in order
};

/** The old text with those stretches of the new one that touch the lines, which are lines of the
    old text. A stretch that only inserts touches the lines that it comes between. All else is
    unchanged to the byte. */
[[nodiscard]] PartialText takeOver(std::string_view old, std::string_view fresh,
                                   const std::vector<Stretch>& changed, const LineSet& lines);

#endif
