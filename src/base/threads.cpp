// The library reports a missing thread by an exception; this is the only file that handles one.
#include "base/threads.h"

#include <system_error>
#include <thread>
#include <vector>

#include "base/system/run.h"

namespace {

/** False if the system grants none. */
bool startThread(std::thread& thread, void (*body)(void*), void* argument) {
  try {
    thread = std::thread([body, argument] {
      leaveSignalsToOthers();
      body(argument);
    });
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

}  // namespace

void runInThreads(unsigned threads, void (*body)(void*), void* argument) {
  std::vector<std::thread> others(threads - 1);
  for (std::thread& other : others) {
    if (!startThread(other, body, argument)) break;
  }
  body(argument);
  for (std::thread& other : others) {
    if (other.joinable()) other.join();
  }
}
