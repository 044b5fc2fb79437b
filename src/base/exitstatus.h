// How a run can end, as the caller's shell sees it.
#ifndef QORN_BASE_EXITSTATUS_H
#define QORN_BASE_EXITSTATUS_H

enum ExitStatus : int {
  STATUS_OK = 0,             // all input formatted, or help printed
  STATUS_FAILED = 1,         // the command line, a named configuration file or an input is at fault
  STATUS_FATAL = 2,          // a read error or exhausted memory
  STATUS_INTERRUPTED = 255,  // a signal
};

/** Ends the run with this status; open streams are flushed. A signal handler may call it at any
    moment, even while the run is already ending: then the process exits at once, without
    flushing. */
[[noreturn]] void endRun(ExitStatus status);

#endif
