// Tab expansion. Vertical tabs, form feeds and line feeds count one column like any character.
#include "tokens/tabs.h"

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
    const int blanks = tabSize - static_cast<int>(column % tabSize);
    YYbuf.catRepeated(blanks, ' ');
    column += blanks;
    text.remove_prefix(tab + 1);
    tab = text.find('\t');
  }
  YYbuf.cat(text);
  advance(text.size());
  return YYbuf.view();
}
