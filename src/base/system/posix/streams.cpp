// Terminals are recognised by what the system says of the descriptors, never by their names.
#include "base/system/streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

void occupyClosedStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    // Takes the lowest free descriptor, which is this one. Opened the wrong way round, so that
    // using it fails.
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

InputKind standardInputKind() {
  struct stat status {};
  if (fstat(STDIN_FILENO, &status) != 0) return InputKind::nothing;
  if (isatty(STDIN_FILENO) == 1) return InputKind::terminal;
  return S_ISCHR(status.st_mode) || S_ISDIR(status.st_mode) ? InputKind::nothing : InputKind::piped;
}

bool isErrorWatched() {
  const char* kind = std::getenv("TERM");
  return isatty(STDERR_FILENO) == 1 && kind != nullptr && std::strcmp(kind, "dumb") != 0;
}
