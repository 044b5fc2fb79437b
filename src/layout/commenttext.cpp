// The text of one comment: extending a frame to the margin, trimming filler, splitting. The pair of
// a comment is its last two characters, if they are the same frame character; a filled comment has
// two more of them before the pair.
#include <algorithm>

#include "base/columns.h"
#include "base/dynstring.h"
#include "tokens/vhdltoken.h"

namespace {

constexpr std::string_view continuationMark = "-- ";
constexpr int pairLength = 2;

/** The closing pair, empty if the text has none. */
std::string_view pairOf(std::string_view text, std::string_view chars) {
  if (text.size() < pairLength) return {};
  const std::string_view last = text.substr(text.size() - pairLength);
  return last[0] == last[1] && chars.find(last[0]) != std::string_view::npos ? last
                                                                             : std::string_view();
}

}  // namespace

// A filled frame is extended to the margin. Another pair is closed up with the title, or dropped if
// it is of hyphens, unless FRAMEBLOCKCOMMENTS keeps it at the margin. With LINEWIDTH 24:
//     -- Title ====  | -- Title ===============
//     -- Title   ==  | -- Title==
//     -- Title   --  | -- Title
// With LINEWIDTH 24 FRAMEBLOCKCOMMENTS TRUE:
//     -- Title   ==  | -- Title              ==
//     -- Title --    | -- Title              --
void VhdlToken::alignComment(int width, std::string_view chars, int frame, Arena& arena) {
  if (typ != T_COMMENT) return;
  const std::string_view source = viewText(1);
  const std::string_view pair = pairOf(source, chars);
  const int count = static_cast<int>(source.size());
  if (pair.empty() || count <= 3 || indent > width - count) return;
  const char mark = pair[0];
  const std::string_view title = source.substr(0, source.size() - pairLength);
  const char filler = pairOf(title, pair).empty() ? ' ' : mark;
  DynString drawn(title);
  if (filler == ' ' && frame != 1) {
    int end = drawn.length();
    while (end > 1 && title[static_cast<std::size_t>(end) - 1] == ' ') --end;
    drawn.truncate(end);
    if (mark != '-') drawn.catRepeated(pairLength, mark);
  } else {
    drawn.catRepeated(addColumns(width, -indent) - count, filler);
    drawn.catRepeated(pairLength, mark);
  }
  setFormatText(drawn.view(), arena);
}

// Filler beyond the margin goes, but one character of it stays after a title. With LINEWIDTH 24:
//     -- Title --------------------------  | -- Title ---------------
void VhdlToken::trimmComment(int width, std::string_view pair, Arena& arena) {
  if (typ != T_COMMENT) return;
  const std::string_view source = viewText(1);
  const int room = addColumns(width, -indent);
  const int count = static_cast<int>(source.size());
  if (count < room || count <= pairLength || !source.ends_with(pair)) return;
  const char mark = pair[0];
  int last = count - pairLength - 1;  // the character before the pair that may be filler
  while (last > 0 && last > room - 4 &&
         (source[static_cast<std::size_t>(last)] == ' ' ||
          source[static_cast<std::size_t>(last)] == mark)) {
    --last;
  }
  const auto end = static_cast<std::size_t>(std::min(last + 2, count - pairLength));
  const std::span<char> trimmed = ownText(arena).first(end + pairLength);
  std::fill(trimmed.begin() + static_cast<std::ptrdiff_t>(end), trimmed.end(), mark);
  setFormatText(trimmed, arena);
}

// Every piece ends in the pair of the whole. With LINEWIDTH 24:
//     -- one two three four five six **  | -- one two three four**
//                                        | -- five six**
std::span<char> VhdlToken::stripComment(int width, std::string_view chars, Arena& arena) {
  if (typ != T_COMMENT) return {};
  const DynString pair(pairOf(viewText(1), chars));
  if (pair.length() > 0) trimmComment(width, pair.view(), arena);
  const std::string_view source = viewText(1);
  if (indent <= width - static_cast<int>(source.size())) return {};
  const int limit = addColumns(width, -indent) - (pair.length() > 0 ? pairLength + 1 : 0);
  if (limit <= 0) return {};
  const std::size_t blank = source.rfind(' ', static_cast<std::size_t>(limit));
  if (blank == std::string_view::npos || blank < continuationMark.size()) return {};
  // The rest stays where it is, so that a comment of any length is split without copying the rest
  // for each piece: what this line keeps is copied, and the next mark overwrites the end of it.
  const std::span<char> whole = ownText(arena);
  DynString kept(source.substr(0, blank));
  if (pair.length() > 0) {
    kept.cat(' ');
    kept.cat(pair.view());
  }
  setFormatText(kept.view(), arena);
  const std::span<char> rest = whole.subspan(blank + 1 - continuationMark.size());
  continuationMark.copy(rest.data(), continuationMark.size());
  return rest;
}
