// Opening, reading, writing and renaming files without the buffered streams. Texts pass as they
// are, byte by byte, and no child process inherits a file.
//
// Failures are reported by -1 and errno, unless stated otherwise.
#ifndef QORN_BASE_SYSTEM_FILES_H
#define QORN_BASE_SYSTEM_FILES_H

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "base/system/paths.h"

// Descriptors of the standard streams.
constexpr int standardInput = 0;
constexpr int standardOutput = 1;

// --- Opening ---

/** Opens a file of any kind for reading; a stream or null. */
[[nodiscard]] FILE* openStream(const char* path);
/** The same as a descriptor. */
[[nodiscard]] int openToRead(const char* path);
/** The same, but does not wait where it is a pipe. */
[[nodiscard]] int openToReadAtOnce(const char* path);

enum NewFile : int { DEFAULT_RIGHTS, PRIVATE };

/** Creates a file under a name that is still free and opens it for writing; a descriptor or -1. */
[[nodiscard]] int createFile(const char* path, NewFile rights);
/** Creates a private file in the folder that has no name yet, so that it vanishes with the process;
    -1 where the system has none. */
[[nodiscard]] int createUnnamedFile(const char* folder);
/** Gives an unnamed file a name that is still free. */
[[nodiscard]] int nameFile(int descriptor, const char* path);
/** Opens a file for reading and overwriting; its text stays. A descriptor or -1. */
[[nodiscard]] int openToOverwrite(const char* path);

// --- Open files ---

/** Reads at most `size` bytes: how many, 0 at the end, or -1. */
[[nodiscard]] std::ptrdiff_t readSome(int descriptor, char* text, std::size_t size);
/** Writes all of the text, however slowly it is taken. 0 or -1. */
[[nodiscard]] int writeAll(int descriptor, std::string_view text);
/** Seeks to the start of the file. 0 or -1. */
[[nodiscard]] int rewindFile(int descriptor);
/** Truncates the file at the descriptor's position. 0 or -1. */
[[nodiscard]] int endFileHere(int descriptor);
[[nodiscard]] int closeFile(int descriptor);

/** Gives a private file the permissions of another, and as far as the user may, its owner, access
    lists and extended attributes. 0 or -1. */
[[nodiscard]] int takeRights(int descriptor, const char* path);

// --- Files by name ---

/** May the user write to the file? 0 or -1. */
[[nodiscard]] int checkWritable(const char* path);
/** May the user run the file? 0 or -1. */
[[nodiscard]] int checkExecutable(const char* path);
/** Is it an error of the disk, which all further files would meet as well? */
[[nodiscard]] bool isDiskError(int error);
/** Removes a file that may not exist; errno is preserved. */
void discardFile(const char* path);
/** Renames a file, over another one if there is one, in one step. 0 or -1. */
[[nodiscard]] int moveOver(const char* from, const char* to);
/** Renames a file, but never over another: then -1 and EEXIST. */
[[nodiscard]] int moveToFreeName(const char* from, const char* to);

#endif
