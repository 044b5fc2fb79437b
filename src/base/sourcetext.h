// A whole source in memory, for a lexer that looks ahead without checking for the end.
#ifndef QORN_BASE_SOURCETEXT_H
#define QORN_BASE_SOURCETEXT_H

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "base/memoryblock.h"

/** Owns the text. A line feed and `padding` zeros follow the end and are not part of it. */
class SourceText {
 public:
  static constexpr std::size_t padding = 16;

  SourceText() = default;
  SourceText(const SourceText&) = delete;
  SourceText& operator=(const SourceText&) = delete;

  /** Reads the stream from its position to its end and leaves it open. A read error is fatal, with
      the name in its message. */
  void read(FILE* stream, const char* name);
  /** Takes a copy. */
  void set(std::string_view source);

  const char* begin() const { return block.begin(); }
  const char* end() const { return block.begin() + size; }
  std::string_view view() const { return {block.begin(), size}; }

 private:
  static constexpr std::size_t terminator = 1 + padding;

  /** Makes room for that many bytes; the text so far is kept. */
  void reserve(std::size_t wanted);
  std::size_t capacity() const { return block.size() - terminator; }
  void closeText();

  MemoryBlock block;
  std::size_t size = 0;
};

#endif
