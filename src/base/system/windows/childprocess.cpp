// Standard input and standard error are temporary files, so that only one pipe has to be drained
// and neither side can wait for the other. The program is searched for in PATH alone: the system's
// own search begins in the current folder, where anything may lie.
#include "base/system/childprocess.h"

#include <array>
#include <cerrno>
#include <cstring>

#include "base/system/paths.h"
#include "base/system/run.h"
#include "base/system/windows/arguments.h"
#include "base/system/windows/wide.h"

namespace {

SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};

/** A file that vanishes when it is closed, and that a child inherits. */
Handle makeTemporary() {
  std::array<wchar_t, MAX_PATH> name{};
  if (GetTempFileNameW(wide(temporaryFolder()).c_str(), L"qrn", 0, name.data()) == 0) return {};
  const HANDLE file = CreateFileW(name.data(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool writeText(HANDLE file, std::string_view text) {
  while (!text.empty()) {
    const auto size = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1 << 28));
    DWORD written = 0;
    if (WriteFile(file, text.data(), size, &written, nullptr) == 0) return false;
    text.remove_prefix(written);
  }
  return SetFilePointer(file, 0, nullptr, FILE_BEGIN) == 0;
}

bool readText(HANDLE file, std::string& text) {
  std::array<char, 65536> block{};
  for (;;) {
    DWORD count = 0;
    if (ReadFile(file, block.data(), static_cast<DWORD>(block.size()), &count, nullptr) == 0) {
      return GetLastError() == ERROR_BROKEN_PIPE;  // the other end is closed
    }
    if (count == 0) return true;
    text.append(block.data(), count);
  }
}

std::wstring findProgram(const std::string& name) {
  const std::wstring folders = wide(environmentValue("PATH").value_or(""));
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length =
        SearchPathW(folders.c_str(), wide(name).c_str(), L".exe", size, path.data(), nullptr);
    path.resize(length);
    if (length < size) return path;
  }
}

std::wstring commandLine(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += quotedArgument(word) + ' ';
  return wide(line);
}

/** Null if it could not be started. */
Handle start(const std::vector<std::string>& words, HANDLE input, HANDLE output, HANDLE errors) {
  const std::wstring program = findProgram(words[0]);
  if (program.empty()) return {};
  std::wstring line = commandLine(words);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  startup.hStdError = errors;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, /*bInheritHandles=*/TRUE, 0,
                     nullptr, nullptr, &startup, &process) == 0) {
    return {};
  }
  CloseHandle(process.hThread);
  return Handle(process.hProcess);
}

int waitFor(HANDLE process) {
  DWORD status = 0;
  const bool hasEnded = WaitForSingleObject(process, INFINITE) == WAIT_OBJECT_0 &&
                        GetExitCodeProcess(process, &status) != 0;
  return hasEnded && status <= 255 ? static_cast<int>(status) : -1;  // more if it was killed
}

ChildResult failure(const std::string& program) {
  return {-1, {}, program + ": " + std::strerror(errorNumber(GetLastError()))};
}

}  // namespace

ChildResult runProgram(const std::vector<std::string>& words, std::string_view input) {
  const Handle source = makeTemporary();
  const Handle complaints = makeTemporary();
  if (source == nullptr || complaints == nullptr || !writeText(source.get(), input)) {
    return failure(words[0]);
  }
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (CreatePipe(&reading, &writing, &inheritable, 0) == 0) return failure(words[0]);
  const Handle result(reading);
  SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
  const Handle child = start(words, source.get(), writing, complaints.get());
  ChildResult answer;
  if (child == nullptr) answer = failure(words[0]);
  CloseHandle(writing);
  if (child == nullptr) return answer;
  const bool isRead = readText(result.get(), answer.output);
  if (!isRead) answer = failure(words[0]);
  const int status = waitFor(child.get());
  if (!isRead) return answer;
  answer.status = status;
  SetFilePointer(complaints.get(), 0, nullptr, FILE_BEGIN);
  (void)readText(complaints.get(), answer.trouble);
  return answer;
}
