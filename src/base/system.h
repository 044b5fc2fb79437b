// All that differs between operating systems; nothing outside system.cpp depends on one.
//
// Failures are reported as the system does, by -1 and errno, unless stated otherwise.
#ifndef QORN_BASE_SYSTEM_H
#define QORN_BASE_SYSTEM_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

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

  bool isSameFile(const FileState& other) const;
  /** Is it the same file with, as far as the system reports, the same text? */
  bool isUnchanged(const FileState& other) const;
};

/** The state of what the path refers to. */
[[nodiscard]] FileState stateOf(const char* path);
/** The same, but for a symbolic link, which is not followed. */
[[nodiscard]] FileState stateOfEntry(const char* path);
[[nodiscard]] FileState stateOf(FILE* stream);
[[nodiscard]] FileState stateOf(int descriptor);

/** Is it a device, a pipe or a socket, or one of the system's names for an open stream? */
[[nodiscard]] bool isSpecialFile(const char* path);

/** Where the last part of a path begins. */
[[nodiscard]] std::size_t lastPartOf(std::string_view path);
/** The folder for temporary files, with a separator at its end. */
[[nodiscard]] std::string temporaryFolder();
[[nodiscard]] bool hasSeparator(std::string_view text);

// --- Writing without the buffered streams ---

enum NewFile : int { DEFAULT_RIGHTS, PRIVATE };

constexpr int standardOutput = 1;  // its descriptor

/** Creates a file under a name that is still free and opens it for writing; a descriptor or -1. */
[[nodiscard]] int createFile(const char* path, NewFile rights);
/** Opens a file for reading and overwriting; its text stays. A descriptor or -1. */
[[nodiscard]] int openToOverwrite(const char* path);
/** Writes all of the text, however slowly it is taken. 0 or -1. */
[[nodiscard]] int writeAll(int descriptor, std::string_view text);
/** Seeks to the start of the file. 0 or -1. */
[[nodiscard]] int rewindFile(int descriptor);
/** Truncates the file at the descriptor's position. 0 or -1. */
[[nodiscard]] int endFileHere(int descriptor);
[[nodiscard]] int closeFile(int descriptor);

/** Removes a file that may not exist; errno is preserved. */
void discardFile(const char* path);
/** Renames a file, but never over another: then -1 and EEXIST. */
[[nodiscard]] int moveToFreeName(const char* from, const char* to);

// --- The run ---

[[nodiscard]] long processNumber();

/** Blocks the signals with which a user or the system ends a run, until they are released. To be
    called in pairs by a thread, not nested. */
void holdSignals();
void releaseSignals();

#endif
