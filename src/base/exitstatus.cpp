#include "base/exitstatus.h"

#include <csignal>
#include <cstdlib>

void endRun(ExitStatus status) {
  static volatile std::sig_atomic_t isEnding = 0;
  if (isEnding != 0) std::_Exit(status);  // a second exit() would wait for a lock of the first
  isEnding = 1;
  std::exit(status);
}
