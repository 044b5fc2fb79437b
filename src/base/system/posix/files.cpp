// POSIX files.
#include "base/system/files.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

// --- Opening ---

FILE* openStream(const char* path) { return std::fopen(path, "r"); }

int openToRead(const char* path) { return open(path, O_RDONLY | O_CLOEXEC); }

int openToReadAtOnce(const char* path) {
  return open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

int createFile(const char* path, NewFile rights) {
  return open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
              rights == PRIVATE ? 0600 : 0666);
}

int createUnnamedFile(const char* folder) {
#ifdef O_TMPFILE
  static const bool canBeNamed = access("/proc/self/fd", X_OK) == 0;
  if (canBeNamed) return open(folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
#endif
  (void)folder;
  errno = EOPNOTSUPP;
  return -1;
}

int nameFile(int descriptor, const char* path) {
  const std::string opened = "/proc/self/fd/" + std::to_string(descriptor);
  return linkat(AT_FDCWD, opened.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
}

int openToOverwrite(const char* path) { return open(path, O_RDWR | O_CLOEXEC); }

// --- Open files ---

std::ptrdiff_t readSome(int descriptor, char* text, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(descriptor, text, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

int writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {  // some process made it non-blocking
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

// --- Files by name ---

int checkWritable(const char* path) { return faccessat(AT_FDCWD, path, W_OK, AT_EACCESS); }

int checkExecutable(const char* path) { return access(path, X_OK); }

bool isDiskError(int error) {
  return error == ENOSPC || error == EDQUOT || error == EROFS || error == EIO;
}

void discardFile(const char* path) {
  const int failure = errno;
  (void)unlink(path);
  errno = failure;
}

int moveOver(const char* from, const char* to) { return std::rename(from, to); }

int moveToFreeName(const char* from, const char* to) {
  if (link(from, to) == 0) return unlink(from);
  if (errno == EEXIST) return -1;
  // Some file systems have no hard links, and linking to another user's file may be refused.
  const FileState target = stateOfEntry(to);
  errno = target.kind == NO_FILE ? target.error : EEXIST;
  return errno == ENOENT ? std::rename(from, to) : -1;
}
