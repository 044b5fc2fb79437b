// The whole text of a stream in memory, for a lexer that looks ahead without asking for the end.
#ifndef QORN_BASE_SOURCETEXT_H
#define QORN_BASE_SOURCETEXT_H

#include <cstddef>
#include <cstdio>
#include <string_view>

/** Owns the text. A line feed and `padding` zeros stand behind the end and don't belong to it. */
class SourceText {
 public:
  static constexpr std::size_t padding = 16;

  /** Reads the stream from where it stands to its end; it stays open. A read error is fatal, with
     the name in its message. */
  SourceText(FILE* stream, const char* name);
  SourceText(const SourceText&) = delete;
  SourceText& operator=(const SourceText&) = delete;
  ~SourceText();

  const char* begin() const { return text; }
  const char* end() const { return text + size; }
  std::string_view view() const { return {text, size}; }

 private:
  void reserve(std::size_t wanted);

  char* text = nullptr;
  std::size_t size = 0;
  std::size_t capacity = 0;  // without the closing characters
};

#endif
