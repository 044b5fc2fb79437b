// Sections are counted; whoever ends the run first announces it, then waits for the count to drop
// to zero. A section counts itself before it checks whether the run is ending, so one of them sees
// the other. The handler does only what a handler may: atomics, sleeping and raising.
#include "base/unbroken.h"

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <ctime>

namespace {

constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXCPU};

std::atomic<int> sections = 0;
std::atomic<bool> isEnding = false;
thread_local int depth = 0;  // of this thread's sections

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void waitForSections() {
  const timespec moment{0, 1000000};
  while (sections.load() > 0) nanosleep(&moment, nullptr);
}

[[noreturn]] void waitForTheEnd() {
  for (;;) pause();
}

sigset_t endingSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : endingSignals) sigaddset(&set, signal);
  return set;
}

extern "C" void endBySignal(int signal) {
  isEnding = true;
  waitForSections();
  std::signal(signal, SIG_DFL);
  std::raise(signal);  // delivered when this handler returns; it is what the caller sees
}

}  // namespace

UnbrokenSection::UnbrokenSection() {
  const sigset_t held = endingSet();
  pthread_sigmask(SIG_BLOCK, &held, &before);
  if (++depth > 1) return;
  ++sections;
  if (!isEnding) return;
  --sections;
  waitForTheEnd();
}

UnbrokenSection::~UnbrokenSection() {
  if (--depth == 0) --sections;
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void endOnSignals() {
  struct sigaction action {};
  action.sa_handler = endBySignal;
  action.sa_mask = endingSet();
  action.sa_flags = SA_RESTART;
  for (const int signal : endingSignals) {
    struct sigaction former {};
    sigaction(signal, nullptr, &former);
    // Started with the signal ignored, as by nohup? Keep it so.
    if (former.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
  std::signal(SIGXFSZ, SIG_IGN);
}

void leaveSignalsToOthers() {
  const sigset_t held = endingSet();
  pthread_sigmask(SIG_BLOCK, &held, nullptr);
}

void endRunWhole(int status) {
  if (depth > 0) --sections;  // this one can't go on
  if (isEnding.exchange(true)) waitForTheEnd();
  waitForSections();
  std::fflush(stdout);
  _exit(status);
}
