// An owning list of strings, made by splitting a text.
#ifndef QORN_BASE_STRINGLIST_H
#define QORN_BASE_STRINGLIST_H

#include "base/dynstring.h"
#include "base/list.h"

class StringList : public List<DynString> {
 public:
  /** Appends each non-empty piece between separators. Returns how many. */
  int Split(const char* text, char separator);
  /** The text of the first entry, or null. Starts the iteration. */
  const char* getFirstString() { return textOf(getFirst()); }
  /** The text of the next entry, or null after the last. */
  const char* getNextString() { return textOf(getNext()); }

 private:
  static const char* textOf(const DynString* entry) {
    return entry == nullptr ? nullptr : entry->get();
  }
};

#endif
