// The string of the whole system. A string is unset or holds at least one character; an unset one
// reads as the empty text, so no caller ever tests for null.
//
// Sixteen bytes, since every token bears two: texts of up to 15 characters stand in the object
// itself, blanks up to a limit in a constant that all strings share, all else on the heap with room
// to grow.
#ifndef QORN_BASE_DYNSTRING_H
#define QORN_BASE_DYNSTRING_H

#include <cstdint>
#include <cstring>
#include <string_view>

class DynString {
 public:
  DynString() { becomeUnset(); }
  explicit DynString(const char* text) : DynString() { set(text); }
  explicit DynString(std::string_view text) : DynString() { set(text); }
  DynString(const DynString& other) : DynString() { set(other.view()); }
  DynString(DynString&& other) noexcept;
  DynString& operator=(const DynString& other);
  DynString& operator=(DynString&& other) noexcept;
  ~DynString() { release(); }

  /** The text, closed by a zero; never null. It lives until the string changes. */
  const char* get() const { return isInline() ? store.chars : store.heap.text; }
  std::string_view view() const { return {get(), static_cast<std::size_t>(length())}; }
  /** In bytes; 0 if unset. */
  int length() const {
    return isInline() ? inlineMax - tag() : static_cast<int>(store.heap.length);
  }

  /** Takes a copy, which may come from this string itself. Null or empty leaves it unset. */
  void set(const char* text) { set(text == nullptr ? std::string_view() : std::string_view(text)); }
  void set(std::string_view text);
  /** The text becomes that many blanks; unset for 0 or less. */
  void setBlanks(int count);

  /** Appends a copy. Null, the empty text and the character 0 change nothing. */
  void cat(const char* text) { cat(text == nullptr ? std::string_view() : std::string_view(text)); }
  void cat(std::string_view text);
  void cat(char character) {
    if (character != '\0') catRepeated(1, character);
  }
  /** Appends a number in decimal. */
  void catl(long number);
  /** Appends a character other than 0 that many times; none for a count of 0 or less. */
  void catRepeated(int count, char character);

  /** Makes room for a text of that length, which the caller writes where the result says. */
  char* rewrite(int newLength);
  /** Keeps the first `count` characters, of at least that many. */
  void truncate(int count);
  /** Takes off the first `count` characters, of at least that many. The rest of a long text stays
      where it is, so that a text can be taken apart piece by piece. */
  void dropFront(int count);
  /** Writes over the characters from `index` on. Requires: index + size of text <= length(). */
  void overwrite(int index, std::string_view text);

 private:
  static constexpr int inlineMax = 15;             // characters in the object itself
  static constexpr std::uint8_t heapTag = 0x80;    // the text stands on the heap and is owned
  static constexpr std::uint8_t sharedTag = 0x81;  // the text belongs to the shared blanks

  // The last byte tells which form is in force: the free room of an inline text, which is the zero
  // behind one of full length, or one of the tags above.
  union Store {
    char chars[inlineMax + 1];
    struct {
      char* text;              // points `offset` characters into the heap block
      std::uint32_t length;    // of the text
      std::uint8_t offset[3];  // characters dropped in front, low byte first
    } heap;
  };
  static_assert(sizeof(Store) == inlineMax + 1);

  std::uint8_t tag() const {
    std::uint8_t value;
    std::memcpy(&value, store.chars + inlineMax, 1);
    return value;
  }
  void setTag(std::uint8_t value) { store.chars[inlineMax] = static_cast<char>(value); }
  bool isInline() const { return tag() <= inlineMax; }
  bool isHeap() const { return tag() == heapTag; }
  void becomeUnset() {
    store.chars[0] = '\0';
    setTag(inlineMax);
  }
  void release() {
    if (isHeap()) freeBlock();
  }
  void setInlineLength(std::size_t textLength);
  void freeBlock();
  int headOffset() const;
  char* blockStart() const { return store.heap.text - headOffset(); }
  void becomeHeap(char* text, int offset, std::size_t textLength);
  char* makeRoom(std::size_t added);

  Store store;
};

#endif
