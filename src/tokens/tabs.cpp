// Tab expansion. Vertical tabs, form feeds and line feeds count one column like any character.
#include "tokens/tabs.h"

#include <climits>

#include "base/fatal.h"

int TabExpander::passBlanks(const char*& at) {
  const char* here = at;
  long end = column;
  for (;; ++here) {
    if (*here == ' ') {
      ++end;
    } else if (*here == '\t') {
      end += toNextStop(end);
    } else {
      break;
    }
  }
  if (*here == '\v' || *here == '\f') return -1;
  const long count = end - column;
  if (count >= INT_MAX) outOfMemory();  // lengths are integers
  column = end;
  at = here;
  return static_cast<int>(count);
}

std::string_view TabExpander::ReplaceTabs(std::string_view text) {
  std::size_t tab = text.find('\t');
  if (tab == std::string_view::npos) {
    advance(text.size());
    return text;
  }
  YYbuf.set(std::string_view());
  while (tab != std::string_view::npos) {
    YYbuf.cat(text.substr(0, tab));
    advance(tab);
    const int blanks = toNextStop(column);
    YYbuf.catRepeated(blanks, ' ');
    column += blanks;
    text.remove_prefix(tab + 1);
    tab = text.find('\t');
  }
  YYbuf.cat(text);
  advance(text.size());
  return YYbuf.view();
}
