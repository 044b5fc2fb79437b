// The new file has no name while it is written, where the system supports that: then whatever ends
// the run leaves nothing behind. Elsewhere it has a temporary name, and no signal ends the run
// until that is removed; only SIGKILL can leave a ".qornfmt-*.tmp".
#include "base/renameover.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "base/system/files.h"
#include "base/system/run.h"
#include "base/unbroken.h"

namespace {

/** A file being written, in one folder. Removed with the object unless it is renamed. */
class NamelessFile {
 public:
  explicit NamelessFile(const std::string& folderPath) : folder(folderPath) {}
  NamelessFile(const NamelessFile&) = delete;
  NamelessFile& operator=(const NamelessFile&) = delete;
  ~NamelessFile();

  // Each returns false with errno set.
  bool open();
  int get() const { return descriptor; }
  bool giveName();
  bool close();
  bool renameTo(const char* path);

 private:
  template <class Try>
  bool findName(Try tryName);

  const std::string& folder;
  int descriptor = -1;
  std::string name;                        // empty while it has none
  std::optional<UnbrokenSection> section;  // while it has a name
};

NamelessFile::~NamelessFile() {
  const int error = errno;
  if (descriptor >= 0) (void)closeFile(descriptor);
  if (!name.empty()) discardFile(name.c_str());
  errno = error;
}

/** Tries names not yet used in this run until one is free. The section begins before the name
    exists, and nothing is allocated from then on. */
template <class Try>
bool NamelessFile::findName(Try tryName) {
  static std::atomic<unsigned> counter = 0;
  constexpr int mostTries = 1000;
  std::string candidate = folder + "/.qornfmt-" + std::to_string(processNumber()) + "-";
  const std::size_t stem = candidate.size();
  candidate.reserve(stem + 20);
  section.emplace();
  for (int i = 0; i < mostTries; ++i) {
    candidate.resize(stem);
    candidate.append(std::to_string(++counter)).append(".tmp");  // short enough not to allocate
    if (tryName(candidate.c_str())) {
      name.swap(candidate);
      return true;
    }
    if (errno != EEXIST) break;
  }
  section.reset();
  return false;
}

bool NamelessFile::open() {
  descriptor = createUnnamedFile(folder.c_str());
  if (descriptor >= 0) return true;
  return findName([this](const char* candidate) {
    descriptor = createFile(candidate, PRIVATE);
    return descriptor >= 0;
  });
}

bool NamelessFile::giveName() {
  if (!name.empty()) return true;
  return findName([this](const char* candidate) { return nameFile(descriptor, candidate) == 0; });
}

bool NamelessFile::close() { return closeFile(std::exchange(descriptor, -1)) == 0; }

bool NamelessFile::renameTo(const char* path) {
  if (moveOver(name.c_str(), path) != 0) return false;
  name.clear();
  return true;
}

Replacement failure(std::string& reason) {
  const int error = errno;
  reason = std::strerror(error);
  return isDiskError(error) ? Replacement::hopeless : Replacement::failed;
}

}  // namespace

Replacement renameOver(const char* path, const FileState& asRead, std::string_view text,
                       std::string& reason) {
  const std::string real = realPath(path);
  if (real.empty() || checkWritable(real.c_str()) != 0) {
    return failure(reason);
  }
  const std::string folder = real.substr(0, std::max<std::size_t>(1, lastPartOf(real) - 1));
  NamelessFile file(folder);
  if (!file.open() || writeAll(file.get(), text) != 0 || takeRights(file.get(), real.c_str()) != 0)
    return failure(reason);
  if (!file.giveName() || !file.close()) return failure(reason);
  if (!stateOf(real.c_str()).isUnchanged(asRead)) return Replacement::changed;
  return file.renameTo(real.c_str()) ? Replacement::done : failure(reason);
}
