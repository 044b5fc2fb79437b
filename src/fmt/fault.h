// What formatting must not do to a text, told to its author.
#ifndef QORN_FMT_FAULT_H
#define QORN_FMT_FAULT_H

#include <string>

#include "fmt/reading.h"

struct Fault {
  unsigned line;        // of the old text, 1-based
  std::string message;  // without file and line; one line, no line end
};

/** The fault by which two readings that were equal so far have come to pieces that differ. Both
    readings go on a little. */
[[nodiscard]] Fault explainDifference(Reading& oldReading, Reading& freshReading);

#endif
