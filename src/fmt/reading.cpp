// The state of a reading, and which rule applies where.
#include "fmt/reading.h"

#include "fmt/readingrules.h"

namespace {

constexpr std::string_view blockOpening = "/*";
constexpr std::string_view blockClosing = "*/";

constexpr std::string_view choiceMarks =
    "'\"%(+-\\";  // other than words, a choice begins with these

std::string_view between(const char* from, const char* to) {
  return {from, static_cast<std::size_t>(to - from)};
}

}  // namespace

Reading::Reading(std::string_view text, std::string_view frameCharacters)
    : at(text.data()), end(text.data() + text.size()), lineStart(at), piece{text.substr(0, 0),
                                                                            at,
                                                                            1,
                                                                            PieceKind::END,
                                                                            true,
                                                                            false} {
  for (const char mark : frameCharacters) isFrame[static_cast<unsigned char>(mark)] = true;
}

const Piece& Reading::next() {
  for (;;) {
    if (readLayout()) return piece;
    if (at == end) {
      emit(PieceKind::END, end);
      return piece;
    }
    bool isRead = false;
    switch (mode) {
      case CODE: isRead = readCode(); break;
      case COMMENT: isRead = readCommentWord(); break;
      case BLOCK: isRead = readBlockWord(); break;
      case ENCRYPTED: isRead = readEncryptedLine(); break;
    }
    if (isRead) return piece;
  }
}

bool Reading::emit(PieceKind kind, const char* behind) {
  piece = {between(at, behind), lineStart, line, kind, isLineStart, isFormattingOff};
  isLineStart = false;
  at = behind;
  return true;
}

void Reading::noteCode(PieceKind kind, const char* behind) {
  isAfterTick = isTick;
  isTick = false;
  codeKind = kind;
  code = between(at, behind);
}

bool Reading::emitCode(PieceKind kind, const char* behind) {
  noteCode(kind, behind);
  return emit(kind, behind);
}

bool Reading::emitClosed(PieceKind kind, const char* behind) {
  return behind == nullptr ? readForeign() : emitCode(kind, behind);
}

const char* Reading::endOfWord() const {
  const char* here = at;
  while (here < end && classOf(*here) != CharacterClass::BLANK && *here != '\n') ++here;
  return here;
}

std::string_view Reading::restOfLine() const {
  std::string_view text = rest();
  text = text.substr(0, text.find('\n'));
  while (!text.empty() && classOf(text.back()) == CharacterClass::BLANK) text.remove_suffix(1);
  return text;
}

// --- Layout ---

void Reading::startLine() {
  ++at;
  ++line;
  lineStart = at;
  isLineStart = true;
  isInDirective = false;
  if (isBeforeEncrypted) mode = ENCRYPTED;
  isBeforeEncrypted = false;
}

bool Reading::readLayout() {
  for (;;) {
    const char* const blanks = at;
    while (at < end && classOf(*at) == CharacterClass::BLANK) ++at;
    const bool isKept = isLayoutKept() || mode == ENCRYPTED;
    if (isKept && at > blanks && readBlanks(blanks)) return true;
    if (at == end || *at != '\n') return false;
    if (mode == COMMENT) mode = CODE;
    const bool isCounted = isKept || isInDirective || mode == BLOCK;
    if (isCounted) emit(PieceKind::LINE_END, at);
    startLine();
    if (isCounted) return true;
  }
}

bool Reading::readBlanks(const char* blanks) {
  const char* const behind = at;
  if (behind == end || *behind == '\n') {
    if (mode == COMMENT) return false;  // tabs may have removed them
    while (at > blanks && at[-1] == '\r') --at;
  }
  const char* const kept = at;
  at = blanks;
  if (kept > blanks) emit(PieceKind::BLANKS, kept);
  at = behind;
  return kept > blanks;
}

// --- Code ---

bool Reading::readCode() {
  switch (classOf(*at)) {
    case CharacterClass::LETTER: return readWord();
    case CharacterClass::DIGIT: {
      const char* const behind = endOfNumber(at, end);
      const char* const bits = endOfBitString(behind, end);
      if (bits != nullptr) return emitCode(PieceKind::BIT_STRING, bits);
      return emitCode(PieceKind::NUMBER, behind);
    }
    case CharacterClass::DELIMITER: return readDelimiter();
    case CharacterClass::SPECIAL: return readSpecial();
    default: return readForeign();
  }
}

bool Reading::readWord() {
  const char* behind = at;
  while (behind < end && isWordCharacter(*behind)) ++behind;
  if (behind == end) return emitCode(PieceKind::WORD, behind);
  if (*behind == '"' || *behind == '%') {
    const char* const bits = endOfBitString(at, end);
    if (bits != nullptr) return emitCode(PieceKind::BIT_STRING, bits);
  }
  const bool isStrong = *behind == '!' && isStrongWord(between(at, behind));
  return emitCode(PieceKind::WORD, isStrong ? behind + 1 : behind);
}

bool Reading::readSpecial() {
  switch (*at) {
    case '-': return rest().starts_with("--") ? readComment() : readDelimiter();
    case '/':
      if (rest().starts_with("//")) return readForeign();  // a comment where it is one
      return rest().starts_with(blockOpening) ? readBlockWord() : readDelimiter();
    case '\'': return readTick();
    case '`': return readDirective();
    case '\\': return emitClosed(PieceKind::EXTENDED, endOfQuoted(at, end));
    default: return emitClosed(PieceKind::STRING, endOfQuoted(at, end));
  }
}

bool Reading::readDelimiter() {
  const char* const behind = at + lengthOfDelimiter(rest());
  const bool isBar = behind == at + 1 && (*at == '|' || (*at == '!' && isBetweenChoices()));
  return emitCode(isBar ? PieceKind::BAR : PieceKind::DELIMITER, behind);
}

/** Elsewhere a ! is one of PSL. */
bool Reading::isBetweenChoices() const {
  const bool isMark = codeKind >= PieceKind::DELIMITER || codeKind == PieceKind::END;
  const char* next = at + 1;
  while (next < end && (classOf(*next) == CharacterClass::BLANK || *next == '\n')) ++next;
  if ((isMark && code != ")") || next == end) return false;
  return isWordCharacter(*next) || choiceMarks.find(*next) != std::string_view::npos;
}

bool Reading::readForeign() { return emit(PieceKind::FOREIGN, at + restOfLine().size()); }

/** `t'('a')` has a tick and a character, `('(', ')')` two characters. */
bool Reading::readTick() {
  const char* const behind = endOfCharacter(at, end);
  if (behind != nullptr && !isTickAfterOperand()) return emitCode(PieceKind::CHARACTER, behind);
  emitCode(PieceKind::DELIMITER, at + 1);
  isTick = true;
  return true;
}

bool Reading::isTickAfterOperand() const {
  if (!rest().starts_with("'('") || endOfCharacter(at + 2, end) == nullptr) return false;
  switch (codeKind) {
    case PieceKind::WORD: return isAfterTick || !isBeforeOperand(code);
    case PieceKind::DELIMITER: return code == ")" || code == "]" || code == ">>";
    case PieceKind::EXTENDED:
    case PieceKind::STRING: return true;
    default: return false;
  }
}

// --- Comments ---

bool Reading::readComment() {
  static constexpr std::string_view pragmas[] = {"--QORN-ON", "--QORN-OFF", "--QORN-INDENT-ON",
                                                 "--QORN-INDENT-OFF"};
  const std::string_view comment = restOfLine();
  for (const std::string_view pragma : pragmas) {
    if (!startsWithWord(comment, pragma)) continue;
    obeyPragma(comment);
    return emit(PieceKind::PRAGMA, at + comment.size());
  }
  mode = COMMENT;
  if (isLayoutKept()) return readCommentWord();
  at += 2;
  return false;
}

void Reading::obeyPragma(std::string_view comment) {
  if (startsWithWord(comment, "--QORN-ON")) isFormattingOff = false;
  if (startsWithWord(comment, "--QORN-OFF")) isFormattingOff = true;
  if (startsWithWord(comment, "--QORN-INDENT-ON")) isLayoutOff = false;
  if (startsWithWord(comment, "--QORN-INDENT-OFF")) isLayoutOff = true;
}

bool Reading::readCommentWord() {
  const char* const behind = endOfWord();
  if (isLayoutKept()) return emit(PieceKind::COMMENT_WORD, behind);
  const char* kept = behind;
  while (kept > at && isFrame[static_cast<unsigned char>(kept[-1])]) --kept;
  const bool isWord = kept > at;
  if (isWord) emit(PieceKind::COMMENT_WORD, kept);
  at = behind;
  return isWord;
}

bool Reading::readBlockWord() {
  const bool isOpening = mode != BLOCK;
  const std::string_view word = between(at, endOfWord());
  const std::size_t close = word.find(blockClosing, isOpening ? blockOpening.size() : 0);
  mode = close == std::string_view::npos ? BLOCK : CODE;
  const std::size_t length = mode == BLOCK ? word.size() : close + blockClosing.size();
  return emit(PieceKind::BLOCK_WORD, at + length);
}

// --- Tool directives ---

bool Reading::readDirective() {
  const char* behind = at + 1;
  while (behind < end && isWordCharacter(*behind)) ++behind;
  const std::string_view directive = restOfLine();
  mode = CODE;
  if (startsWithWord(directive, "`PROTECT")) {  // its arguments may be cut off from their keys
    isBeforeEncrypted = directive.find("begin_protected") != std::string_view::npos;
    return readForeign();
  }
  isInDirective = true;
  return emit(PieceKind::DIRECTIVE, behind);
}

bool Reading::readEncryptedLine() {
  if (*at == '`' && startsWithWord(rest(), "`PROTECT END_PROTECTED")) {
    return readDirective();
  }
  return readForeign();
}
