// A growable array of texts with an iterator, terminated by a null entry.
#ifndef QORN_BASE_STRINGARRAY_H
#define QORN_BASE_STRINGARRAY_H

class StringArray {
 public:
  StringArray();
  StringArray(const StringArray&) = delete;
  StringArray& operator=(const StringArray&) = delete;
  virtual ~StringArray();

  /** Appends a copy. */
  void addString(const char* text);
  /** The first text, or null. Starts the iteration. */
  const char* getFirstString();
  /** The next text, or null after the last. */
  const char* getNextString();

 private:
  static constexpr int capacityStep = 4;

  int count = 0;                // texts
  int capacity = capacityStep;  // entries allocated, the terminating null included
  int current = 0;              // index of the iteration
  char** strings;
};

#endif
