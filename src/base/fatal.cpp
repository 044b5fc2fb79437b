// Fatal errors. Nothing here allocates: memory may be what is missing.
#include "base/fatal.h"

#include <cstdio>

#include "base/exitstatus.h"

void reportFault(const char* message, const char* reason) {
  std::fputs("Error! qorn: ", stderr);  // unbuffered, as every standard error stream
  std::fputs(message, stderr);
  if (reason != nullptr) {
    std::fputs(": ", stderr);
    std::fputs(reason, stderr);
  }
  std::fputs("\n", stderr);
}

void fatalError(const char* message, const char* reason) {
  reportFault(message, reason);
  endRun(STATUS_FATAL);
}

void outOfMemory() { fatalError("not enough memory"); }
