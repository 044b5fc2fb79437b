// Reading files and streams whole, without a stream of the library in between.
#ifndef QORN_BASE_READFILE_H
#define QORN_BASE_READFILE_H

#include <string>

#include "base/system.h"

/** Reads a regular file into `text`, and its state from before the reading. Returns the reason why
    not, or an empty string. */
[[nodiscard]] std::string readFile(const char* path, std::string& text, FileState& state);

/** Reads from where the descriptor stands to the end. Returns the reason why not, or an empty
    string. */
[[nodiscard]] std::string readToEnd(int descriptor, std::string& text);

#endif
