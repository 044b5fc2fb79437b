// Reading a whole stream. A file is read into a block of its size, all else into one that doubles.
#include "base/sourcetext.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "base/fatal.h"
#include "base/system/paths.h"

namespace {

constexpr std::size_t smallestBlock = 65536;

/** File size + 1, so that the last read finds the end of the file; 0 if it is no regular file. */
std::size_t expectedSize(const FileState& state) {
  return state.kind == REGULAR_FILE ? static_cast<std::size_t>(state.size) + 1 : 0;
}

}  // namespace

void SourceText::read(FILE* stream, const char* name) {
  size = 0;
  const FileState state = stateOf(stream);
  if (state.kind == FOLDER) fatalError(name, std::strerror(EISDIR));
  reserve(std::max(expectedSize(state), smallestBlock));
  for (;;) {
    size += std::fread(block.begin() + size, 1, capacity() - size, stream);
    if (std::ferror(stream) != 0) fatalError(name, std::strerror(errno));
    if (std::feof(stream) != 0) break;
    if (size == capacity()) reserve(2 * size);
  }
  closeText();
}

void SourceText::set(std::string_view source) {
  size = 0;
  reserve(source.size());
  size = source.copy(block.begin(), source.size());
  closeText();
}

void SourceText::closeText() {
  block.begin()[size] = '\n';
  std::memset(block.begin() + size + 1, '\0', padding);
}

void SourceText::reserve(std::size_t wanted) {
  if (wanted + terminator <= block.size()) return;
  MemoryBlock wider(wanted + terminator);
  std::copy_n(block.begin(), size, wider.begin());
  block = std::move(wider);
}
