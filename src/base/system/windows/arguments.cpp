// Quotes do not keep a pattern from being expanded; no name can contain "*" or "?" anyway. Names
// are matched here, as the system's own search would match old short names too, and take a.vhdl for
// *.vhd.
#include "base/system/windows/arguments.h"

#include <algorithm>

#include "base/system/paths.h"
#include "base/system/windows/wide.h"

#include <shellapi.h>

namespace {

constexpr std::string_view wildCards = "*?";

bool isSameLetter(wchar_t left, wchar_t right) {
  return CompareStringOrdinal(&left, 1, &right, 1, TRUE) == CSTR_EQUAL;
}

/** Goes back to the last "*" where it fails, and has that stand for one more. */
bool matches(std::wstring_view pattern, std::wstring_view name) {
  std::size_t at = 0;
  std::size_t star = std::wstring_view::npos;
  std::size_t starred = 0;
  for (std::size_t i = 0; i < name.size();) {
    if (at < pattern.size() && pattern[at] == L'*') {
      star = at++;
      starred = i;
    } else if (at < pattern.size() && (pattern[at] == L'?' || isSameLetter(pattern[at], name[i]))) {
      ++at;
      ++i;
    } else if (star != std::wstring_view::npos) {
      at = star + 1;
      i = ++starred;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', at) == std::wstring_view::npos;
}

/** Appends the names in the folder that match one part of a path. */
void expandPart(const std::string& folder, const std::string& part, bool isLast,
                std::vector<std::string>& paths) {
  std::vector<FolderEntry> entries;
  (void)listFolder(folder.empty() ? "." : folder, entries);
  const std::wstring pattern = wide(part);
  for (const FolderEntry& entry : entries) {
    if (entry.name.starts_with('.') && !part.starts_with('.')) continue;
    if (!isLast && !entry.isFolder) continue;
    if (matches(pattern, wide(entry.name))) paths.push_back(folder + entry.name);
  }
}

}  // namespace

std::vector<std::string> matchingPaths(const std::string& pattern) {
  std::vector<std::string> paths{""};
  std::size_t begin = 0;
  while (begin < pattern.size()) {
    const std::size_t separator = pattern.find_first_of("/\\", begin);
    const std::size_t end = std::min(separator, pattern.size());
    const std::string part = pattern.substr(begin, end - begin);
    std::vector<std::string> longer;
    for (const std::string& path : paths) {
      if (part.find_first_of(wildCards) == std::string::npos) {
        longer.push_back(path + part);
      } else {
        expandPart(path, part, end == pattern.size(), longer);
      }
    }
    begin = std::min(end + 1, pattern.size());
    for (std::string& path : longer) path.append(pattern, end, begin - end);
    paths = std::move(longer);
  }
  std::erase_if(paths,
                [](const std::string& path) { return stateOfEntry(path.c_str()).kind == NO_FILE; });
  std::sort(paths.begin(), paths.end());
  return paths.empty() ? std::vector{pattern} : paths;
}

std::vector<std::string> commandLineArguments() {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 0; words != nullptr && i < count; ++i) {
    const std::string word = narrow(words[i]);
    const bool isPattern = i > 0 && word.find_first_of(wildCards) != std::string::npos;
    const std::vector<std::string> meant =
        isPattern && !word.starts_with('-') ? matchingPaths(word) : std::vector{word};
    arguments.insert(arguments.end(), meant.begin(), meant.end());
  }
  LocalFree(words);
  return arguments;
}

std::string quotedArgument(std::string_view word) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;  // doubled in front of a quote
  for (const char character : word) {
    if (character == '"') quoted.append(backslashes + 1, '\\');
    backslashes = character == '\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  return quoted.append(backslashes, '\\') + '"';
}
