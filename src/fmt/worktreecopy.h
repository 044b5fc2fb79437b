// Taking a change of the index over into the file of the work tree, which may hold further changes.
#ifndef QORN_FMT_WORKTREECOPY_H
#define QORN_FMT_WORKTREECOPY_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/comparison.h"
#include "fmt/patchhunks.h"

struct WorkTreeCopy {
  std::string content;   // of the file, with the stretches that could be taken over
  std::size_t kept = 0;  // stretches that could not, as the file holds other lines there
};

/** `staged` and `fresh` are the texts of the index before and after, `changed` the stretches
   between them, `unstaged` what the file's content has changed since it was staged. */
[[nodiscard]] WorkTreeCopy takeOverIntoFile(std::string_view content, std::string_view staged,
                                            std::string_view fresh,
                                            const std::vector<Stretch>& changed,
                                            const std::vector<PatchHunk>& unstaged);

#endif
