#include "base/system/windows/wide.h"

#include <algorithm>
#include <cerrno>

namespace {

constexpr std::size_t oldLimit = 240;  // below 260, which includes what a folder may hold

constexpr DWORD diskQuotaExceeded = 1295;  // missing in headers of mingw-w64

struct ErrorRow {
  DWORD code;
  int number;
};

// clang-format off
constexpr ErrorRow errorRows[] = {
    {ERROR_FILE_NOT_FOUND,        ENOENT},
    {ERROR_PATH_NOT_FOUND,        ENOENT},
    {ERROR_INVALID_DRIVE,         ENOENT},
    {ERROR_INVALID_NAME,          ENOENT},
    {ERROR_BAD_PATHNAME,          ENOENT},
    {ERROR_BAD_NETPATH,           ENOENT},
    {ERROR_BAD_NET_NAME,          ENOENT},
    {ERROR_TOO_MANY_OPEN_FILES,   EMFILE},
    {ERROR_ACCESS_DENIED,         EACCES},
    {ERROR_SHARING_VIOLATION,     EACCES},
    {ERROR_LOCK_VIOLATION,        EACCES},
    {ERROR_CANNOT_MAKE,           EACCES},
    {ERROR_NETWORK_ACCESS_DENIED, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD,    EACCES},
    {ERROR_INVALID_HANDLE,        EBADF},
    {ERROR_NOT_ENOUGH_MEMORY,     ENOMEM},
    {ERROR_OUTOFMEMORY,           ENOMEM},
    {ERROR_NOT_SAME_DEVICE,       EXDEV},
    {ERROR_WRITE_PROTECT,         EROFS},
    {ERROR_NOT_READY,             EIO},
    {ERROR_CRC,                   EIO},
    {ERROR_READ_FAULT,            EIO},
    {ERROR_WRITE_FAULT,           EIO},
    {ERROR_IO_DEVICE,             EIO},
    {ERROR_HANDLE_DISK_FULL,      ENOSPC},
    {ERROR_DISK_FULL,             ENOSPC},
    {diskQuotaExceeded,           ENOSPC},
    {ERROR_FILE_EXISTS,           EEXIST},
    {ERROR_ALREADY_EXISTS,        EEXIST},
    {ERROR_BROKEN_PIPE,           EPIPE},
    {ERROR_NO_DATA,               EPIPE},
    {ERROR_FILENAME_EXCED_RANGE,  ENAMETOOLONG},
    {ERROR_DIRECTORY,             ENOTDIR},
};
// clang-format on

}  // namespace

std::wstring wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring result(text.size(), L'\0');  // never longer
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

std::string narrow(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string result(3 * text.size(), '\0');  // a pair of surrogates becomes four bytes
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(),
                                         static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

std::wstring fullPath(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = static_cast<DWORD>(full.size());
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    full.resize(length);  // 0 on failure; with the final zero where there was no room
    if (length < size) return full;
  }
}

std::wstring widePath(std::string_view path) {
  std::wstring result = wide(path);
  if (result.size() < oldLimit) return result;
  const std::wstring full = fullPath(result);
  if (full.empty() || full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)")) return result;
  return full.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

std::string plainPath(std::wstring_view path) {
  std::string result = narrow(path);
  std::ranges::replace(result, '\\', '/');
  if (result.starts_with("//?/UNC/")) return '/' + result.substr(7);
  return result.starts_with("//?/") ? result.substr(4) : result;
}

int errorNumber(DWORD code) {
  const auto* row = std::ranges::find(errorRows, code, &ErrorRow::code);
  return row == std::end(errorRows) ? EINVAL : row->number;
}

int fail() {
  errno = errorNumber(GetLastError());
  return -1;
}

Handle openExisting(const std::wstring& path, DWORD access, DWORD flags) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE handle = CreateFileW(path.c_str(), access, shared, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
  return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}
