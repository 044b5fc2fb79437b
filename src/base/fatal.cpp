// Fatal errors. Nothing here allocates: memory may be what is missing.
#include "base/fatal.h"

#include <atomic>
#include <cstdio>

#include "base/exitstatus.h"

namespace {

const char* beginning = "Error! qorn: ";
void (*ending)(int status) = nullptr;
std::atomic<bool> isFatal = false;
std::atomic<bool> isReported = false;

}  // namespace

void callFaults(const char* begin, void (*end)(int status)) {
  beginning = begin;
  ending = end;
}

void reportFault(const char* message, const char* reason) {
  std::fputs(beginning, stderr);  // unbuffered, as standard error always is
  std::fputs(message, stderr);
  if (reason != nullptr) {
    std::fputs(": ", stderr);
    std::fputs(reason, stderr);
  }
  std::fputs("\n", stderr);
}

void fatalError(const char* message, const char* reason) {
  if (!isFatal.exchange(true)) {
    reportFault(message, reason);
    isReported = true;
  }
  if (ending != nullptr) {
    while (!isReported) {  // lets the other thread print its whole line
    }
    ending(STATUS_FATAL);
  }
  endRun(STATUS_FATAL);
}

void outOfMemory() { fatalError("not enough memory"); }
