// POSIX signals. The handlers do only what a handler may: atomics, sleeping and raising.
#include "base/system/run.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "base/exitstatus.h"

void prepareRun(int&, char**&) {}

std::optional<std::string> environmentValue(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr) return {};
  return value;
}

void removeFromEnvironment(const char* name) { unsetenv(name); }

long processNumber() { return getpid(); }

// --- Signals with which a user or the system ends a run ---

namespace {

constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXCPU};

void (*beforeTheEnd)() = nullptr;
volatile std::sig_atomic_t interruptedStatus = 0;
thread_local int holds = 0;
thread_local sigset_t signalsBefore;

sigset_t endingSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : endingSignals) sigaddset(&set, signal);
  return set;
}

extern "C" void endBySignal(int signal) {
  beforeTheEnd();
  std::signal(signal, SIG_DFL);
  std::raise(signal);  // delivered when this handler returns; it is what the caller sees
}

extern "C" void interrupt(int) { endRun(static_cast<ExitStatus>(interruptedStatus)); }

}  // namespace

void endOnSignals(void (*last)()) {
  beforeTheEnd = last;
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

void endOnInterruption(int status) {
  interruptedStatus = status;
  std::signal(SIGINT, interrupt);
  std::signal(SIGTERM, interrupt);
}

void holdSignals() {
  if (++holds > 1) return;
  sigset_t held = endingSet();
  sigaddset(&held, SIGXFSZ);  // a file that grows too large is a write error
  pthread_sigmask(SIG_BLOCK, &held, &signalsBefore);
}

void releaseSignals() {
  if (--holds == 0) pthread_sigmask(SIG_SETMASK, &signalsBefore, nullptr);
}

void leaveSignalsToOthers() {
  const sigset_t held = endingSet();
  pthread_sigmask(SIG_BLOCK, &held, nullptr);
}
