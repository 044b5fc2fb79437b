// The library reports a missing thread by an exception; this is the only file that handles one.
#include "base/threads.h"

#include <system_error>

#include "base/system/run.h"

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
