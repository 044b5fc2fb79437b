// The string of the whole system. A string is unset or holds at least one character; an unset one
// reads as the empty text, so no caller ever tests for null.
//
// Sixteen bytes, since every token bears two: texts of up to 15 characters stand in the object
// itself, blanks in a block that all strings share, all else on the heap with room to grow.
#ifndef QORN_BASE_DYNSTRING_H
#define QORN_BASE_DYNSTRING_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "base/shortcopy.h"

/** A text with enough to read behind it that it may be copied in one block. */
struct RoomyText {
  std::string_view text;
};

class DynString {
 public:
  static constexpr int shortMax = 15;  // characters that stand in the object itself

  DynString() { becomeUnset(); }
  explicit DynString(const char* text) : DynString() { set(text); }
  explicit DynString(std::string_view text) : DynString() { set(text); }
  /** A copy of a text from whose start on shortMax + 1 bytes can be read, whatever its length. */
  explicit DynString(RoomyText roomy) {
    if (roomy.text.size() > shortMax) [[unlikely]] {
      becomeUnset();
      setLong(roomy.text);
    } else {
      std::memcpy(store.chars, roomy.text.data(), sizeof(store.chars));
      setInlineLength(roomy.text.size());
    }
  }
  DynString(const DynString& other) : DynString() { *this = other; }
  DynString(DynString&& other) noexcept : store(other.store) { other.becomeUnset(); }
  DynString& operator=(const DynString& other) {
    if (isShort() && other.isShort()) {
      store = other.store;
    } else if (this != &other) {
      setLong(other.view());
    }
    return *this;
  }
  DynString& operator=(DynString&& other) noexcept;
  ~DynString() { release(); }

  /** The text, closed by a zero; never null. It lives until the string changes. */
  const char* get() const { return isShort() ? store.chars : store.heap.text; }
  std::string_view view() const { return {get(), static_cast<std::size_t>(length())}; }
  /** In bytes; 0 if unset. */
  int length() const { return isShort() ? shortMax - tag() : static_cast<int>(store.heap.length); }

  /** Does the text stand in the object itself? */
  bool isShort() const { return tag() <= shortMax; }
  /** Copies a short text and what stands behind it: shortMax + 1 bytes, whatever its length. */
  void copyBlock(char* target) const { std::memcpy(target, store.chars, sizeof(store.chars)); }

  /** Takes a copy, which may come from this string itself. Null or empty leaves it unset. */
  void set(const char* text) { set(text == nullptr ? std::string_view() : std::string_view(text)); }
  void set(std::string_view text) {
    if (text.size() > shortMax || !isShort()) [[unlikely]] {
      setLong(text);
    } else {
      copyShort(store.chars, text.data(), text.size());
      setInlineLength(text.size());
    }
  }
  /** The text becomes that many blanks; unset for 0 or less. */
  void setBlanks(int count) {
    if (count > shortMax || !isShort()) [[unlikely]] {
      setLongBlanks(count);
    } else {
      std::memset(store.chars, ' ', sizeof(store.chars));
      setInlineLength(static_cast<std::size_t>(std::max(count, 0)));
    }
  }

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

  /** Replaces every character, from first to last. Requires: `convert` leaves control characters
     as they are. */
  template <typename Convert>
  void transform(Convert convert) {
    if (isShort()) {
      // The tag goes along: it is a control character.
      for (char& character : store.chars) character = convert(character);
    } else {
      char* text = edit();
      for (int i = 0; i < length(); ++i) text[i] = convert(text[i]);
    }
  }
  /** The characters, to be written over. */
  char* edit();
  /** Makes room for that many characters, so that no text of up to that length, and of more than
      the object itself holds, will need memory. */
  void reserve(int count);
  /** Keeps the first `count` characters, of at least that many. */
  void truncate(int count);
  /** Takes off the first `count` characters, of at least that many. The rest of a long text stays
      where it is, so that a text can be taken apart piece by piece. */
  void dropFront(int count);

 private:
  static constexpr std::uint8_t heapTag = 0x80;    // the text stands on the heap and is owned
  static constexpr std::uint8_t sharedTag = 0x81;  // the text belongs to the shared blanks

  // The last byte tells which form is in force: the free room of an inline text, which is the zero
  // behind one of full length, or one of the tags above.
  union Store {
    char chars[shortMax + 1];
    struct {
      char* text;              // points `offset` characters into the heap block
      std::uint32_t length;    // of the text
      std::uint8_t offset[3];  // characters dropped in front, low byte first
    } heap;
  };
  static_assert(sizeof(Store) == shortMax + 1);

  std::uint8_t tag() const {
    std::uint8_t value;
    std::memcpy(&value, store.chars + shortMax, 1);
    return value;
  }
  void setTag(std::uint8_t value) { store.chars[shortMax] = static_cast<char>(value); }
  bool isHeap() const { return tag() == heapTag; }
  void becomeUnset() {
    store = Store{};
    setTag(shortMax);
  }
  void release() {
    if (isHeap()) freeBlock();
  }
  void setInlineLength(std::size_t textLength) {
    store.chars[textLength] = '\0';
    setTag(static_cast<std::uint8_t>(shortMax - textLength));
  }
  void setLong(std::string_view text);
  void setLongBlanks(int count);
  void freeBlock();
  int headOffset() const;
  char* blockStart() const { return store.heap.text - headOffset(); }
  void becomeHeap(char* text, int offset, std::size_t textLength);
  char* makeRoom(std::size_t added);

  Store store;
};

#endif
