// Splitting a text at a separator.
#include "base/stringlist.h"

#include <algorithm>
#include <string_view>

int StringList::Split(const char* text, char separator) {
  std::string_view rest(text);
  int count = 0;
  while (!rest.empty()) {
    const std::size_t length = std::min(rest.find(separator), rest.size());
    if (length > 0) {
      addItemLast(new DynString(rest.substr(0, length)));
      ++count;
    }
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
  return count;
}
