// A string that holds a file path. All rules but addcwd and executable are purely textual: no file
// is looked at, and symbolic links are not resolved.
#ifndef QORN_BASE_PATH_H
#define QORN_BASE_PATH_H

#include "base/dynstring.h"

class Path : public DynString {
 public:
  using DynString::DynString;

  /** Prepends the working directory to a relative path. If that can't be determined, the path stays
      as it is and a line on standard error says so. */
  void addcwd();
  /** Removes empty and "." steps, steps that ".." undoes, an automounter's "/tmp_mnt" and the "/"
      at the end. A path with more ".." than it has levels stays whole. */
  void cleanup();
  /** 0 if the user may execute the file, else -1 with the reason in getError. */
  [[nodiscard]] int executable();
  /** The system's error number of the last failed test. */
  int getError() const { return error; }
  /** The text after the last "/", or all of it. Valid until the path changes. */
  const char* tail() const;

 private:
  int error = 0;
};

#endif
