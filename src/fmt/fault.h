// What formatting must not do to a text, explained to its author.
#ifndef QORN_FMT_FAULT_H
#define QORN_FMT_FAULT_H

#include <string>

#include "fmt/reading.h"

struct Fault {
  unsigned line;        // of the old text, 1-based
  std::string message;  // without file and line; one line, no line end
};

/** The fault that made two readings, equal so far, arrive at different pieces. Both readings
    advance a little. */
[[nodiscard]] Fault explainDifference(Reading& oldReading, Reading& freshReading);

#endif
