// From the paths of a command line to the files that they name.
#ifndef QORN_FMT_SOURCEPATHS_H
#define QORN_FMT_SOURCEPATHS_H

#include <string>
#include <string_view>
#include <vector>

/** True for names that a folder is walked for: *.vhd, *.vhdl, *.vht, in any case. */
[[nodiscard]] bool isSourceName(std::string_view path);
/** True for these and for what tools write in VHDL: *.vho, *.vhm, *.vhi. */
[[nodiscard]] bool isVhdlName(std::string_view path);

struct SourcePaths {
  std::vector<std::string> files;    // each once, in the order of the paths
  std::vector<std::string> trouble;  // a message each: "PATH: ..."
};

/** A folder stands for the files in and below it, sorted by their bytes; what begins with "." and
    links to folders are left out. A file that is named with an ending that is not VHDL's is
   trouble, unless `isForced`. */
[[nodiscard]] SourcePaths findSources(const std::vector<std::string>& paths, bool isForced);

#endif
