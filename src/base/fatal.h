// How a fault ends the run from inside: one that no caller can mend, such as exhausted memory
// or an input that fails while it is read.
#ifndef QORN_BASE_FATAL_H
#define QORN_BASE_FATAL_H

/** Writes "Error! qorn: MESSAGE" as one line on standard error, or "Error! qorn: MESSAGE: REASON"
    where a reason is given, and ends the run with status 2. */
[[noreturn]] void fatalError(const char* message, const char* reason = nullptr);

/** The same line for a fault that the run outlives. */
void reportFault(const char* message, const char* reason = nullptr);

/** Has these lines begin otherwise, and fatal errors end the run by this function, which does not
    return. Where several threads meet a fatal error, the first one is reported. */
void callFaults(const char* begin, void (*end)(int status));

/** The handler to give to std::set_new_handler: no memory is a fatal error. */
[[noreturn]] void outOfMemory();

#endif
