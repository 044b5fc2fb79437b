// Files on Windows. Whatever is opened may be renamed and deleted by others meanwhile, as on POSIX;
// programs that open files otherwise, such as virus scanners, are waited for.
#include "base/system/files.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "base/system/windows/wide.h"

// --- Opening ---

namespace {

int descriptorOf(HANDLE handle, int flags) {
  const int descriptor =
      _open_osfhandle(reinterpret_cast<intptr_t>(handle), flags | _O_BINARY | _O_NOINHERIT);
  if (descriptor < 0) CloseHandle(handle);
  return descriptor;
}

int openFile(const char* path, DWORD access, DWORD disposition, int flags) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE handle = CreateFileW(widePath(path).c_str(), access, shared, nullptr, disposition,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);  // folders too
  if (handle != INVALID_HANDLE_VALUE) return descriptorOf(handle, flags);
  (void)fail();
  if (errno == EACCES && stateOf(path).kind == FOLDER) errno = EISDIR;
  return -1;
}

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

}  // namespace

FILE* openStream(const char* path) {
  const int descriptor = openToRead(path);
  return descriptor < 0 ? nullptr : fdopen(descriptor, "rb");
}

int openToRead(const char* path) { return openFile(path, GENERIC_READ, OPEN_EXISTING, _O_RDONLY); }

int openToReadAtOnce(const char* path) {
  if (!isSpecialFile(path)) return openToRead(path);
  errno = EACCES;
  return -1;
}

/** A private file need not be hidden from others: it is where they may see its text anyway, in the
    folder of a source or in the user's own one. */
int createFile(const char* path, NewFile) {
  return openFile(path, GENERIC_WRITE | WRITE_DAC, CREATE_NEW, _O_WRONLY);
}

int createUnnamedFile(const char*) {
  errno = ENOSYS;
  return -1;
}

int nameFile(int, const char*) {
  errno = ENOSYS;
  return -1;
}

int openToOverwrite(const char* path) {
  return openFile(path, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, _O_RDWR);
}

// --- Open files ---

namespace {

constexpr std::size_t largestPiece = std::size_t{1} << 28;  // calls take 32-bit sizes
constexpr std::size_t largestShown = std::size_t{1} << 13;  // consoles refuse much at once

/** The part of the text that a console takes; no character is cut in two. */
std::string_view shownPiece(std::string_view text) {
  std::size_t size = std::min(text.size(), largestShown);
  const auto isInside = [&] {
    return size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80;
  };
  for (int i = 0; i < 3 && size > 1 && isInside(); ++i) --size;
  return text.substr(0, size);
}

}  // namespace

std::ptrdiff_t readSome(int descriptor, char* text, std::size_t size) {
  return read(descriptor, text, static_cast<unsigned>(std::min(size, largestPiece)));
}

int writeAll(int descriptor, std::string_view text) {
  const bool isShown = _isatty(descriptor) != 0;
  while (!text.empty()) {
    const std::string_view piece = isShown ? shownPiece(text) : text.substr(0, largestPiece);
    const int count = write(descriptor, piece.data(), static_cast<unsigned>(piece.size()));
    if (count < 0) return -1;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int rewindFile(int descriptor) { return _lseeki64(descriptor, 0, SEEK_SET) < 0 ? -1 : 0; }

int endFileHere(int descriptor) { return SetEndOfFile(handleOf(descriptor)) != 0 ? 0 : fail(); }

int closeFile(int descriptor) { return close(descriptor); }

// --- Files by name ---

namespace {

bool isReadOnly(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

/** Renames, and tries for a tenth of a second where another program has one of the files open. */
bool tryToMove(const std::wstring& from, const std::wstring& to, DWORD flags) {
  constexpr int tries = 10;
  constexpr DWORD pause = 10;  // milliseconds
  for (int i = 1; MoveFileExW(from.c_str(), to.c_str(), flags) == 0; ++i) {
    const DWORD code = GetLastError();
    if (code != ERROR_SHARING_VIOLATION && code != ERROR_ACCESS_DENIED) return false;
    if (i == tries) return false;
    Sleep(pause);
    SetLastError(code);
  }
  return true;
}

/** The same over a file that is marked as read-only, which a rename refuses. */
bool moveOverReadOnly(const std::wstring& from, const std::wstring& to, DWORD attributes) {
  SetFileAttributesW(to.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  if (tryToMove(from, to, MOVEFILE_REPLACE_EXISTING)) return true;
  const DWORD code = GetLastError();
  SetFileAttributesW(to.c_str(), attributes);
  SetLastError(code);
  return false;
}

}  // namespace

int checkWritable(const char* path) {
  const std::wstring name = widePath(path);
  if (isReadOnly(GetFileAttributesW(name.c_str()))) {
    errno = EACCES;
    return -1;
  }
  return openExisting(name, GENERIC_WRITE, 0) != nullptr ? 0 : fail();
}

int checkExecutable(const char* path) {
  const FileState state = stateOf(path);
  if (state.kind == REGULAR_FILE) return 0;
  errno = state.kind == NO_FILE ? state.error : EACCES;
  return -1;
}

bool isDiskError(int error) { return error == ENOSPC || error == EROFS || error == EIO; }

void discardFile(const char* path) {
  const int failure = errno;
  (void)DeleteFileW(widePath(path).c_str());
  errno = failure;
}

int moveOver(const char* from, const char* to) {
  if (stateOfEntry(to).kind == FOLDER) {
    errno = EISDIR;
    return -1;
  }
  const std::wstring target = widePath(to);
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const bool isMoved = isReadOnly(attributes)
                           ? moveOverReadOnly(widePath(from), target, attributes)
                           : tryToMove(widePath(from), target, MOVEFILE_REPLACE_EXISTING);
  return isMoved ? 0 : fail();
}

int moveToFreeName(const char* from, const char* to) {
  return tryToMove(widePath(from), widePath(to), 0) ? 0 : fail();
}
