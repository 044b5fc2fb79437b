// POSIX.
#include "base/system.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

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

bool FileState::isSameFile(const FileState& other) const {
  return kind != NO_FILE && other.kind != NO_FILE && device == other.device &&
         number == other.number;
}

bool FileState::isUnchanged(const FileState& other) const {
  return isSameFile(other) && size == other.size && seconds == other.seconds &&
         nanoseconds == other.nanoseconds;
}

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
  if (stateOf(path).kind == OTHER_FILE) return true;
  // A link such as /dev/stdin, whatever it points to. Where /dev is no file system of its own, as
  // in a bare root, it cannot be told from others.
  const FileState entry = stateOfEntry(path);
  const std::uint64_t devices = stateOf("/dev").device;
  return entry.kind == LINK && entry.device == devices && devices != stateOf("/").device;
}

std::size_t lastPartOf(std::string_view path) { return path.rfind('/') + 1; }

std::string temporaryFolder() {
  const char* wanted = std::getenv("TMPDIR");
  return std::string(wanted == nullptr || *wanted == '\0' ? "/tmp" : wanted) + '/';
}

bool hasSeparator(std::string_view text) { return text.find('/') != std::string_view::npos; }

// --- Writing without the buffered streams ---

int createFile(const char* path, NewFile rights) {
  return open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights == PRIVATE ? 0600 : 0666);
}

int openToOverwrite(const char* path) { return open(path, O_RDWR | O_CLOEXEC); }

int writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {  // some process made it non-blocking
      struct pollfd room {};
      room.fd = descriptor;
      room.events = POLLOUT;
      if (poll(&room, 1, -1) < 0 && errno != EINTR) return -1;
    } else if (errno != EINTR) {
      return -1;
    }
  }
  return 0;
}

int rewindFile(int descriptor) { return lseek(descriptor, 0, SEEK_SET) < 0 ? -1 : 0; }

int endFileHere(int descriptor) {
  const off_t length = lseek(descriptor, 0, SEEK_CUR);
  return length < 0 ? -1 : ftruncate(descriptor, length);
}

int closeFile(int descriptor) { return close(descriptor); }

void discardFile(const char* path) {
  const int failure = errno;
  (void)unlink(path);
  errno = failure;
}

int moveToFreeName(const char* from, const char* to) {
  if (link(from, to) == 0) return unlink(from);
  if (errno == EEXIST) return -1;
  // Some file systems have no hard links, and linking to another user's file may be refused.
  const FileState target = stateOfEntry(to);
  errno = target.kind == NO_FILE ? target.error : EEXIST;
  return errno == ENOENT ? std::rename(from, to) : -1;
}

// --- The run ---

long processNumber() { return getpid(); }

namespace {

thread_local sigset_t signalsBefore;

}  // namespace

void holdSignals() {
  sigset_t held;
  sigemptyset(&held);
  for (const int number : {SIGHUP, SIGINT, SIGTERM, SIGXCPU, SIGXFSZ}) {
    sigaddset(&held, number);
  }
  pthread_sigmask(SIG_BLOCK, &held, &signalsBefore);
}

void releaseSignals() { pthread_sigmask(SIG_SETMASK, &signalsBefore, nullptr); }
