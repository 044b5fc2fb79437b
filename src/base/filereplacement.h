// Replaces a file's text so that no text is lost, whatever fails and whatever ends the run.
//
// With a backup, the old file is renamed to the backup's name, the new text is written under a name
// of its own beside it, and that file gets the old name only once it is complete: an unfinished
// text never has the name of a source. If writing fails, the backup gets its old name back.
//
// Without one, the file is overwritten, so that its permissions, owner and other names stay; until
// the new text is complete, a copy of the old one is kept beside it, or in the folder for temporary
// files if none can be created there.
//
// These files are called `.qorn-new.NUMBER` and `.qorn-old.NUMBER`, where NUMBER is the process ID.
// One is left over only if the run was killed on the way, or if the reason names it. Known limit:
// nothing is flushed to disk, so a power failure can lose what was written.
#ifndef QORN_BASE_FILEREPLACEMENT_H
#define QORN_BASE_FILEREPLACEMENT_H

#include <string>
#include <string_view>

#include "base/system/files.h"
#include "base/textsink.h"

enum Replaced : int {
  REPLACED,
  NOT_OPENED,   // the rename failed, or the opening, whereupon the text has the backup's name alone
  NOT_WRITTEN,  // and the file is as it was, unless the reason says where its text is
  CHANGED,      // since it was read; the newer text is kept
};

/** What was read under a name. The text must outlive the replacement. */
struct FileRead {
  FileState state;  // before the reading
  std::string_view text;
};

/** One replacement: `open`, `put` as often as wanted, `close`. While it lives, signals that would
    end the run are blocked; only one may live in a thread. Nothing allocates between `open` and
    `close`, unless there is a failure to report. */
class FileReplacement : public TextSink {
 public:
  /** An empty extension means that no backup is wanted. */
  FileReplacement(std::string_view name, const FileRead& old, std::string_view backupExtension);
  ~FileReplacement() override;

  /** To be followed by `put` and `close` if it gives REPLACED. */
  [[nodiscard]] Replaced open();
  void put(std::string_view text) override;
  [[nodiscard]] Replaced close();

  /** Why a result was not REPLACED. */
  const std::string& reason() const { return why; }

 private:
  Replaced openBesideBackup();
  Replaced openInPlace();
  Replaced closeBesideBackup();
  Replaced closeInPlace();
  [[nodiscard]] int moveToBackup();
  [[nodiscard]] int moveOffBackup();
  [[nodiscard]] int keepOldText();
  std::string_view folder() const;
  void nameBeside(std::string_view home, const char* kind);
  Replaced giveUp(Replaced result, int failure);

  std::string file;
  std::string backup;  // empty: none is wanted
  std::string beside;  // the new text, or without a backup the copy of the old one
  std::string why;
  FileRead read;
  int descriptor = -1;
  int error = 0;  // of the first write that failed
};

#endif
