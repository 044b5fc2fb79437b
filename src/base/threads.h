// Optional threads: if none can be had, the work takes longer.
#ifndef QORN_BASE_THREADS_H
#define QORN_BASE_THREADS_H

/** Calls `body(argument)` in the calling thread and in as many others as `threads` adds to it and
   the system grants; those receive no signals. Returns when all calls have. */
void runInThreads(unsigned threads, void (*body)(void*), void* argument);

#endif
