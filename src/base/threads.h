// Threads whose want is no fault: where none is to be had, the work takes longer.
#ifndef QORN_BASE_THREADS_H
#define QORN_BASE_THREADS_H

#include <thread>

/** Starts `body(argument)` in a thread that meets no signals; false if the system gives none. */
[[nodiscard]] bool startThread(std::thread& thread, void (*body)(void*), void* argument);

#endif
