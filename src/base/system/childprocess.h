// Running another program to completion, without a shell.
#ifndef QORN_BASE_SYSTEM_CHILDPROCESS_H
#define QORN_BASE_SYSTEM_CHILDPROCESS_H

#include <string>
#include <string_view>
#include <vector>

struct ChildResult {
  int status = -1;      // what the program returned; -1 if it could not be started or was killed
  std::string output;   // what it wrote on standard output
  std::string trouble;  // what it wrote on standard error, or why it could not be started
};

/** Runs the program named by the first word, searched for in PATH, with this standard input. */
[[nodiscard]] ChildResult runProgram(const std::vector<std::string>& words,
                                     std::string_view input = {});

#endif
