// Large blocks consist of whole large pages.
#include "base/memoryblock.h"

#include <new>

#include "base/system/memory.h"

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;

bool isLarge(std::size_t size) { return size >= largePage; }

char* allocate(std::size_t size) {
  if (!isLarge(size)) return static_cast<char*>(::operator new(size));
  void* block = ::operator new (size, std::align_val_t{largePage});
  preferLargePages(block, size);
  return static_cast<char*>(block);
}

std::size_t roundedUp(std::size_t size) {
  return isLarge(size) ? (size + largePage - 1) / largePage * largePage : size;
}

}  // namespace

MemoryBlock::MemoryBlock(std::size_t wanted)
    : start(allocate(roundedUp(wanted)), Free{roundedUp(wanted)}) {}

void MemoryBlock::Free::operator()(char* block) const {
  if (isLarge(size)) {
    ::operator delete (block, std::align_val_t{largePage});
  } else {
    ::operator delete(block);
  }
}
