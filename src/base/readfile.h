// Reading whole files and streams, without a library stream in between.
#ifndef QORN_BASE_READFILE_H
#define QORN_BASE_READFILE_H

#include <string>

#include "base/system/paths.h"

/** Reads a regular file into `text`, and its state from before the reading. Returns the reason why
    not, or an empty string. */
[[nodiscard]] std::string readFile(const char* path, std::string& text, FileState& state);

/** Reads a file of any kind into `text`. Returns the reason why not, or an empty string. */
[[nodiscard]] std::string readAnyFile(const char* path, std::string& text);

/** Reads from the descriptor's position to the end. Returns the reason why not, or an empty
    string. */
[[nodiscard]] std::string readToEnd(int descriptor, std::string& text);

#endif
