// Formatting what is staged: the texts in the index, which the next commit takes, whatever the
// files of the work tree hold by now.
#ifndef QORN_FMT_STAGED_H
#define QORN_FMT_STAGED_H

#include <vector>

#include "fmt/gittree.h"
#include "fmt/runreport.h"
#include "fmt/settingsource.h"

/** Formats the staged lines of these changes, with new files whole. New texts go into the index; a
    file in the work tree takes over the same stretches where it still holds the staged lines, and
    keeps all else. A note says where it does not. */
void formatStaged(GitTree& tree, const std::vector<GitChange>& changes, const RunMode& mode,
                  SettingSource& settings, RunReport& report);

#endif
