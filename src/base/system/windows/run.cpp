// Control events take the place of signals. They arrive in a thread of their own, so that holding
// them back is a lock: whoever holds signals shares it, and the end of the run takes it for good.
#include "base/system/run.h"

#include <fcntl.h>
#include <io.h>

#include <string_view>
#include <vector>

#include "base/system/windows/arguments.h"
#include "base/system/windows/wide.h"

// --- Arguments and environment ---

void prepareRun(int& argc, char**& argv) {
  for (int stream = 0; stream <= 2; ++stream) (void)setmode(stream, _O_BINARY);
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);  // no windows with questions
  SetConsoleOutputCP(CP_UTF8);
  static std::vector<std::string> arguments = commandLineArguments();
  static std::vector<char*> places;
  for (std::string& argument : arguments) places.push_back(argument.data());
  argc = static_cast<int>(places.size());
  places.push_back(nullptr);
  argv = places.data();
  __argv = argv;  // getopt takes the program's name from there
}

std::optional<std::string> environmentValue(const char* name) {
  const std::wstring key = wide(name);
  std::wstring value(128, L'\0');
  for (;;) {
    const DWORD size = static_cast<DWORD>(value.size());
    SetLastError(ERROR_SUCCESS);
    const DWORD length = GetEnvironmentVariableW(key.c_str(), value.data(), size);
    if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return {};
    value.resize(length);
    if (length < size) return narrow(value);
  }
}

void removeFromEnvironment(const char* name) {
  SetEnvironmentVariableW(wide(name).c_str(), nullptr);
}

long processNumber() { return static_cast<long>(GetCurrentProcessId()); }

// --- Signals with which a user or the system ends a run ---

namespace {

SRWLOCK ending = SRWLOCK_INIT;
thread_local int holds = 0;
void (*beforeTheEnd)() = nullptr;
int interruptedStatus = 0;

/** Ends the process where it stands: what libraries do at a usual end would meet threads that were
    stopped halfway. */
BOOL endAtOnce(UINT status) {
  TerminateProcess(GetCurrentProcess(), status);
  return FALSE;
}

BOOL WINAPI endAsUsual(DWORD) {
  constexpr UINT interrupted = 0xC000013A;  // what callers see of a program that leaves this alone
  AcquireSRWLockExclusive(&ending);
  beforeTheEnd();
  return endAtOnce(interrupted);
}

BOOL WINAPI endWithStatus(DWORD) {
  AcquireSRWLockExclusive(&ending);
  return endAtOnce(static_cast<UINT>(interruptedStatus));
}

}  // namespace

void endOnSignals(void (*last)()) {
  beforeTheEnd = last;
  SetConsoleCtrlHandler(endAsUsual, TRUE);
}

void endOnInterruption(int status) {
  interruptedStatus = status;
  SetConsoleCtrlHandler(endWithStatus, TRUE);
}

void holdSignals() {
  if (++holds == 1) AcquireSRWLockShared(&ending);
}

void releaseSignals() {
  if (--holds == 0) ReleaseSRWLockShared(&ending);
}

void leaveSignalsToOthers() {}
