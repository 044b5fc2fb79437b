// Names on Windows. Both separators are accepted; "/" is what the program itself writes, as git and
// patch want it.
#include "base/system/paths.h"

#include <io.h>

#include <algorithm>
#include <cerrno>

#include "base/system/run.h"
#include "base/system/windows/wide.h"

// --- What a name refers to ---

namespace {

bool isLinkTag(DWORD tag) {
  return tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT;
}

/** An entry of a cloud folder is a reparse point too, but no link. */
bool isLink(HANDLE handle) {
  FILE_ATTRIBUTE_TAG_INFO info{};
  return GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &info, sizeof(info)) != 0 &&
         (info.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && isLinkTag(info.ReparseTag);
}

FileKind kindOf(HANDLE handle, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && isLink(handle)) return LINK;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FOLDER : REGULAR_FILE;
}

std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

FileState noFile() { return {.error = errorNumber(GetLastError())}; }

FileState stateFrom(HANDLE handle) {
  FileState state;
  if (GetFileType(handle) != FILE_TYPE_DISK) {
    state.kind = OTHER_FILE;
    return state;
  }
  BY_HANDLE_FILE_INFORMATION info{};
  if (GetFileInformationByHandle(handle, &info) == 0) return noFile();
  constexpr std::uint64_t ticksPerSecond = 10000000;
  const std::uint64_t ticks =
      joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
  state.kind = kindOf(handle, info.dwFileAttributes);
  state.device = info.dwVolumeSerialNumber;
  state.number = joined(info.nFileIndexHigh, info.nFileIndexLow);
  state.links = info.nNumberOfLinks;
  state.size = static_cast<std::int64_t>(joined(info.nFileSizeHigh, info.nFileSizeLow));
  state.seconds = static_cast<std::int64_t>(ticks / ticksPerSecond);
  state.nanoseconds = static_cast<std::int64_t>(ticks % ticksPerSecond * 100);
  return state;
}

/** NUL, COM1, in older versions aux.vhd too, and what is named below \\.\: never to be opened. */
bool isDevice(const std::wstring& path) { return fullPath(path).starts_with(LR"(\\.\)"); }

FileState stateOf(const char* path, DWORD flags) {
  const std::wstring name = widePath(path);
  if (isDevice(name)) return {.kind = OTHER_FILE};
  const Handle handle = openExisting(name, FILE_READ_ATTRIBUTES, flags);
  return handle == nullptr ? noFile() : stateFrom(handle.get());
}

}  // namespace

FileState stateOf(const char* path) { return stateOf(path, 0); }

FileState stateOfEntry(const char* path) { return stateOf(path, FILE_FLAG_OPEN_REPARSE_POINT); }

FileState stateOf(FILE* stream) { return stateOf(fileno(stream)); }

FileState stateOf(int descriptor) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  if (handle == INVALID_HANDLE_VALUE) return {.error = EBADF};
  return stateFrom(handle);
}

bool isSpecialFile(const char* path) { return stateOf(path).kind == OTHER_FILE; }

// --- Names as text ---

const char folderListSeparator = ';';

std::size_t lastPartOf(std::string_view path) { return path.find_last_of("/\\:") + 1; }

bool hasSeparator(std::string_view text) {
  return text.find_first_of("/\\:") != std::string_view::npos;
}

bool isAbsolute(std::string_view path) {
  const std::string_view rest = path.substr(path.size() > 1 && path[1] == ':' ? 2 : 0);
  return rest.starts_with('/') || rest.starts_with('\\');
}

std::string withSlashes(std::string_view path) {
  std::string result(path);
  std::ranges::replace(result, '\\', '/');
  return result;
}

bool areSamePaths(std::string_view path, std::string_view other) {
  const std::wstring left = wide(withSlashes(path));
  const std::wstring right = wide(withSlashes(other));
  return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// --- Folders ---

std::string workingFolder() { return plainPath(fullPath(L".")); }

std::string temporaryFolder() {
  std::wstring folder(MAX_PATH + 1, L'\0');
  folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
  return plainPath(folder);
}

std::string homeFolder() {
  const std::string home = environmentValue("HOME").value_or("");
  return home.empty() ? environmentValue("USERPROFILE").value_or("") : home;
}

std::string realPath(const char* path) {
  const std::wstring name = widePath(path);
  const Handle handle = openExisting(name, FILE_READ_ATTRIBUTES, 0);
  if (handle == nullptr) {
    (void)fail();
    return {};
  }
  std::wstring real(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = static_cast<DWORD>(real.size());
    const DWORD length = GetFinalPathNameByHandleW(handle.get(), real.data(), size, 0);
    real.resize(length);
    if (length == 0) return plainPath(fullPath(name));  // a drive that only its driver can name
    if (length < size) return plainPath(real);
  }
}

std::string canonicalFolder(const std::string& folder) {
  std::string existing = plainPath(fullPath(wide(folder.empty() ? "." : folder)));
  std::string rest;
  for (;;) {
    std::string real = realPath(existing.c_str());
    const std::size_t slash = existing.rfind('/');
    const bool isTop = slash == std::string::npos || slash == 0;
    if (real.empty() && !isTop) {
      rest.insert(0, existing, slash);
      existing.resize(slash);
      continue;
    }
    real = (real.empty() ? existing : real) + rest;
    if (real.ends_with('/')) real.pop_back();
    return real.ends_with(':') ? real + '/' : real;
  }
}

int listFolder(const std::string& folder, std::vector<FolderEntry>& entries) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(widePath(folder + "/*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return errorNumber(GetLastError());
  do {
    std::string name = narrow(found.cFileName);
    if (name == "." || name == "..") continue;
    const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool isReparsed = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    entries.push_back(
        {std::move(name), isFolder, isFolder && isReparsed && isLinkTag(found.dwReserved0)});
  } while (FindNextFileW(search, &found) != 0);
  const DWORD code = GetLastError();
  FindClose(search);
  return code == ERROR_NO_MORE_FILES ? 0 : errorNumber(code);
}
