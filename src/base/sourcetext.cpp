// Reading a whole stream. A file is read into a block of its size, all else into one that doubles.
#include "base/sourcetext.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "base/fatal.h"
#include "base/system/paths.h"

namespace {

constexpr std::size_t smallestBlock = 65536;

/** File size + 1, so that the last read finds the end of the file; 0 if it is no regular file. */
std::size_t expectedSize(FILE* stream) {
  const FileState state = stateOf(stream);
  return state.kind == REGULAR_FILE ? static_cast<std::size_t>(state.size) + 1 : 0;
}

}  // namespace

SourceText::~SourceText() { std::free(text); }

void SourceText::read(FILE* stream, const char* name) {
  size = 0;
  reserve(std::max(expectedSize(stream), smallestBlock));
  for (;;) {
    size += std::fread(text + size, 1, capacity - size, stream);
    if (std::ferror(stream) != 0) fatalError(name, std::strerror(errno));
    if (std::feof(stream) != 0) break;
    if (size == capacity) reserve(2 * capacity);
  }
  closeText();
}

void SourceText::set(std::string_view source) {
  size = source.size();
  reserve(size);
  source.copy(text, size);
  closeText();
}

void SourceText::closeText() {
  text[size] = '\n';
  std::memset(text + size + 1, '\0', padding);
}

void SourceText::reserve(std::size_t wanted) {
  if (text != nullptr && capacity >= wanted) return;
  void* wider = std::realloc(text, wanted + 1 + padding);  // grows a large block without copying
  if (wider == nullptr) outOfMemory();
  text = static_cast<char*>(wider);
  capacity = wanted;
}
