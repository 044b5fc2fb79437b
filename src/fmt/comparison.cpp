// The walk. Both readings advance piece by piece; where both start a line, the texts are split.
#include "fmt/comparison.h"

#include <utility>

#include "fmt/reading.h"
#include "fmt/samepiece.h"

namespace {

/** The begin of a line. */
struct Edge {
  std::size_t place = 0;
  unsigned line = 1;
};

/** With its line end. The text is not empty. */
std::string_view firstLine(std::string_view text) {
  const std::size_t feed = text.find('\n');
  return text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
}

/** With its line end. The text is not empty. */
std::string_view lastLine(std::string_view text) {
  const std::size_t feed = text.substr(0, text.size() - 1).rfind('\n');
  return text.substr(feed == std::string_view::npos ? 0 : feed + 1);
}

void dropFirstLine(Lines& lines, std::size_t length) {
  ++lines.first;
  --lines.count;
  lines.place += length;
  lines.size -= length;
}

void dropLastLine(Lines& lines, std::size_t length) {
  --lines.count;
  lines.size -= length;
}

class Walk {
 public:
  Walk(std::string_view old, std::string_view fresh, std::string_view frameCharacters)
      : oldText(old),
        freshText(fresh),
        oldReading(old, frameCharacters),
        freshReading(fresh, frameCharacters) {}
  Comparison compare();

 private:
  /** Skips what is the same at a glance. False if the next pieces have to be read. */
  bool passSame();
  /** Closes the part up to these lines. */
  void part(Edge oldTo, Edge freshTo);
  void dropCommonLines(Stretch& stretch) const;

  std::string_view oldText;
  std::string_view freshText;
  Reading oldReading;
  Reading freshReading;
  Edge oldFrom;  // start of the current part
  Edge freshFrom;
  Comparison result;
};

Edge edgeAt(const char* lineStart, unsigned line, std::string_view text) {
  return {static_cast<std::size_t>(lineStart - text.data()), line};
}

/** The line after the last one, which may lack its line end. */
Edge edgeAfter(const Piece& last, std::string_view text) {
  const bool isOpen = last.lineStart < text.data() + text.size();
  return {text.size(), isOpen ? last.line + 1 : last.line};
}

Lines linesBetween(Edge from, Edge to) {
  return {from.line, to.line - from.line, from.place, to.place - from.place};
}

std::string_view textOf(const Lines& lines, std::string_view text) {
  return text.substr(lines.place, lines.size);
}

void Walk::dropCommonLines(Stretch& stretch) const {
  Lines& old = stretch.old;
  Lines& fresh = stretch.fresh;
  if (old.count == 1 && fresh.count == 1) return;
  while (old.size > 0 && fresh.size > 0) {
    const std::string_view line = firstLine(textOf(old, oldText));
    if (line != firstLine(textOf(fresh, freshText))) break;
    dropFirstLine(old, line.size());
    dropFirstLine(fresh, line.size());
  }
  while (old.size > 0 && fresh.size > 0) {
    const std::string_view line = lastLine(textOf(old, oldText));
    if (line != lastLine(textOf(fresh, freshText))) break;
    dropLastLine(old, line.size());
    dropLastLine(fresh, line.size());
  }
}

void Walk::part(Edge oldTo, Edge freshTo) {
  Stretch stretch{linesBetween(oldFrom, oldTo), linesBetween(freshFrom, freshTo)};
  oldFrom = oldTo;
  freshFrom = freshTo;
  if (textOf(stretch.old, oldText) == textOf(stretch.fresh, freshText)) return;
  dropCommonLines(stretch);
  result.changed.push_back(stretch);
}

bool Walk::passSame() {
  if (!oldReading.isPlain() || !freshReading.isPlain()) return false;
  oldReading.passLayout();
  freshReading.passLayout();
  const char* const oldLine = oldReading.startOfFreshLine();
  const char* const freshLine = freshReading.startOfFreshLine();
  if (oldLine != nullptr && freshLine != nullptr) {
    part(edgeAt(oldLine, oldReading.getLine(), oldText),
         edgeAt(freshLine, freshReading.getLine(), freshText));
  }
  return Reading::passSame(oldReading, freshReading);
}

Comparison Walk::compare() {
  for (;;) {
    while (passSame()) continue;
    const Piece& old = oldReading.next();
    const Piece& fresh = freshReading.next();
    if (old.startsLine && fresh.startsLine) {
      part(edgeAt(old.lineStart, old.line, oldText),
           edgeAt(fresh.lineStart, fresh.line, freshText));
    }
    if (!isSamePiece(old, fresh)) return {explainDifference(oldReading, freshReading), {}};
    if (old.kind != PieceKind::END) continue;
    part(edgeAfter(old, oldText), edgeAfter(fresh, freshText));
    return std::move(result);
  }
}

}  // namespace

Comparison compareTexts(std::string_view old, std::string_view fresh,
                        std::string_view frameCharacters) {
  if (old == fresh) return {};
  return Walk(old, fresh, frameCharacters).compare();
}
