// Sections of a run that no signal and no error in another thread may interrupt, such as replacing
// a file: whatever ends the run waits until they are over.
#ifndef QORN_BASE_UNBROKEN_H
#define QORN_BASE_UNBROKEN_H

/** While one lives, the run does not end. Keep it short, and allocate nothing in it: a run that is
    out of memory ends through `endRunWhole`, which waits for this one. Sections of one thread nest.
 */
class UnbrokenSection {
 public:
  /** Does not return in a run that is ending. */
  UnbrokenSection();
  UnbrokenSection(const UnbrokenSection&) = delete;
  UnbrokenSection& operator=(const UnbrokenSection&) = delete;
  ~UnbrokenSection();
};

/** From here on the signals that end a run take effect after the sections in progress. */
void endOnSignalsWhole();

/** Ends the process after the sections in progress: standard output is flushed, nothing else runs.
    The first caller decides the status; a later one waits for the end. */
[[noreturn]] void endRunWhole(int status);

#endif
