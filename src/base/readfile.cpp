// What is opened may turn out to be a pipe, which must not block.
#include "base/readfile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/system/files.h"

namespace {

constexpr std::size_t smallestRead = 4096;

/** The first block has the expected size plus one byte, so that the end is found. */
std::string readBlocks(int descriptor, std::size_t expected, std::string& text) {
  text.resize(std::max(expected + 1, smallestRead));
  std::size_t size = 0;
  for (;;) {
    const std::ptrdiff_t count = readSome(descriptor, text.data() + size, text.size() - size);
    if (count < 0) return std::strerror(errno);
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
    if (size == text.size()) text.resize(2 * size);
  }
  text.resize(size);
  return {};
}

std::string readOpened(int descriptor, std::string& text, FileState& state) {
  state = stateOf(descriptor);
  if (state.kind == NO_FILE) return std::strerror(state.error);
  if (state.kind == FOLDER) return std::strerror(EISDIR);
  if (state.kind != REGULAR_FILE) return "not a regular file";
  return readBlocks(descriptor, static_cast<std::size_t>(state.size), text);
}

}  // namespace

std::string readFile(const char* path, std::string& text, FileState& state) {
  const int descriptor = openToReadAtOnce(path);
  if (descriptor < 0) return std::strerror(errno);
  std::string reason = readOpened(descriptor, text, state);
  (void)closeFile(descriptor);
  return reason;
}

std::string readAnyFile(const char* path, std::string& text) {
  const int descriptor = openToRead(path);
  if (descriptor < 0) return std::strerror(errno);
  std::string reason = readToEnd(descriptor, text);
  (void)closeFile(descriptor);
  return reason;
}

std::string readToEnd(int descriptor, std::string& text) { return readBlocks(descriptor, 0, text); }
