// A file is known by its place on its device, so that a second way to it is seen without comparing
// paths; only if a file has several names are they distinguished by their real paths, as each of
// them is replaced by itself.
#include "fmt/sourcepaths.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <span>
#include <tuple>

#include "base/ascii.h"
#include "base/system/paths.h"

namespace {

constexpr std::string_view sourceEndings[] = {".VHD", ".VHDL", ".VHT"};
constexpr std::string_view writtenEndings[] = {".VHO", ".VHM", ".VHI"};

bool hasEnding(std::string_view path, std::span<const std::string_view> endings) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos || dot == 0 || path[dot - 1] == '/') return false;
  std::string ending(path.substr(dot));
  std::transform(ending.begin(), ending.end(), ending.begin(), asciiUpper);
  return std::find(endings.begin(), endings.end(), ending) != endings.end();
}

class Finder {
 public:
  explicit Finder(bool isEveryFileTaken) : isForced(isEveryFileTaken) {}
  void addNamed(const std::string& path);

  SourcePaths found;

 private:
  void walk(const std::string& folder);
  bool listFolder(const std::string& folder, std::vector<std::string>& paths);
  void addFile(const std::string& path, const FileState& state);
  void complain(const std::string& path, std::string_view reason) {
    found.trouble.push_back(path + ": " + std::string(reason));
  }

  const bool isForced;
  std::set<std::tuple<std::uint64_t, std::uint64_t, std::string>> known;
};

void Finder::addNamed(const std::string& path) {
  const FileState state = stateOf(path.c_str());
  if (state.kind == NO_FILE) return complain(path, std::strerror(state.error));
  if (state.kind == FOLDER) return walk(path);
  if (state.kind != REGULAR_FILE) return complain(path, "not a regular file");
  if (!isForced && !isVhdlName(path)) {
    return complain(path, "not the name of a VHDL file; --force formats it anyway");
  }
  addFile(path, state);
}

void Finder::addFile(const std::string& path, const FileState& state) {
  std::string name;
  if (state.links > 1) name = realPath(path.c_str());
  if (known.emplace(state.device, state.number, name).second) found.files.push_back(path);
}

/** The paths of what is in the folder, sorted, folders with a "/" at their ends; hidden names and
    links to folders are left out. */
bool Finder::listFolder(const std::string& folder, std::vector<std::string>& paths) {
  std::vector<FolderEntry> entries;
  const int error = ::listFolder(folder, entries);
  std::string stem = folder == "." ? "" : folder;
  if (!stem.empty() && !stem.ends_with('/')) stem += '/';
  for (const FolderEntry& entry : entries) {
    if (entry.name.starts_with('.') || entry.isLink) continue;
    if (entry.isFolder)
      paths.push_back(stem + entry.name + '/');
    else if (isSourceName(entry.name))
      paths.push_back(stem + entry.name);
  }
  std::sort(paths.begin(), paths.end());
  const bool isSlashed = folder.size() > 1 && folder.ends_with('/');
  if (error != 0) complain(folder.substr(0, folder.size() - isSlashed), std::strerror(error));
  return error == 0;
}

/** Folders that are still to be walked wait on a stack, however deep they lie. */
void Finder::walk(const std::string& folder) {
  std::vector<std::string> waiting{folder};
  while (!waiting.empty()) {
    const std::string path = std::move(waiting.back());
    waiting.pop_back();
    const bool isFolder = path.ends_with('/') || path == folder;
    if (!isFolder) {
      const FileState state = stateOf(path.c_str());
      if (state.kind == REGULAR_FILE) addFile(path, state);
      continue;
    }
    std::vector<std::string> paths;
    if (!listFolder(path, paths)) continue;
    waiting.insert(waiting.end(), std::make_move_iterator(paths.rbegin()),
                   std::make_move_iterator(paths.rend()));
  }
}

}  // namespace

bool isSourceName(std::string_view path) { return hasEnding(path, sourceEndings); }

bool isVhdlName(std::string_view path) {
  return isSourceName(path) || hasEnding(path, writtenEndings);
}

SourcePaths findSources(const std::vector<std::string>& paths, bool isForced) {
  Finder finder(isForced);
  for (const std::string& path : paths) finder.addNamed(path);
  return std::move(finder.found);
}
