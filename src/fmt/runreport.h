// What a run prints, in the order of its files, and how it ends.
#ifndef QORN_FMT_RUNREPORT_H
#define QORN_FMT_RUNREPORT_H

#include <chrono>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "fmt/settingsource.h"

enum FmtStatus : int {
  FMT_DONE = 0,     // or nothing to do
  FMT_CHANGES = 1,  // --check or --diff found some
  FMT_TROUBLE = 2
};

/** What is asked of every file of a run. */
struct RunMode {
  bool isCheck = false;
  bool isDiff = false;
  bool isQuiet = false;
  unsigned threads = 1;
  const char* remedy = "qornfmt";  // the command that does what this one only looks at
  bool isReadOnly() const { return isCheck || isDiff; }
};

/** What came of one file. */
struct FileReport {
  enum Outcome : int {
    SAME,
    CHANGED,  // or would be
    LEFT      // for the trouble that the messages report
  };
  Outcome outcome = SAME;
  bool isLast = false;                      // no further file can succeed
  std::string output;                       // for standard output
  std::vector<std::string> messages;        // for standard error
  std::vector<std::string> notes;           // the same, but not in a quiet run
  const Configuration* settings = nullptr;  // what applied, or null

  std::size_t weight() const;
};

/** Prints reports as they come and counts them. For one thread at a time. */
class RunReport {
 public:
  /** `total` files of this kind ("file", "staged file") are to come; there is no summary of null.
   */
  RunReport(const RunMode& runMode, std::size_t total, const char* kind);

  /** False if no further file is to be begun. */
  bool add(const FileReport& report);
  /** A message that belongs to no file of the run. */
  void addTrouble(const std::string& message);
  /** Prints the summary. How the run ends: trouble outweighs changes. */
  FmtStatus finish();

 private:
  std::string summary() const;
  void tellSettings(const Configuration* settings);
  void say(const std::string& line);
  void showProgress();
  void hideProgress();

  const RunMode mode;
  const std::size_t fileCount;
  const char* const noun;
  std::size_t reported = 0;
  std::size_t changed = 0;
  std::size_t left = 0;
  bool hasTrouble = false;
  bool isUnheard = false;  // standard output takes no more
  bool isLineShown = false;
  const bool hasProgress;
  std::set<const Configuration*> told;
  std::chrono::steady_clock::time_point nextProgress;
};

/** Writes to standard output and flushes it. False, with a message, if that fails. */
[[nodiscard]] bool printOutput(const std::string& text);

#endif
