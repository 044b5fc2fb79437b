// Changed lines begin with a sign, so that none looks like a header.
#include "fmt/patchhunks.h"

#include <algorithm>
#include <charconv>

namespace {

/** Takes the first line off, without its line end. */
std::string_view takeLine(std::string_view& text) {
  const std::size_t length = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return line;
}

/** Reads "FIRST" or "FIRST,COUNT" after the sign, and takes it off. */
void takeRange(std::string_view& header, unsigned& first, unsigned& count) {
  const char* end = header.data() + header.size();
  const char* rest = std::from_chars(header.data() + 1, end, first).ptr;
  count = 1;
  if (rest != end && *rest == ',') rest = std::from_chars(rest + 1, end, count).ptr;
  header.remove_prefix(static_cast<std::size_t>(rest - header.data()));
}

/** From "@@ -1,2 +3,4 @@ ...". */
PatchHunk hunkFrom(std::string_view header) {
  PatchHunk hunk;
  header.remove_prefix(3);
  takeRange(header, hunk.oldFirst, hunk.oldCount);
  if (header.starts_with(" +")) {
    header.remove_prefix(1);
    takeRange(header, hunk.newFirst, hunk.newCount);
  }
  return hunk;
}

}  // namespace

std::vector<std::vector<PatchHunk>> readPatchHunks(std::string_view patch) {
  std::vector<std::vector<PatchHunk>> files;
  while (!patch.empty()) {
    const std::string_view line = takeLine(patch);
    if (line.starts_with("diff --git ")) files.emplace_back();
    if (!line.starts_with("@@ -") || files.empty()) continue;
    files.back().push_back(hunkFrom(line));
  }
  return files;
}
