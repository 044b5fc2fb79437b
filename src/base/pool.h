// Storage for the records of a list: millions of small blocks of one size, cut from slabs without
// an allocation each. Blocks that were given back are taken again before a new slab is; slabs live
// until the process ends, so a run over many files needs the memory of its largest one. Each thread
// has its own.
#ifndef QORN_BASE_POOL_H
#define QORN_BASE_POOL_H

#include <cstddef>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define QORN_POOL_IS_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QORN_POOL_IS_HEAP 1
#endif
#endif

/** Slabs double in size up to a limit, so that neither small nor large inputs pay for the other. */
[[nodiscard]] std::size_t nextSlabSize(std::size_t size);
/** An uninitialised slab of that many bytes; a large one in pages of the largest kind, where the
    system has them. */
[[nodiscard]] char* newSlab(std::size_t size);

template <std::size_t Size>
class Pool {
 public:
  /** An uninitialised block of Size bytes. Exhausted memory ends in the handler of operator new. */
  static void* take() {
#ifdef QORN_POOL_IS_HEAP  // the address sanitizer is to see every block by itself
    return ::operator new(Size);
#else
    if (fresh == freshEnd) [[unlikely]]
      return takeUsed();
    void* block = fresh;
    fresh += Size;
    return block;
#endif
  }

  static void give(void* block) {
#ifdef QORN_POOL_IS_HEAP
    ::operator delete(block);
#else
    freeBlocks = ::new (block) Block{freeBlocks};
#endif
  }

 private:
  struct Block {
    Block* next;
  };
  static_assert(Size >= sizeof(Block) && Size % alignof(Block) == 0);

  static void* takeUsed() {
    if (freeBlocks == nullptr) return takeFromNewSlab();
    Block* block = freeBlocks;
    freeBlocks = block->next;
    return block;
  }

  static void* takeFromNewSlab() {
    slabSize = nextSlabSize(slabSize);
    char* slab = newSlab(slabSize);
    fresh = slab + Size;
    freshEnd = slab + slabSize / Size * Size;
    return slab;
  }

  static inline thread_local std::size_t slabSize = 0;  // bytes of the newest
  static inline thread_local char* fresh = nullptr;
  static inline thread_local char* freshEnd = nullptr;
  static inline thread_local Block* freeBlocks = nullptr;
};

#endif
