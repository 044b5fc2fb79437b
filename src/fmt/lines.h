// Taking over no more of a layout than what touches the lines asked for.
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
  /** Adds count lines; none where count is 0, which is how git tells a mere deletion. */
  void add(unsigned first, unsigned count);
  bool isEmpty() const { return ranges.empty(); }
  const std::vector<LineRange>& getRanges() const { return ranges; }
  /** Number of lines of the range that belong to the set. */
  unsigned countIn(LineRange range) const;

 private:
  std::vector<LineRange> ranges;
};

/** A stretch that would bring along more lines than these, beyond those asked for, is left out. */
constexpr unsigned mostFurtherLines = 10;

struct PartialText {
  std::string text;
  std::vector<Stretch> taken;      // stretches between the old text and this one
  std::vector<LineRange> leftOut;  // of the old text, in order
};

/** The old text with those stretches of the new one that touch the lines, which are lines of the
    old text. A stretch without old lines touches the two lines that it stands between. All else
    stays to the byte. */
[[nodiscard]] PartialText takeOver(std::string_view old, std::string_view fresh,
                                   const std::vector<Stretch>& changed, const LineSet& lines);

#endif
