// The named file, or every file that the search finds.
#include "config/configfiles.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/dynstring.h"
#include "base/fatal.h"
#include "base/oldlist.h"
#include "base/sourcetext.h"
#include "base/stringlist.h"
#include "base/system/files.h"
#include "base/system/run.h"
#include "config/configlexer.h"
#include "config/settings.h"

namespace {

/** Appends the file's keys to the list. 0, or -1 if it can't be opened. */
int scanConfigFile(const char* path, ConfigList& keys) {
  FILE* stream = openStream(path);
  if (stream == nullptr) return -1;
  SourceText text;
  text.read(stream, path);
  xxlex(text.view(), keys);
  std::fclose(stream);
  return 0;
}

/** Reads what the search may have found; a file that exists but can't be read is reported. */
void scanFoundFile(const char* path, ConfigList& keys) {
  const FileState found = stateOf(path);
  if (found.kind == REGULAR_FILE && !isSpecialFile(path) && scanConfigFile(path, keys) == 0) return;
  const int failure = errno;
  if (stateOfEntry(path).kind == NO_FILE) return;  // a folder need not hold one
  const bool isOther = found.kind == FOLDER || isSpecialFile(path);
  reportFault(path, isOther ? "Not a regular file" : std::strerror(failure));
}

}  // namespace

int ReadConfigFile(const char* path, Settings& settings) {
  ConfigList keys;
  if (path != nullptr) {
    if (scanConfigFile(path, keys) != 0) {
      reportFault(path, std::strerror(errno));
      return -1;
    }
    setConfigVariables(keys, settings);
    return 0;
  }
  const std::string searched = environmentValue("QORNRC").value_or(".");
  StringList directories;
  directories.Split(searched.c_str(), folderListSeparator);
  const char* directory = directories.getFirstString();
  for (; directory != nullptr; directory = directories.getNextString()) {
    DynString file(directory);
    file.cat("/.qornrc");
    scanFoundFile(file.get(), keys);
  }
  setConfigVariables(keys, settings);
  return 0;
}
