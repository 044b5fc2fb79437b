#include "fmt/fault.h"

#include <string_view>
#include <utility>

#include "fmt/samepiece.h"

namespace {

constexpr std::size_t longestQuoted = 40;
constexpr std::string_view remedy = "; put --QORN-OFF in front of it";
constexpr std::string_view remedyOfPsl = "; set VHDL 2008";  // it is a bar in shielded lines, too

/** In double quotes, truncated if long, and without anything that a terminal would obey. */
std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char character : text.substr(0, longestQuoted)) {
    const auto code = static_cast<unsigned char>(character);
    result += code < ' ' || code == 0x7F ? '?' : character;
  }
  if (text.size() > longestQuoted) result += "...";
  return result + '"';
}

bool isLayout(PieceKind kind) { return kind == PieceKind::BLANKS || kind == PieceKind::LINE_END; }

bool isOfComment(PieceKind kind) {
  return kind == PieceKind::COMMENT_WORD || kind == PieceKind::PRAGMA;
}

/** A ! of PSL, which turns into a bar wherever it stands. */
bool isExclamation(const Piece& piece) {
  return piece.text.ends_with('!') &&
         (piece.kind == PieceKind::WORD || piece.kind == PieceKind::DELIMITER);
}

std::string withBar(std::string_view text) {
  return std::string(text.substr(0, text.size() - 1)) + '|';
}

/** Whether the text of the piece begins with the front, in any case. */
bool beginsWith(const Piece& piece, std::string_view front) {
  return isFoldedSame(piece.text.substr(0, front.size()), front);
}

/** Whether the text has a carriage return that is not before a line end. */
bool hasBareReturn(std::string_view text) {
  for (std::size_t at = text.find('\r'); at != std::string_view::npos;
       at = text.find('\r', at + 1)) {
    const char next = at + 1 < text.size() ? text[at + 1] : '\n';
    if (next != '\r' && next != '\n') return true;
  }
  return false;
}

/** From the line of one piece to the begin of the next. */
std::string_view surroundings(const Piece& piece, const Piece& next) {
  const char* const behind = next.text.data() + (next.text.empty() ? 0 : 1);
  return {piece.lineStart, static_cast<std::size_t>(behind - piece.lineStart)};
}

/** What formatting would do. The next pieces are those after the ones that differ. */
std::string deedOf(const Piece& old, const Piece& fresh, const Piece& nextOld,
                   const Piece& nextFresh) {
  const std::string shown = quoted(old.text);
  if (isLayout(old.kind) || isLayout(fresh.kind))
    return "change lines that have to stay as they are";
  if (old.kind == PieceKind::FOREIGN) return "change " + shown + ", which is not VHDL";
  if (isExclamation(old)) return "change " + shown + " to " + quoted(withBar(old.text));
  if (fresh.kind == PieceKind::END || isSamePiece(nextOld, fresh)) return "lose " + shown;
  if (old.kind == PieceKind::END || isSamePiece(old, nextFresh)) return "add " + quoted(fresh.text);
  if (isOfComment(old.kind) && !isOfComment(fresh.kind))
    return "take " + shown + " out of its comment";
  if (isOfComment(fresh.kind) && !isOfComment(old.kind)) return "turn " + shown + " into a comment";
  if (old.text.size() > fresh.text.size() && beginsWith(old, fresh.text)) {
    return "take " + shown + " apart";
  }
  if (fresh.text.size() > old.text.size() &&
      beginsWith(fresh, std::string(old.text).append(nextOld.text))) {
    return "join " + shown + " and " + quoted(nextOld.text);
  }
  return "change " + shown + " to " + quoted(fresh.text);
}

}  // namespace

Fault explainDifference(Reading& oldReading, Reading& freshReading) {
  const Piece old = oldReading.getPiece();
  const Piece fresh = freshReading.getPiece();
  const Piece next = oldReading.next();
  std::string message = "formatting would ";
  if (hasBareReturn(surroundings(old, next))) {  // which goes in shielded lines, too
    return {old.line, message + "drop a carriage return inside the line"};
  }
  message += deedOf(old, fresh, next, freshReading.next());
  if (isExclamation(old)) {
    message += remedyOfPsl;
  } else if (!old.isShielded) {
    message += remedy;
  }
  return {old.line, std::move(message)};
}
