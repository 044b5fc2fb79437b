// Consoles, and the pipes by which terminals of other systems stand in for one.
#include "base/system/streams.h"

#include <fcntl.h>
#include <io.h>

#include <array>

#include "base/system/windows/wide.h"

namespace {

/** Is it a terminal of Cygwin or MSYS, such as that of Git for Windows? Its pipe is named
    "\msys-HEX-ptyN-from-master" or the like. */
bool isEmulatedTerminal(HANDLE handle) {
  struct {
    FILE_NAME_INFO info;
    std::array<wchar_t, MAX_PATH> rest;
  } name{};
  if (GetFileInformationByHandleEx(handle, FileNameInfo, &name, sizeof(name)) == 0) return false;
  const std::wstring_view text(name.info.FileName, name.info.FileNameLength / sizeof(wchar_t));
  const bool isTheirs = text.starts_with(L"\\msys-") || text.starts_with(L"\\cygwin-");
  return isTheirs && text.find(L"-pty") != std::wstring_view::npos;
}

}  // namespace

void occupyClosedStreams() {
  for (int stream = 0; stream <= 2; ++stream) {
    if (_get_osfhandle(stream) >= 0) continue;
    const int nowhere = open("NUL", (stream == 0 ? _O_WRONLY : _O_RDONLY) | _O_BINARY);
    if (nowhere < 0 || nowhere == stream) continue;
    (void)dup2(nowhere, stream);
    (void)close(nowhere);
  }
}

InputKind standardInputKind() {
  const HANDLE handle = GetStdHandle(STD_INPUT_HANDLE);
  DWORD mode = 0;
  switch (GetFileType(handle)) {
    case FILE_TYPE_DISK: return InputKind::piped;
    case FILE_TYPE_PIPE: return isEmulatedTerminal(handle) ? InputKind::terminal : InputKind::piped;
    case FILE_TYPE_CHAR:
      return GetConsoleMode(handle, &mode) != 0 ? InputKind::terminal : InputKind::nothing;
    default: return InputKind::nothing;
  }
}

bool isErrorWatched() {
  const HANDLE handle = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 &&
         SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}
