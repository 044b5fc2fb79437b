// A git.exe for wine: runs the git of the system that wine runs on, with its streams by way of
// files, as pipes of Windows are none for it. Only for tests of how programs are run.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using Spawn = long(CDECL*)(char* const words[], int waits);

std::string narrow(const wchar_t* text) {
  std::string result(WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), result.size(), nullptr, nullptr);
  return result;
}

void copy(HANDLE from, HANDLE to) {
  char block[65536];
  DWORD count = 0;
  while (ReadFile(from, block, sizeof(block), &count, nullptr) != 0 && count > 0) {
    DWORD written = 0;
    WriteFile(to, block, count, &written, nullptr);
  }
}

void copyFile(const std::string& stem, const char* name, DWORD stream, DWORD access, DWORD how) {
  const std::string path = "Z:" + stem + name;
  const HANDLE file = CreateFileA(path.c_str(), access, 7, nullptr, how, 0, nullptr);
  const HANDLE standard = GetStdHandle(stream);
  how == OPEN_EXISTING ? copy(file, standard) : copy(standard, file);
  CloseHandle(file);
  if (how == OPEN_EXISTING) DeleteFileA(path.c_str());
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::string stem = "/tmp/qorn-git-" + std::to_string(GetCurrentProcessId());
  std::vector<std::string> words{
      "/bin/sh", "-c",
      "git \"$@\" <\"$0.in\" >\"$0.out\" 2>\"$0.err\"; s=$?; rm \"$0.in\"; exit $s", stem};
  for (int i = 1; i < count; ++i) words.push_back(narrow(arguments[i]));
  std::vector<char*> places;
  for (std::string& word : words) places.push_back(word.data());
  places.push_back(nullptr);
  copyFile(stem, ".in", STD_INPUT_HANDLE, GENERIC_WRITE, CREATE_ALWAYS);
  const FARPROC found = GetProcAddress(GetModuleHandleA("ntdll.dll"), "__wine_unix_spawnvp");
  if (found == nullptr) return 255;
  const long status = reinterpret_cast<Spawn>(reinterpret_cast<void*>(found))(places.data(), 1);
  copyFile(stem, ".out", STD_OUTPUT_HANDLE, GENERIC_READ, OPEN_EXISTING);
  copyFile(stem, ".err", STD_ERROR_HANDLE, GENERIC_READ, OPEN_EXISTING);
  return static_cast<int>(status);
}
