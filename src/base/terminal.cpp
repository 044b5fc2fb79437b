#include "base/terminal.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

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
