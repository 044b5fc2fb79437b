// The string's storage. A heap block begins with its capacity, in the bytes in front of the text.
#include "base/dynstring.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <climits>
#include <new>

#include "base/fatal.h"

namespace {

constexpr std::size_t firstSharedBlanks = 256;
constexpr std::size_t mostSharedBlanks = std::size_t{16} << 20;
constexpr int offsetMax = 0xFFFFFF;
constexpr std::size_t headerSize = sizeof(std::size_t);

constexpr auto fewBlanks = [] {
  std::array<char, firstSharedBlanks + 1> blanks{};
  blanks.fill(' ');
  blanks.back() = '\0';
  return blanks;
}();

/** That many blanks, `mostSharedBlanks` at the most, closed by a zero. They stay for ever. */
const char* sharedBlanks(std::size_t count) {
  thread_local std::array<const char*, std::bit_width(mostSharedBlanks / firstSharedBlanks)> ends{
      &fewBlanks.back()};  // each of a block twice as long as the one before
  const std::size_t doublings = std::bit_width((count - 1) / firstSharedBlanks);
  if (ends[doublings] == nullptr) {
    const std::size_t room = firstSharedBlanks << doublings;
    char* blanks = static_cast<char*>(::operator new(room + 1));
    std::memset(blanks, ' ', room);
    blanks[room] = '\0';
    ends[doublings] = blanks + room;
  }
  return ends[doublings] - count;
}

std::size_t capacityOf(const char* block) {
  std::size_t capacity = 0;
  std::memcpy(&capacity, block - headerSize, headerSize);
  return capacity;
}

/** A block for that many characters and the closing zero. */
char* newBlock(std::size_t capacity) {
  if (capacity >= INT_MAX) outOfMemory();  // lengths are integers
  char* start = static_cast<char*>(::operator new(headerSize + capacity + 1));
  std::memcpy(start, &capacity, headerSize);
  return start + headerSize;
}

}  // namespace

DynString& DynString::operator=(DynString&& other) noexcept {
  if (this == &other) return *this;
  release();
  store = other.store;
  other.becomeUnset();
  return *this;
}

void DynString::setLong(std::string_view text) {
  if (isHeap() && capacityOf(blockStart()) >= text.size()) {  // keeps its room, also for less
    if (!text.empty()) std::memmove(blockStart(), text.data(), text.size());
    becomeHeap(blockStart(), 0, text.size());
    return;
  }
  if (text.size() <= shortMax) {  // which may be a part of the text that goes
    const DynString copy(text);
    release();
    store = copy.store;
    return;
  }
  char* block = newBlock(text.size());
  std::memcpy(block, text.data(), text.size());
  release();
  becomeHeap(block, 0, text.size());
}

void DynString::setLongBlanks(int count) {
  release();
  becomeUnset();
  const auto wanted = static_cast<std::size_t>(std::max(count, 0));
  if (wanted <= shortMax || wanted > mostSharedBlanks) {
    catRepeated(count, ' ');
    return;
  }
  store.heap.text = const_cast<char*>(sharedBlanks(wanted));
  store.heap.length = static_cast<std::uint32_t>(wanted);
  setTag(sharedTag);
}

void DynString::cat(std::string_view text) {
  if (text.empty()) return;
  const bool ownText = text.data() >= get() && text.data() <= get() + length();
  if (ownText) {
    const DynString copy(text);
    cat(copy.view());
    return;
  }
  std::memcpy(makeRoom(text.size()), text.data(), text.size());
}

void DynString::catl(long number) {
  std::array<char, 24> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  cat(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void DynString::catRepeated(int count, char character) {
  if (count <= 0) return;
  std::memset(makeRoom(static_cast<std::size_t>(count)), character,
              static_cast<std::size_t>(count));
}

char* DynString::edit() {
  if (isShort()) return store.chars;
  if (!isHeap()) setLong(DynString(view()).view());  // the shared blanks are nobody's to change
  return store.heap.text;
}

void DynString::reserve(int count) {
  const auto wanted = static_cast<std::size_t>(count);
  if (isHeap() && capacityOf(blockStart()) >= wanted) return;
  const std::string_view old = view();
  char* block = newBlock(std::max(wanted, old.size()));
  std::memcpy(block, old.data(), old.size());
  release();
  becomeHeap(block, 0, old.size());
}

void DynString::truncate(int count) {
  if (count >= length()) return;
  if (isHeap()) {
    store.heap.text[count] = '\0';
    store.heap.length = static_cast<std::uint32_t>(count);
    return;
  }
  set(view().substr(0, static_cast<std::size_t>(count)));
}

void DynString::dropFront(int count) {
  if (count <= 0) return;
  const std::string_view rest = view().substr(static_cast<std::size_t>(count));
  if (!isHeap() || rest.size() <= shortMax) {
    set(rest);
    return;
  }
  char* block = blockStart();
  int offset = headOffset() + count;
  if (offset > offsetMax) {
    std::memmove(block, rest.data(), rest.size());
    offset = 0;
  }
  becomeHeap(block + offset, offset, rest.size());
}

void DynString::freeBlock() { ::operator delete(blockStart() - headerSize); }

int DynString::headOffset() const {
  const auto& bytes = store.heap.offset;
  return bytes[0] | bytes[1] << 8 | bytes[2] << 16;
}

void DynString::becomeHeap(char* text, int offset, std::size_t textLength) {
  text[textLength] = '\0';
  store.heap.text = text;
  store.heap.length = static_cast<std::uint32_t>(textLength);
  for (auto& byte : store.heap.offset) {
    byte = static_cast<std::uint8_t>(offset);
    offset >>= 8;
  }
  setTag(heapTag);
}

/** Makes the text longer by `added` characters, which the caller writes where the result says. */
char* DynString::makeRoom(std::size_t added) {
  const std::string_view old = view();
  const std::size_t wanted = old.size() + added;
  if (wanted <= shortMax && isShort()) {
    setInlineLength(wanted);
    return store.chars + old.size();
  }
  if (isHeap()) {
    const int offset = headOffset();
    if (capacityOf(blockStart()) >= wanted + static_cast<std::size_t>(offset)) {
      becomeHeap(store.heap.text, offset, wanted);
      return store.heap.text + old.size();
    }
  }
  const bool grows = isHeap();  // the first long text gets no spare room: most never grow
  char* block = newBlock(grows ? std::max(wanted, 2 * old.size()) : wanted);
  std::memcpy(block, old.data(), old.size());
  release();
  becomeHeap(block, 0, wanted);
  return block + old.size();
}
