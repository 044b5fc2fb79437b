// A whole source in memory, for a lexer that looks ahead without checking for the end.
#ifndef QORN_BASE_SOURCETEXT_H
#define QORN_BASE_SOURCETEXT_H

#include <cstddef>
#include <cstdio>
#include <string_view>

/** Owns the text. A line feed and `padding` zeros follow the end and are not part of it. */
class SourceText {
 public:
  static constexpr std::size_t padding = 16;

  SourceText() = default;
  SourceText(const SourceText&) = delete;
  SourceText& operator=(const SourceText&) = delete;
  ~SourceText();

  /** Reads the stream from its position to its end and leaves it open. A read error is fatal, with
      the name in its message. */
  void read(FILE* stream, const char* name);
  /** Takes a copy. */
  void set(std::string_view source);

  const char* begin() const { return text; }
  const char* end() const { return text + size; }
  std::string_view view() const { return {text, size}; }

 private:
  void reserve(std::size_t wanted);
  void closeText();

  char* text = nullptr;
  std::size_t size = 0;
  std::size_t capacity = 0;  // without the terminating characters
};

#endif
