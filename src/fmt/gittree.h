// What git knows about the work tree that contains the current folder, by git's own plumbing. Names
// are those of the index, from the root of the work tree; paths lead there from the current folder.
// No user setting changes what is read.
#ifndef QORN_FMT_GITTREE_H
#define QORN_FMT_GITTREE_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/lines.h"
#include "fmt/patchhunks.h"

/** A file that differs between two of: a commit, the index, the work tree. */
struct GitChange {
  char status = 'M';  // A added, D deleted, M modified, R renamed, T another kind, U in conflict
  std::string mode;   // of the newer side
  std::string id;     // of the newer side's blob; zeros for a file of the work tree
  std::string name;
  std::string oldName;  // of what was renamed
  std::vector<PatchHunk> hunks;

  /** The lines that are new, in the newer side. */
  LineSet newLines() const;
  /** True for plain files, false for links and submodules. */
  bool isPlain() const { return mode.starts_with("100"); }
  /** True if the other side has lines of the same file. */
  bool hasOldLines() const { return status == 'M' || status == 'R'; }
};

struct IndexEntry {
  std::string mode;
  std::string id;
  std::string name;
  bool isOutside = false;  // of the part of the tree that is checked out
};

/** Each function returns false with `trouble` set where git fails. */
class GitTree {
 public:
  /** Finds the work tree; false outside of one. */
  [[nodiscard]] bool open();
  /** The path of a name, from the current folder. */
  std::string pathOf(std::string_view name) const;

  /** What the index holds against the last commit. `paths` limit it, from the current folder. */
  [[nodiscard]] bool listStaged(const std::vector<std::string>& paths,
                                std::vector<GitChange>& changes);
  /** What the work tree holds against a commit. */
  [[nodiscard]] bool listChanged(const std::string& revision, const std::vector<std::string>& paths,
                                 std::vector<GitChange>& changes);
  /** Names of files that are neither in the index nor ignored. */
  [[nodiscard]] bool listUnknown(const std::vector<std::string>& paths,
                                 std::vector<std::string>& names);
  /** Names of files in conflict. */
  [[nodiscard]] bool listConflicts(const std::vector<std::string>& paths,
                                   std::vector<std::string>& names);
  /** What the work tree holds against the index, of these names, with hunks. */
  [[nodiscard]] bool listUnstaged(const std::vector<std::string>& names,
                                  std::vector<GitChange>& changes);
  /** Adds their hunks to changes from the list made last, where they have old lines. */
  [[nodiscard]] bool readHunks(std::vector<GitChange>& changes);

  [[nodiscard]] bool readBlobs(const std::vector<std::string>& ids,
                               std::vector<std::string>& texts);
  [[nodiscard]] bool writeBlob(std::string_view text, std::string& id);
  /** The entries of these names, stage 0. */
  [[nodiscard]] bool readIndex(const std::vector<std::string>& names,
                               std::vector<IndexEntry>& entries);
  /** Writes all of the entries or none. */
  [[nodiscard]] bool updateIndex(const std::vector<IndexEntry>& entries);
  /** Has git look at the files of the work tree again, so that equal ones count as equal. */
  void refreshIndex();

  std::string trouble;

 private:
  [[nodiscard]] bool run(const std::vector<std::string>& words, std::string& output,
                         std::string_view input = {});
  bool readPatch(std::vector<GitChange*>& wanted);
  bool listFiles(const std::vector<std::string>& kinds, const std::vector<std::string>& paths,
                 std::string& output);
  bool listDiff(const std::vector<std::string>& paths, std::vector<GitChange>& changes);

  std::string prefix;              // the current folder, from the root; ends with "/" or is empty
  std::vector<std::string> sides;  // words of `git diff` that say what the last list compared
};

#endif
