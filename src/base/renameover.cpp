// The new file has no name while it is written, where the system supports that: then whatever ends
// the run leaves nothing behind. Elsewhere it has a temporary name, and no signal ends the run
// until that is removed; only SIGKILL can leave a ".qornfmt-*.tmp".
#include "base/renameover.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#if defined(__APPLE__)
#include <copyfile.h>
#elif defined(__linux__)
#include <sys/xattr.h>
#endif

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
  bool takeRights(const char* path) const;
  bool giveName();
  bool close();
  bool renameTo(const char* path);

 private:
  bool openUnnamed();
  template <class Try>
  bool findName(Try tryName);

  const std::string& folder;
  int descriptor = -1;
  std::string name;                        // empty while it has none
  std::optional<UnbrokenSection> section;  // while it has a name
};

NamelessFile::~NamelessFile() {
  const int error = errno;
  if (descriptor >= 0) ::close(descriptor);
  if (!name.empty()) unlink(name.c_str());
  errno = error;
}

/** Tries names not yet used in this run until one is free. The section begins before the name
    exists, and nothing is allocated from then on. */
template <class Try>
bool NamelessFile::findName(Try tryName) {
  static std::atomic<unsigned> counter = 0;
  constexpr int mostTries = 1000;
  std::string candidate = folder + "/.qornfmt-" + std::to_string(getpid()) + "-";
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

bool NamelessFile::openUnnamed() {
#ifdef O_TMPFILE
  static const bool canBeNamed = access("/proc/self/fd", X_OK) == 0;
  if (canBeNamed) descriptor = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
#endif
  return descriptor >= 0;
}

bool NamelessFile::open() {
  if (openUnnamed()) return true;
  return findName([this](const char* candidate) {
    descriptor = ::open(candidate, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    return descriptor >= 0;
  });
}

#if defined(__linux__)
/** Access lists and extended attributes. One that may not be set is left out. */
void copyAttributes(const char* path, int descriptor) {
  const ssize_t size = listxattr(path, nullptr, 0);
  if (size <= 0) return;
  std::string names(static_cast<std::size_t>(size), '\0');
  if (listxattr(path, names.data(), names.size()) != size) return;
  std::vector<char> value;
  for (const char* name = names.data(); name < names.data() + size; name += strlen(name) + 1) {
    const ssize_t length = getxattr(path, name, nullptr, 0);
    if (length < 0) continue;
    value.resize(static_cast<std::size_t>(length));
    if (getxattr(path, name, value.data(), value.size()) != length) continue;
    if (fsetxattr(descriptor, name, value.data(), value.size(), 0) != 0) continue;
  }
}
#elif defined(__APPLE__)
void copyAttributes(const char* path, int descriptor) {
  const int source = open(path, O_RDONLY | O_CLOEXEC);
  if (source < 0) return;
  fcopyfile(source, descriptor, nullptr, COPYFILE_ACL | COPYFILE_XATTR);
  close(source);
}
#else
void copyAttributes(const char*, int) {}
#endif

bool NamelessFile::takeRights(const char* path) const {
  struct stat wanted {};
  struct stat given {};
  if (stat(path, &wanted) != 0 || fstat(descriptor, &given) != 0) return false;
  mode_t mode = wanted.st_mode & 07777;
  const bool isSame = wanted.st_uid == given.st_uid && wanted.st_gid == given.st_gid;
  if (!isSame && fchown(descriptor, wanted.st_uid, wanted.st_gid) != 0) {
    mode &= 01777;  // permissions given to one owner are not another's
    if (fchown(descriptor, static_cast<uid_t>(-1), wanted.st_gid) != 0) {
      mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3;
    }
  }
  copyAttributes(path, descriptor);
  return fchmod(descriptor, mode) == 0;
}

bool NamelessFile::giveName() {
  if (!name.empty()) return true;
  const std::string opened = "/proc/self/fd/" + std::to_string(descriptor);
  return findName([&opened](const char* candidate) {
    return linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, candidate, AT_SYMLINK_FOLLOW) == 0;
  });
}

bool NamelessFile::close() { return ::close(std::exchange(descriptor, -1)) == 0; }

bool NamelessFile::renameTo(const char* path) {
  if (rename(name.c_str(), path) != 0) return false;
  name.clear();
  return true;
}

/** The path of the file itself, without links; empty with errno set. */
std::string realPath(const char* path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path, nullptr), &std::free);
  return real == nullptr ? std::string() : std::string(real.get());
}

Replacement failure(std::string& reason) {
  const int error = errno;
  reason = std::strerror(error);
  const bool isOfAll = error == ENOSPC || error == EDQUOT || error == EROFS || error == EIO;
  return isOfAll ? Replacement::hopeless : Replacement::failed;
}

}  // namespace

Replacement renameOver(const char* path, const FileState& asRead, std::string_view text,
                       std::string& reason) {
  const std::string real = realPath(path);
  if (real.empty() || faccessat(AT_FDCWD, real.c_str(), W_OK, AT_EACCESS) != 0) {
    return failure(reason);
  }
  const std::string folder = real.substr(0, std::max<std::size_t>(1, real.rfind('/')));
  NamelessFile file(folder);
  if (!file.open() || writeAll(file.get(), text) != 0 || !file.takeRights(real.c_str()))
    return failure(reason);
  if (!file.giveName() || !file.close()) return failure(reason);
  if (!stateOf(real.c_str()).isUnchanged(asRead)) return Replacement::changed;
  return file.renameTo(real.c_str()) ? Replacement::done : failure(reason);
}
