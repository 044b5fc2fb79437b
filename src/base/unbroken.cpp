// Sections are counted; whoever ends the run first announces it, then waits for the count to drop
// to zero. A section counts itself before it checks whether the run is ending, so one of them sees
// the other. Signal handlers call this, so it does no more than they may: atomics and sleeping.
#include "base/unbroken.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "base/system/run.h"

namespace {

std::atomic<int> sections = 0;
std::atomic<bool> isEnding = false;
thread_local int depth = 0;  // of this thread's sections

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void waitForSections() {
  while (sections.load() > 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

[[noreturn]] void waitForTheEnd() {
  for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
}

void announceTheEnd() {
  isEnding = true;
  waitForSections();
}

}  // namespace

UnbrokenSection::UnbrokenSection() {
  holdSignals();
  if (++depth > 1) return;
  ++sections;
  if (!isEnding) return;
  --sections;
  waitForTheEnd();
}

UnbrokenSection::~UnbrokenSection() {
  if (--depth == 0) --sections;
  releaseSignals();
}

void endOnSignalsWhole() { endOnSignals(announceTheEnd); }

void endRunWhole(int status) {
  if (depth > 0) --sections;  // this one can't go on
  if (isEnding.exchange(true)) waitForTheEnd();
  waitForSections();
  std::fflush(stdout);
  std::_Exit(status);
}
