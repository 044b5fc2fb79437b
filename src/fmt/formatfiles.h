// Formatting files of the work tree, or looking at what would change.
#ifndef QORN_FMT_FORMATFILES_H
#define QORN_FMT_FORMATFILES_H

#include <optional>
#include <string>
#include <vector>

#include "fmt/judgement.h"
#include "fmt/lines.h"
#include "fmt/runreport.h"
#include "fmt/settingsource.h"

struct FileTask {
  std::string path;
  std::optional<LineSet> lines;  // without: all
};

/** Formats the files in as many threads as the mode says. Files that are not changed are not
    touched, and whatever fails leaves a file as it was. */
void formatFiles(const std::vector<FileTask>& tasks, const RunMode& mode, SettingSource& settings,
                 RunReport& report);

/** What a mode that changes nothing prints of a text that would change. */
[[nodiscard]] std::string outputOf(const std::string& name, std::string_view old,
                                   const Judgement& judgement, const RunMode& mode);

#endif
