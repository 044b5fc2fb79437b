// The only thread there is.
#include "base/threads.h"

void runInThreads(unsigned, void (*body)(void*), void* argument) { body(argument); }
