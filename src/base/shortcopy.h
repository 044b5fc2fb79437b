// Copies of a few bytes: most texts of a source are shorter than the call that would copy them.
#ifndef QORN_BASE_SHORTCOPY_H
#define QORN_BASE_SHORTCOPY_H

#include <cstring>

constexpr std::size_t shortCopyMax = 16;  // bytes

/** Copies the first and the last bytes as one word each; the two may overlap in the middle. */
template <typename Word>
inline void copyTwoWords(char* target, const char* source, std::size_t size) {
  Word front;
  Word back;
  std::memcpy(&front, source, sizeof(Word));
  std::memcpy(&back, source + size - sizeof(Word), sizeof(Word));
  std::memcpy(target, &front, sizeof(Word));
  std::memcpy(target + size - sizeof(Word), &back, sizeof(Word));
}

/** Copies at most shortCopyMax bytes. Source and target may overlap. */
inline void copyShort(char* target, const char* source, std::size_t size) {
  if (size >= sizeof(long long)) {
    copyTwoWords<long long>(target, source, size);
  } else if (size >= sizeof(int)) {
    copyTwoWords<int>(target, source, size);
  } else if (size >= sizeof(short)) {
    copyTwoWords<short>(target, source, size);
  } else if (size == 1) {
    *target = *source;
  }
}

#endif
