// What names refer to, and the rules by which a system forms them. Every text is in UTF-8 where the
// system has an encoding for names, and a sequence of bytes where it has none.
#ifndef QORN_BASE_SYSTEM_PATHS_H
#define QORN_BASE_SYSTEM_PATHS_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

// --- What a name refers to ---

enum FileKind : int { NO_FILE, REGULAR_FILE, FOLDER, LINK, OTHER_FILE };

/** Which file it is, and in what state. */
struct FileState {
  FileKind kind = NO_FILE;
  int error = 0;  // the system's, with NO_FILE
  std::uint64_t device = 0;
  std::uint64_t number = 0;  // within the device
  std::uint64_t links = 0;   // hard links to it
  std::int64_t size = 0;     // bytes
  std::int64_t seconds = 0;  // time of the last change of its text
  std::int64_t nanoseconds = 0;

  bool isSameFile(const FileState& other) const {
    return kind != NO_FILE && other.kind != NO_FILE && device == other.device &&
           number == other.number;
  }
  /** Is it the same file with, as far as the system reports, the same text? */
  bool isUnchanged(const FileState& other) const {
    return isSameFile(other) && size == other.size && seconds == other.seconds &&
           nanoseconds == other.nanoseconds;
  }
};

/** The state of what the path refers to. */
[[nodiscard]] FileState stateOf(const char* path);
/** The same, but for a symbolic link, which is not followed. */
[[nodiscard]] FileState stateOfEntry(const char* path);
[[nodiscard]] FileState stateOf(FILE* stream);
[[nodiscard]] FileState stateOf(int descriptor);

/** Is it a device, a pipe or a socket, or one of the system's names for an open stream? */
[[nodiscard]] bool isSpecialFile(const char* path);

// --- Names as text ---

/** What separates the folders of a list such as PATH. */
extern const char folderListSeparator;

/** Where the last part of a path begins. */
[[nodiscard]] std::size_t lastPartOf(std::string_view path);
/** Does it contain anything that would lead out of a folder? */
[[nodiscard]] bool hasSeparator(std::string_view text);
/** Does the path lead to the same file from every folder? */
[[nodiscard]] bool isAbsolute(std::string_view path);
/** The path with "/" between its parts. */
[[nodiscard]] std::string withSlashes(std::string_view path);
/** Do two paths without links, "." and ".." lead to the same file? */
[[nodiscard]] bool areSamePaths(std::string_view path, std::string_view other);

// --- Folders ---

/** The working folder, of any length; empty with errno set on a failure. */
[[nodiscard]] std::string workingFolder();
/** The folder for temporary files, with a separator at its end. */
[[nodiscard]] std::string temporaryFolder();
/** The user's folder, or an empty text. */
[[nodiscard]] std::string homeFolder();

/** The path of the file itself, without links; empty with errno set. */
[[nodiscard]] std::string realPath(const char* path);
/** The folder, absolute, without links, "." and ".."; what doesn't exist stays as it is named. An
    empty text is the working folder. */
[[nodiscard]] std::string canonicalFolder(const std::string& folder);

struct FolderEntry {
  std::string name;
  bool isFolder;  // or leads to one
  bool isLink;    // known of folders alone
};

/** Appends what a folder holds, in any order. 0 or an error number. */
[[nodiscard]] int listFolder(const std::string& folder, std::vector<FolderEntry>& entries);

#endif
