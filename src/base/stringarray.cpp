// Storage of the array: each text is a block of its own.
#include "base/stringarray.h"

#include <algorithm>
#include <cstring>

StringArray::StringArray() : strings(new char*[capacityStep]()) {}

StringArray::~StringArray() {
  for (int i = 0; i < count; ++i) delete[] strings[i];
  delete[] strings;
}

void StringArray::addString(const char* text) {
  if (capacity <= count + 1) {
    capacity += capacityStep;
    char** wider = new char*[static_cast<unsigned>(capacity)]();
    std::copy(strings, strings + count, wider);
    delete[] strings;
    strings = wider;
  }
  const std::size_t size = std::strlen(text) + 1;
  strings[count] = new char[size];
  std::memcpy(strings[count], text, size);
  ++count;
}

const char* StringArray::getFirstString() {
  current = 0;
  return strings[0];
}

const char* StringArray::getNextString() {
  if (current < count) ++current;
  return strings[current];
}
