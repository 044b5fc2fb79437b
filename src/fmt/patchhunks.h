// Reading what `git diff -U0` prints: where lines differ, not what they say.
#ifndef QORN_FMT_PATCHHUNKS_H
#define QORN_FMT_PATCHHUNKS_H

#include <string_view>
#include <vector>

/** Lines that replace others. Counted from 1; where a count is 0, the line stands before the
    gap. */
struct PatchHunk {
  unsigned oldFirst = 0;
  unsigned oldCount = 0;
  unsigned newFirst = 0;
  unsigned newCount = 0;
};

/** The hunks of each file in the order of the patch; none for a file without changed lines. */
[[nodiscard]] std::vector<std::vector<PatchHunk>> readPatchHunks(std::string_view patch);

#endif
