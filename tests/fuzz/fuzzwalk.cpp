// The walk over a text and its layout. A text that begins with # and nine bytes chooses settings
// and lines by them; any other text gets the defaults.
//
// Checked: what is passed at a glance reads the same piece by piece; a layout that is proven keeps
// every character that shows; its diff leads from the one text to the other; lines outside those
// taken over stay to the byte, and what is taken over in part is proven against both texts.
#include <algorithm>
#include <array>
#include <utility>

#include "fmt/comparison.h"
#include "fmt/formattext.h"
#include "fmt/lines.h"
#include "fmt/reading.h"
#include "fmt/samepiece.h"
#include "fmt/unifieddiff.h"
#include "fuzzing.h"

namespace {

constexpr std::string_view blanks = " \t\n\v\f\r";
constexpr std::size_t headerSize = 10;

unsigned byteAt(std::string_view header, std::size_t place) {
  return place < header.size() ? static_cast<unsigned char>(header[place]) : 0U;
}

Settings settingsBy(std::string_view header) {
  Settings settings;
  if (header.empty()) return settings;
  settings.lineWidth = std::array{80, 1, 20, 40}[byteAt(header, 1) % 4];
  settings.vhdl = std::array{2008, 1993, 2019, 1993}[byteAt(header, 1) / 4 % 4];
  settings.tabify = static_cast<int>(byteAt(header, 2) % 2);
  settings.extendComments = static_cast<int>(byteAt(header, 3) % 2);
  settings.frameBlockComments = static_cast<int>(byteAt(header, 4) % 2);
  settings.caseStyles.setGroup(CASE_IDENTIFIER, byteAt(header, 5) % 2 == 1 ? C_ASIS : C_UPPERCASE);
  settings.blockCommentCharacters.set(byteAt(header, 6) % 2 == 1 ? "-=*" : "#_");
  return settings;
}

/** The verdict of the walk without its glances. */
bool isSamePieceByPiece(std::string_view old, std::string_view fresh, std::string_view frames) {
  Reading oldReading(old, frames);
  Reading freshReading(fresh, frames);
  for (;;) {
    const Piece& piece = oldReading.next();
    if (!isSamePiece(piece, freshReading.next())) return false;
    if (piece.kind == PieceKind::END) return true;
  }
}

/** What shows, but for letter case and the frames of comments. */
std::string visible(std::string_view text, std::string_view frames) {
  std::string result = folded(without(text, std::string(blanks).append("-").append(frames)));
  std::ranges::replace(result, '!', '|');
  return result;
}

/** Stretches ascend, cover whole lines, and between them both texts are the same. */
void requireSameBetween(std::string_view old, std::string_view fresh,
                        const std::vector<Stretch>& stretches) {
  std::size_t oldPlace = 0;
  std::size_t freshPlace = 0;
  for (const Stretch& stretch : stretches) {
    require(stretch.old.place >= oldPlace && stretch.fresh.place >= freshPlace, "they ascend");
    require(old.substr(oldPlace, stretch.old.place - oldPlace) ==
                fresh.substr(freshPlace, stretch.fresh.place - freshPlace),
            "nothing changes between stretches", fresh);
    for (const auto& [lines, text] :
         {std::pair(stretch.old, old), std::pair(stretch.fresh, fresh)}) {
      const std::string_view before = text.substr(0, lines.place);
      require(std::ranges::count(before, '\n') + 1 == lines.first, "lines are counted", text);
    }
    oldPlace = stretch.old.place + stretch.old.size;
    freshPlace = stretch.fresh.place + stretch.fresh.size;
  }
  require(old.substr(oldPlace) == fresh.substr(freshPlace), "nothing changes at the end", fresh);
}

// --- Applying a diff ---

/** Takes the first line off, line end included. */
std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
  text.remove_prefix(line.size());
  return line;
}

/** Number of old lines that come through in front of a hunk. */
std::size_t linesBefore(std::string_view header, std::size_t passed) {
  const std::size_t first = std::stoul(std::string(header.substr(4)));
  const bool isInsertion = header.find(",0 ") < header.find('+');
  return first - (isInsertion ? 0 : 1) - passed;
}

std::string patched(std::string_view old, std::string_view diff) {
  std::string result;
  std::size_t passed = 0;
  for (int head = 0; head < 2 && !diff.empty(); ++head) takeLine(diff);
  while (!diff.empty()) {
    std::string_view line = takeLine(diff);
    if (line.starts_with("@@ ")) {
      for (auto count = linesBefore(line, passed); count > 0; --count, ++passed) {
        result += takeLine(old);
      }
      continue;
    }
    const char mark = line[0];
    line.remove_prefix(1);
    if (diff.starts_with("\\ ")) {
      line.remove_suffix(1);
      takeLine(diff);
    }
    if (mark != '+') {
      require(takeLine(old) == line, "a diff shows what there was", line);
      ++passed;
    }
    if (mark != '-') result += line;
  }
  return result.append(old);
}

// --- All of it ---

void requirePart(std::string_view old, std::string_view fresh, std::string_view frames,
                 const std::vector<Stretch>& changed, const LineSet& lines) {
  const PartialText partial = takeOver(old, fresh, changed, lines);
  requireSameBetween(old, partial.text, partial.taken);
  require(patched(old, unifiedDiff("n", old, partial.text, partial.taken)) == partial.text,
          "the diff leads to the new text", partial.text);
  for (const Stretch& stretch : partial.taken) {
    const bool isInsertion = stretch.old.count == 0;  // between two lines
    const unsigned first = isInsertion ? stretch.old.first - 1 : stretch.old.first;
    const unsigned last = stretch.old.first + (isInsertion ? 0 : stretch.old.count - 1);
    require(lines.countIn({first, last}) > 0, "what is taken touches the lines", partial.text);
  }
  require(!compareTexts(old, partial.text, frames).fault, "a part is proven", partial.text);
  require(!compareTexts(partial.text, fresh, frames).fault, "so is the rest", partial.text);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = viewInput(data, size);
  const bool isConfigured = size >= headerSize && input[0] == '#';
  const std::string_view header = input.substr(0, isConfigured ? headerSize : 0);
  const std::string_view old = input.substr(header.size());
  const Settings settings = settingsBy(header);
  const std::string_view frames = settings.blockCommentCharacters.view();
  const SettledText settled = formatUntilSettled(old, settings);
  if (settled.settlement == BURSTING) return 0;
  const std::string_view fresh = settled.text;
  const Comparison comparison = compareTexts(old, fresh, frames);
  require(isSamePieceByPiece(old, fresh, frames) != comparison.fault.has_value(),
          "a glance tells what the pieces tell", fresh);
  if (comparison.fault) return 0;
  require(visible(old, frames) == visible(fresh, frames), "what is proven keeps what shows", fresh);
  LineSet all;
  all.add(1, static_cast<unsigned>(size) + 1);
  require(takeOver(old, fresh, comparison.changed, all).text == fresh, "all lines are all", fresh);
  LineSet lines;
  for (std::size_t i = 7; i < headerSize; ++i)
    lines.add(1 + byteAt(header, i), 1 + byteAt(header, i - 3) % 4);
  requirePart(old, fresh, frames, comparison.changed, lines);
  requirePart(old, fresh, frames, comparison.changed, all);
  return 0;
}
