// POSIX names: bytes, with "/" between their parts.
#include "base/system/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

namespace fs = std::filesystem;

// --- What a name refers to ---

namespace {

FileKind kindOf(mode_t mode) {
  if (S_ISREG(mode)) return REGULAR_FILE;
  if (S_ISDIR(mode)) return FOLDER;
  return S_ISLNK(mode) ? LINK : OTHER_FILE;
}

/** From a call of stat and its result. */
FileState stateFrom(int result, const struct stat& status) {
  FileState state;
  if (result != 0) {
    state.error = errno;
    return state;
  }
#ifdef __APPLE__
  const auto& changed = status.st_mtimespec;
#else
  const auto& changed = status.st_mtim;
#endif
  state.kind = kindOf(status.st_mode);
  state.device = static_cast<std::uint64_t>(status.st_dev);
  state.number = status.st_ino;
  state.links = static_cast<std::uint64_t>(status.st_nlink);
  state.size = status.st_size;
  state.seconds = changed.tv_sec;
  state.nanoseconds = changed.tv_nsec;
  return state;
}

}  // namespace

FileState stateOf(const char* path) {
  struct stat status {};
  return stateFrom(stat(path, &status), status);
}

FileState stateOfEntry(const char* path) {
  struct stat status {};
  return stateFrom(lstat(path, &status), status);
}

FileState stateOf(FILE* stream) { return stateOf(fileno(stream)); }

FileState stateOf(int descriptor) {
  struct stat status {};
  return stateFrom(fstat(descriptor, &status), status);
}

bool isSpecialFile(const char* path) {
  const FileState entry = stateOfEntry(path);
  if (entry.kind != LINK) return entry.kind == OTHER_FILE;
  if (stateOf(path).kind == OTHER_FILE) return true;
  // A link such as /dev/stdin, whatever it points to. Where /dev is no file system of its own, as
  // in a bare root, it cannot be told from others.
  const std::uint64_t devices = stateOf("/dev").device;
  return entry.device == devices && devices != stateOf("/").device;
}

// --- Names as text ---

const char folderListSeparator = ':';

std::size_t lastPartOf(std::string_view path) { return path.rfind('/') + 1; }

bool hasSeparator(std::string_view text) { return text.find('/') != std::string_view::npos; }

bool isAbsolute(std::string_view path) { return path.starts_with('/'); }

std::string withSlashes(std::string_view path) { return std::string(path); }

bool areSamePaths(std::string_view path, std::string_view other) { return path == other; }

// --- Folders ---

std::string workingFolder() {
  constexpr std::size_t step = 64;
  std::string buffer(step, '\0');
  while (getcwd(buffer.data(), buffer.size()) == nullptr) {
    if (errno != ERANGE) return {};
    buffer.resize(buffer.size() + step);
  }
  buffer.resize(std::strlen(buffer.c_str()));
  return buffer;
}

std::string temporaryFolder() {
  const char* wanted = std::getenv("TMPDIR");
  return std::string(wanted == nullptr || *wanted == '\0' ? "/tmp" : wanted) + '/';
}

std::string homeFolder() {
  const char* home = std::getenv("HOME");
  return home == nullptr ? "" : home;
}

std::string realPath(const char* path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path, nullptr), &std::free);
  return real == nullptr ? std::string() : std::string(real.get());
}

std::string canonicalFolder(const std::string& folder) {
  std::error_code error;
  const fs::path absolute = fs::absolute(folder.empty() ? "." : folder, error);
  const fs::path canonical = fs::weakly_canonical(absolute, error);
  if (error) return absolute.lexically_normal();
  return canonical.has_filename() ? canonical : canonical.parent_path();
}

int listFolder(const std::string& folder, std::vector<FolderEntry>& entries) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unknown;
    const bool isFolder = entry->is_directory(unknown);
    const bool isLink = isFolder && entry->is_symlink(unknown);
    entries.push_back({entry->path().filename(), isFolder, isLink});
  }
  return error.value();
}
