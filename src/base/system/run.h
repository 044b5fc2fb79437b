// The run as a whole: its arguments and environment, and the signals that end it.
#ifndef QORN_BASE_SYSTEM_RUN_H
#define QORN_BASE_SYSTEM_RUN_H

#include <optional>
#include <string>

/** To be called first. From here on the arguments are as a POSIX shell would hand them over, with
    wild cards expanded, and the standard streams pass texts byte by byte. */
void prepareRun(int& argc, char**& argv);

[[nodiscard]] std::optional<std::string> environmentValue(const char* name);
void removeFromEnvironment(const char* name);

[[nodiscard]] long processNumber();

// --- Signals with which a user or the system ends a run ---

/** From here on each of them calls `last`, then ends the run as it would have. Ignored ones stay
    ignored, and a file that exceeds the file size limit is a write error instead. */
void endOnSignals(void (*last)());
/** From here on an interruption by the user ends the run with this status. */
void endOnInterruption(int status);

/** Delays them until they are released. To be called in pairs by a thread; pairs nest. */
void holdSignals();
void releaseSignals();

/** Has another thread than this one receive them, for good. */
void leaveSignalsToOthers();

#endif
