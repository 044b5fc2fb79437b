// Optional threads: if none can be had, the work takes longer.
#ifndef QORN_BASE_THREADS_H
#define QORN_BASE_THREADS_H

#include <thread>

/** Starts `body(argument)` in a thread that receives no signals; false if the system grants
    none. */
[[nodiscard]] bool startThread(std::thread& thread, void (*body)(void*), void* argument);

#endif
