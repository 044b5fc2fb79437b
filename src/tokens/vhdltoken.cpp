// Token texts other than blanks or a line end.
#include "tokens/vhdltoken.h"

#include <algorithm>
#include <new>

std::span<char> VhdlToken::newText(std::string_view text, Arena& arena) {
  char* copy = static_cast<char*>(arena.take(text.size() + textPadding));
  text.copy(copy, text.size());
  return {copy, text.size()};
}

void VhdlToken::setFormatText(std::span<char> replacement, Arena& arena) {
  if (printed != OWN_TEXT) texts = ::new (arena.take(sizeof(Texts))) Texts{text, nullptr};
  texts->format = replacement.data();
  print(OWN_TEXT, static_cast<int>(replacement.size()));
}

std::span<char> VhdlToken::ownText(Arena& arena) {
  if (printed != OWN_TEXT) setFormatText(viewText(1), arena);
  return {texts->format, static_cast<std::size_t>(printedLength)};
}

void VhdlToken::deleteSpaces(Arena& arena) {
  const std::string_view source = viewText(1);
  if (source.find(' ') == std::string_view::npos) return;
  const std::span<char> rest = ownText(arena);
  const auto kept = std::remove(rest.begin(), rest.end(), ' ') - rest.begin();
  setFormatText(rest.first(static_cast<std::size_t>(kept)), arena);
}
