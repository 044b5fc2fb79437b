// Stretches of a run that no signal and no fault of another thread may break off, such as putting a
// new file in the place of an old one: what ends the run waits until they are over.
#ifndef QORN_BASE_UNBROKEN_H
#define QORN_BASE_UNBROKEN_H

#include <csignal>

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

 private:
  sigset_t before;  // the signals that this thread held back already
};

/** The signals that end a run do so from here on after the sections in hand. A file that grows over
    the limit of its size is an error of the writing instead. */
void endOnSignals();

/** Holds these signals back in this thread for good, so that another one meets them. */
void leaveSignalsToOthers();

/** Ends the process after the sections in hand: standard output is flushed, nothing else runs. The
    first caller decides; a further one waits for the end. */
[[noreturn]] void endRunWhole(int status);

#endif
