#include "fmt/worktreecopy.h"

#include <algorithm>

#include "fmt/contents.h"
#include "fmt/textform.h"

namespace {

/** Finds where lines of the staged text stand in the file; asked in ascending order. */
class LineMap {
 public:
  explicit LineMap(const std::vector<PatchHunk>& unstagedHunks) : hunks(unstagedHunks) {}

  /** The first of these lines in the file, or 0 if not all of them are there as they were. */
  unsigned find(const Lines& lines) {
    const unsigned end = lines.first + lines.count;
    while (next < hunks.size() && endOf(hunks[next]) <= lines.first) {
      shift += hunks[next].newCount - hunks[next].oldCount;
      ++next;
    }
    const bool isTouched = next < hunks.size() && beginOf(hunks[next]) < end;
    return isTouched ? 0 : lines.first + shift;
  }

 private:
  // A hunk without old lines stands before the line after the one that it names.
  static unsigned beginOf(const PatchHunk& hunk) {
    return hunk.oldCount == 0 ? hunk.oldFirst + 1 : hunk.oldFirst;
  }
  static unsigned endOf(const PatchHunk& hunk) { return beginOf(hunk) + hunk.oldCount; }

  const std::vector<PatchHunk>& hunks;
  std::size_t next = 0;
  unsigned shift = 0;  // of the lines after the hunks before `next`; wraps below zero
};

/** Places of the lines of a text. */
std::vector<std::size_t> lineStarts(std::string_view text) {
  std::vector<std::size_t> starts{0};
  for (std::size_t place = text.find('\n'); place != std::string_view::npos;
       place = text.find('\n', place + 1)) {
    starts.push_back(place + 1);
  }
  if (starts.back() != text.size()) starts.push_back(text.size());
  return starts;
}

}  // namespace

WorkTreeCopy takeOverIntoFile(std::string_view content, std::string_view staged,
                              std::string_view fresh, const std::vector<Stretch>& changed,
                              const std::vector<PatchHunk>& unstaged) {
  WorkTreeCopy copy;
  std::string text;
  const TextForm form = takeOffForm(content, text);
  const std::vector<std::size_t> starts = lineStarts(text);
  LineMap map(unstaged);
  std::vector<Stretch> taken;
  for (const Stretch& stretch : changed) {
    const unsigned first = map.find(stretch.old);
    const std::size_t end = std::size_t{first} + stretch.old.count;
    bool isThere = first > 0 && end <= starts.size();
    if (isThere) {
      const std::size_t place = starts[first - 1];
      isThere = std::string_view(text).substr(place, starts[end - 1] - place) ==
                staged.substr(stretch.old.place, stretch.old.size);
    }
    if (!isThere) {
      ++copy.kept;
      continue;
    }
    taken.push_back(stretch);
    taken.back().old.first = first;
  }
  copy.content = spliceContent(content, form, fresh, taken);
  return copy;
}
