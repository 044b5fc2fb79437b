// Ends the run on an error that no caller can handle, such as exhausted memory or an input that
// fails while it is read.
#ifndef QORN_BASE_FATAL_H
#define QORN_BASE_FATAL_H

/** Writes "Error! qorn: MESSAGE" as one line on standard error, or "Error! qorn: MESSAGE: REASON"
    if a reason is given, and ends the run with status 2. */
[[noreturn]] void fatalError(const char* message, const char* reason = nullptr);

/** Writes the same line for an error that does not end the run. */
void reportFault(const char* message, const char* reason = nullptr);

/** Replaces the beginning of these lines and the function that ends the run on a fatal error; it
    must not return. If several threads hit a fatal error, the first one is reported. */
void callFaults(const char* begin, void (*end)(int status));

/** A handler for std::set_new_handler: running out of memory is a fatal error. */
[[noreturn]] void outOfMemory();

#endif
