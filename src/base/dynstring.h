// The string class used throughout. A string is unset or holds at least one character; an unset one
// reads as the empty text, so no caller ever tests for null.
#ifndef QORN_BASE_DYNSTRING_H
#define QORN_BASE_DYNSTRING_H

#include <string>
#include <string_view>

class DynString {
 public:
  DynString() = default;
  explicit DynString(const char* text) { set(text); }
  explicit DynString(std::string_view text) { set(text); }

  /** The zero-terminated text; never null. Valid until the string changes. */
  const char* get() const { return buffer.c_str(); }
  std::string_view view() const { return buffer; }
  /** In bytes; 0 if unset. */
  int length() const { return static_cast<int>(buffer.size()); }

  /** Copies the text, which may be part of this string. Null or empty leaves it unset. */
  void set(const char* text) { set(text == nullptr ? std::string_view() : std::string_view(text)); }
  void set(std::string_view text) { buffer = text; }

  /** Appends a copy. Null, the empty text and the character 0 append nothing. */
  void cat(const char* text) { cat(text == nullptr ? std::string_view() : std::string_view(text)); }
  void cat(std::string_view text) { buffer += text; }
  void cat(char character) { catRepeated(1, character); }
  /** Appends a number in decimal. */
  void catl(long number) { buffer += std::to_string(number); }
  /** Appends a character other than 0 that many times; none for a count of 0 or less. */
  void catRepeated(int count, char character) {
    if (count > 0 && character != '\0') buffer.append(static_cast<std::size_t>(count), character);
  }
  /** Keeps the first `count` characters. Requires: count <= length(). */
  void truncate(int count) { buffer.resize(static_cast<std::size_t>(count)); }

 private:
  std::string buffer;
};

#endif
