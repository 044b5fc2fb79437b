// Tab expansion. Vertical tabs, form feeds and line feeds count one column like any character.
#include "tokens/tabs.h"

#include <algorithm>
#include <new>

#include "base/dynstring.h"

long lexColumn = 0;

namespace {

int lexTabSize = 4;
// Never destroyed: a signal may end the run at any moment, and then nothing is to be freed.
alignas(DynString) char bufferRoom[sizeof(DynString)];
DynString& YYbuf = *::new (bufferRoom) DynString;

}  // namespace

void YYsetInTabSize(int size) { lexTabSize = std::max(size, 1); }

std::string_view ReplaceTabs(std::string_view text) {
  std::size_t tab = text.find('\t');
  if (tab == std::string_view::npos) {
    lexColumn += static_cast<long>(text.size());
    return text;
  }
  YYbuf.set(std::string_view());
  while (tab != std::string_view::npos) {
    YYbuf.cat(text.substr(0, tab));
    lexColumn += static_cast<long>(tab);
    const int blanks = lexTabSize - static_cast<int>(lexColumn % lexTabSize);
    YYbuf.catRepeated(blanks, ' ');
    lexColumn += blanks;
    text.remove_prefix(tab + 1);
    tab = text.find('\t');
  }
  YYbuf.cat(text);
  lexColumn += static_cast<long>(text.size());
  return YYbuf.view();
}
