// Large blocks of memory.
#ifndef QORN_BASE_SYSTEM_MEMORY_H
#define QORN_BASE_SYSTEM_MEMORY_H

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define QORN_BLOCKS_ARE_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QORN_BLOCKS_ARE_WATCHED 1
#endif
#endif

/** Is there a sanitizer that has to see every block on its own, and never again once it is freed?
 */
#ifdef QORN_BLOCKS_ARE_WATCHED
constexpr bool areBlocksWatched = true;
#else
constexpr bool areBlocksWatched = false;
#endif

/** Asks for large pages under a block; ordinary ones will do. */
void preferLargePages(void* block, std::size_t size);

#endif
