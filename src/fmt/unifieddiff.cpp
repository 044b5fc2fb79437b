#include "fmt/unifieddiff.h"

#include <algorithm>
#include <span>

namespace {

constexpr unsigned contextLines = 3;  // on both sides of a change

// --- Names ---

/** The letter of the escape sequence, 0 if there is none. */
char escapeOf(char character) {
  constexpr std::string_view characters = "\a\b\t\n\v\f\r\"\\";
  constexpr std::string_view letters = "abtnvfr\"\\";
  const std::size_t place = characters.find(character);
  return place == std::string_view::npos ? '\0' : letters[place];
}

bool needsQuotes(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || code >= 0x7F || escapeOf(character) != '\0';
}

void appendQuoted(std::string& result, char character) {
  const char escape = escapeOf(character);
  if (!needsQuotes(character)) {
    result += character;
  } else if (escape != '\0') {
    result.append(1, '\\').append(1, escape);
  } else {
    const auto code = static_cast<unsigned char>(character);
    result += '\\';
    for (int shift = 6; shift >= 0; shift -= 3) {
      result += static_cast<char>('0' + (code >> shift & 7));
    }
  }
}

/** A line of the head. A tab ends a name with blanks, which would end at the first of them. */
void appendName(std::string& result, std::string_view mark, std::string_view folder,
                std::string_view name) {
  const bool isQuoted = std::ranges::any_of(name, needsQuotes);
  result += mark;
  if (isQuoted) result += '"';
  result += folder;
  for (const char character : name) appendQuoted(result, character);
  if (isQuoted) result += '"';
  if (!isQuoted && name.find(' ') != std::string_view::npos) result += '\t';
  result += '\n';
}

// --- Hunks ---

/** Lines of context, and where they begin or end in the text. */
struct Context {
  unsigned count = 0;
  std::size_t place;
};

Context contextBefore(std::string_view text, std::size_t place) {
  Context context{0, place};
  while (context.count < contextLines && context.place > 0) {
    const std::size_t feed = text.substr(0, context.place - 1).rfind('\n');
    context.place = feed == std::string_view::npos ? 0 : feed + 1;
    ++context.count;
  }
  return context;
}

Context contextAfter(std::string_view text, std::size_t place) {
  Context context{0, place};
  while (context.count < contextLines && context.place < text.size()) {
    context.place = std::min(text.find('\n', context.place), text.size() - 1) + 1;
    ++context.count;
  }
  return context;
}

void appendLines(std::string& result, char mark, std::string_view text) {
  while (!text.empty()) {
    const std::size_t feed = text.find('\n');
    const std::string_view line = text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
    result.append(1, mark).append(line);
    if (feed == std::string_view::npos) result += "\n\\ No newline at end of file\n";
    text.remove_prefix(line.size());
  }
}

/** A hunk without lines names the line before it. */
void appendRange(std::string& result, char mark, unsigned first, unsigned count) {
  result.append(1, mark).append(std::to_string(count == 0 ? first - 1 : first));
  result.append(1, ',').append(std::to_string(count));
}

unsigned behind(const Lines& lines) { return lines.first + lines.count; }

/** No line lies between that is not context of either. */
bool isNear(const Lines& lines, const Lines& next) {
  return next.first - behind(lines) <= 2 * contextLines;
}

/** The stretches are those of one hunk. */
void appendHunk(std::string& result, std::string_view old, std::string_view fresh,
                std::span<const Stretch> stretches) {
  const Stretch& first = stretches.front();
  const Stretch& last = stretches.back();
  const Context before = contextBefore(old, first.old.place);
  const Context after = contextAfter(old, last.old.place + last.old.size);
  const unsigned further = before.count + after.count;
  result += "@@ ";
  appendRange(result, '-', first.old.first - before.count,
              behind(last.old) - first.old.first + further);
  appendRange(result += ' ', '+', first.fresh.first - before.count,
              behind(last.fresh) - first.fresh.first + further);
  result += " @@\n";
  std::size_t place = before.place;
  for (const Stretch& stretch : stretches) {
    appendLines(result, ' ', old.substr(place, stretch.old.place - place));
    appendLines(result, '-', old.substr(stretch.old.place, stretch.old.size));
    appendLines(result, '+', fresh.substr(stretch.fresh.place, stretch.fresh.size));
    place = stretch.old.place + stretch.old.size;
  }
  appendLines(result, ' ', old.substr(place, after.place - place));
}

}  // namespace

std::string unifiedDiff(std::string_view name, std::string_view old, std::string_view fresh,
                        const std::vector<Stretch>& changed) {
  std::string result;
  if (changed.empty()) return result;
  appendName(result, "--- ", "a/", name);
  appendName(result, "+++ ", "b/", name);
  for (auto begin = changed.begin(); begin != changed.end();) {
    auto end = begin + 1;
    while (end != changed.end() && isNear((end - 1)->old, end->old)) ++end;
    appendHunk(result, old, fresh, {begin, end});
    begin = end;
  }
  return result;
}
