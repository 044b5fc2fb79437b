// Between the program's UTF-8 and the UTF-16 of Windows, and from its error codes to errno. Every
// call that takes a name is made with the wide form: neither the code page nor a manifest decides
// which files are reached.
#ifndef QORN_BASE_SYSTEM_WINDOWS_WIDE_H
#define QORN_BASE_SYSTEM_WINDOWS_WIDE_H

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

/** What is malformed becomes U+FFFD, in either direction. */
[[nodiscard]] std::wstring wide(std::string_view text);
[[nodiscard]] std::string narrow(std::wstring_view text);

/** A path as calls take it; one that exceeds the old limit of 260 characters gets the prefix by
    which it is accepted all the same. */
[[nodiscard]] std::wstring widePath(std::string_view path);
/** An absolute path with "/" between its parts, without such a prefix. */
[[nodiscard]] std::string plainPath(std::wstring_view path);
/** The absolute form of a path, by the rules for its text alone. */
[[nodiscard]] std::wstring fullPath(const std::wstring& path);

/** The error number for what GetLastError or another call returned. */
[[nodiscard]] int errorNumber(DWORD code);
/** Sets errno from GetLastError. Always -1. */
int fail();

struct CloseHandleAtEnd {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
/** Null, never INVALID_HANDLE_VALUE, where there is none. */
using Handle = std::unique_ptr<HANDLE, CloseHandleAtEnd>;

/** Opens what exists; folders too. `flags` are those of CreateFile. */
[[nodiscard]] Handle openExisting(const std::wstring& path, DWORD access, DWORD flags);

#endif
