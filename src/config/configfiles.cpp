// The named file, or every file that the search finds.
#include "config/configfiles.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/dynstring.h"
#include "base/oldlist.h"
#include "base/sourcetext.h"
#include "base/stringlist.h"
#include "config/configlexer.h"
#include "config/settings.h"

namespace {

/** Appends the file's keys to the list. 0, or -1 if it can't be opened. */
int scanConfigFile(const char* path, OldList& keys) {
  FILE* stream = std::fopen(path, "r");
  if (stream == nullptr) return -1;
  SourceText text;
  text.read(stream, path);
  xxlex(text.view(), keys);
  std::fclose(stream);
  return 0;
}

}  // namespace

int ReadConfigFile(const char* path, Settings& settings) {
  OldList keys;
  if (path != nullptr) {
    if (scanConfigFile(path, keys) != 0) {
      std::fprintf(stderr, "Error! qorn: %s: %s\n", path, std::strerror(errno));
      return -1;
    }
    setConfigVariables(keys, settings);
    return 0;
  }
  const char* searched = std::getenv("QORNRC");
  StringList directories;
  directories.Split(searched == nullptr ? "." : searched, ':');
  const char* directory = directories.getFirstString();
  for (; directory != nullptr; directory = directories.getNextString()) {
    DynString file(directory);
    file.cat("/.qornrc");
    (void)scanConfigFile(file.get(), keys);  // a directory need not hold one
  }
  setConfigVariables(keys, settings);
  return 0;
}
