// The command line of `qornfmt`.
#ifndef QORN_DRIVER_FMTOPTIONS_H
#define QORN_DRIVER_FMTOPTIONS_H

#include <string>
#include <vector>

#include "fmt/lines.h"

struct FmtOptions {
  bool isCheck = false;
  bool isDiff = false;
  bool isQuiet = false;
  bool isForced = false;
  bool isStaged = false;
  bool isChanged = false;
  bool isSettings = false;
  bool isGuess = false;
  bool isHelp = false;
  bool isVersion = false;
  unsigned threads = 0;            // 0: as many as there are cores
  std::string revision = "HEAD";   // what --changed compares with
  std::string configFile;          // empty: the one that applies to each file
  std::string inputName;           // of standard input; empty: it has none
  LineSet lines;                   // empty: all
  std::vector<std::string> paths;  // "-" is standard input

  bool isFilter() const { return paths.size() == 1 && paths[0] == "-"; }
  /** True if files are only looked at. */
  bool isReadOnly() const { return isCheck || isDiff; }
};

extern const char* const fmtUsage;

/** Parses the command line. False, with a line on standard error, if it is wrong. */
[[nodiscard]] bool readFmtOptions(int argc, char** argv, FmtOptions& options);

#endif
