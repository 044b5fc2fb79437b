// Preloaded into a program, has its calls of the system fail: QORN_FAIL=NAME:N:ERROR lets the N-th
// call of that name fail with that error number. With KILL or TERM for the error, a signal
// comes there; with SAVE, somebody else writes to a.vhd.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool isToFail(const char* name) {
  static std::atomic<int> calls = 0;  // by any thread
  const char* wanted = std::getenv("QORN_FAIL");
  const std::size_t length = std::strlen(name);
  if (wanted == nullptr || std::strncmp(wanted, name, length) != 0 || wanted[length] != ':') {
    return false;
  }
  char* rest = nullptr;
  if (++calls != std::strtol(wanted + length + 1, &rest, 10)) return false;
  if (std::strcmp(rest, ":KILL") == 0) std::raise(SIGKILL);
  if (std::strcmp(rest, ":SAVE") == 0) return truncate("a.vhd", 3) != 0;
  if (std::strcmp(rest, ":TERM") == 0) return kill(getpid(), SIGTERM) != 0;
  errno = std::atoi(rest + 1);
  return true;
}

template <class Function>
Function real(Function, const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define QORN_FAILING(result, name, parameters, arguments, failure) \
  extern "C" result name parameters {                              \
    if (isToFail(#name)) return failure;                           \
    return real(&name, #name) arguments;                           \
  }

QORN_FAILING(ssize_t, read, (int file, void* to, size_t size), (file, to, size), -1)
QORN_FAILING(ssize_t, write, (int file, const void* from, size_t size), (file, from, size), -1)
QORN_FAILING(int, close, (int file), (file), -1)
QORN_FAILING(int, fstat, (int file, struct stat* status), (file, status), -1)
QORN_FAILING(int, stat, (const char* path, struct stat* status), (path, status), -1)
QORN_FAILING(int, fchown, (int file, uid_t user, gid_t group), (file, user, group), -1)
QORN_FAILING(int, fchmod, (int file, mode_t mode), (file, mode), -1)
QORN_FAILING(int, rename, (const char* from, const char* to), (from, to), -1)
QORN_FAILING(int, faccessat, (int folder, const char* path, int mode, int flags),
             (folder, path, mode, flags), -1)
QORN_FAILING(int, linkat, (int from, const char* path, int to, const char* name, int flags),
             (from, path, to, name, flags), -1)
QORN_FAILING(char*, realpath, (const char* path, char* resolved), (path, resolved), nullptr)

extern "C" int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  if (isToFail("open")) return -1;
  return openat(AT_FDCWD, path, flags, mode);
}
