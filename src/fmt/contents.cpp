#include "fmt/contents.h"

#include <algorithm>

namespace {

/** Steps through the lines of a content. */
class LineWalk {
 public:
  explicit LineWalk(std::string_view walked) : content(walked) {}
  bool isAtEnd() const { return place == content.size(); }
  std::size_t getPlace() const { return place; }
  unsigned getLine() const { return line; }

  /** The next line with its end. */
  std::string_view take() {
    const std::size_t begin = place;
    place = std::min(content.find('\n', begin), content.size() - 1) + 1;
    ++line;
    return content.substr(begin, place - begin);
  }
  void skip(unsigned count) {
    for (; count > 0 && !isAtEnd(); --count) (void)take();
  }

 private:
  std::string_view content;
  std::size_t place = 0;  // bytes
  unsigned line = 1;      // the one that stands there
};

Lines takeLines(LineWalk& walk, unsigned count) {
  Lines lines{walk.getLine(), 0, walk.getPlace(), 0};
  walk.skip(count);
  lines.count = walk.getLine() - lines.first;
  lines.size = walk.getPlace() - lines.place;
  return lines;
}

/** Lengthens the last stretch where this one begins at its end. */
void append(std::vector<Stretch>& stretches, const Stretch& next) {
  if (next.old.count == 0 && next.fresh.count == 0) return;
  if (!stretches.empty()) {
    Stretch& last = stretches.back();
    const bool isTouching = last.old.first + last.old.count == next.old.first &&
                            last.fresh.first + last.fresh.count == next.fresh.first;
    if (isTouching) {
      last.old.count += next.old.count;
      last.old.size += next.old.size;
      last.fresh.count += next.fresh.count;
      last.fresh.size += next.fresh.size;
      return;
    }
  }
  stretches.push_back(next);
}

}  // namespace

std::string spliceContent(std::string_view content, const TextForm& form, std::string_view fresh,
                          const std::vector<Stretch>& taken) {
  const TextForm withoutMark{false, form.hasCarriages, form.isMixed};
  std::string result;
  if (form.hasMark) {
    result = content.substr(0, byteOrderMark.size());
    content.remove_prefix(byteOrderMark.size());
  }
  LineWalk walk(content);
  for (const Stretch& stretch : taken) {
    const std::size_t begin = walk.getPlace();
    if (stretch.old.first > walk.getLine()) walk.skip(stretch.old.first - walk.getLine());
    result += content.substr(begin, walk.getPlace() - begin);
    result += putBackForm(withoutMark,
                          std::string(fresh.substr(stretch.fresh.place, stretch.fresh.size)));
    walk.skip(stretch.old.count);
  }
  return result.append(content.substr(walk.getPlace()));
}

std::vector<Stretch> contentStretches(std::string_view old, std::string_view fresh,
                                      const std::vector<Stretch>& ofTexts) {
  std::vector<Stretch> stretches;
  LineWalk oldWalk(old);
  LineWalk freshWalk(fresh);
  auto next = ofTexts.begin();
  while (!oldWalk.isAtEnd() || !freshWalk.isAtEnd()) {
    const bool isStretch = next != ofTexts.end() && oldWalk.getLine() == next->old.first &&
                           freshWalk.getLine() == next->fresh.first;
    const LineWalk oldBefore = oldWalk;
    const LineWalk freshBefore = freshWalk;
    if (!isStretch && oldWalk.take() == freshWalk.take()) continue;
    oldWalk = oldBefore;
    freshWalk = freshBefore;
    const unsigned oldCount = isStretch ? next->old.count : 1;
    const unsigned freshCount = isStretch ? next->fresh.count : 1;
    append(stretches, {takeLines(oldWalk, oldCount), takeLines(freshWalk, freshCount)});
    if (isStretch) ++next;
  }
  return stretches;
}
