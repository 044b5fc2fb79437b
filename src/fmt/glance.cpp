// Two readings that skip what is the same without a piece for each. What can't be decided at a
// glance is left to next(); nothing may be skipped here that it would read differently.
#include <algorithm>
#include <cstring>

#include "base/ascii.h"
#include "fmt/reading.h"
#include "fmt/readingrules.h"

namespace {

// What characters are that no word or number is made of; those of either have their upper case.
enum Mark : unsigned char {
  NO_PART = 0,
  PART_OF_WORD = 1,    // of a bit string, of a word of PSL; of a number too
  PART_OF_NUMBER = 2,  // of a literal
};
constexpr unsigned char highestMark = PART_OF_WORD | PART_OF_NUMBER;

constexpr auto wordCharacters = [] {
  std::array<unsigned char, 256> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    const auto character = static_cast<char>(i);
    if (isWordCharacter(character)) table[i] = static_cast<unsigned char>(asciiUpper(character));
  }
  for (const char mark : {'"', '%', '!'}) table[static_cast<unsigned char>(mark)] = PART_OF_WORD;
  for (const char mark : {'.', '#', ':', '+', '-'}) {
    table[static_cast<unsigned char>(mark)] = PART_OF_NUMBER;
  }
  return table;
}();

unsigned char wordCharacter(char character) {
  return wordCharacters[static_cast<unsigned char>(character)];
}

// Each is the length of the piece that both texts begin with. 0 if a glance can't decide.

/** Of letters and digits, which don't go on with those marks. */
std::size_t lengthOfSameWord(std::string_view old, std::string_view fresh, int marks) {
  const std::size_t limit = std::min(old.size(), fresh.size());
  for (std::size_t i = 0; i < limit; ++i) {
    const unsigned char character = wordCharacter(old[i]);
    const unsigned char other = wordCharacter(fresh[i]);
    if (character == other && character > highestMark) continue;
    if (character > highestMark || other > highestMark) return 0;
    return ((character | other) & marks) == 0 ? i : 0;
  }
  return 0;
}

std::size_t lengthOfSameDelimiter(std::string_view old, std::string_view fresh) {
  if (old[0] != fresh[0] || old[0] == '!') return 0;
  const std::size_t length = lengthOfDelimiter(old);
  return length == lengthOfDelimiter(fresh) && fresh.starts_with(old.substr(0, length)) ? length
                                                                                        : 0;
}

}  // namespace

void Reading::pass(std::size_t length) {
  at += length;
  isLineStart = false;
}

void Reading::passSpaces() {
  constexpr std::string_view eight = "        ";
  if (at == end || classOf(*at) != CharacterClass::BLANK) return;
  ++at;
  while (end - at >= 8 && std::memcmp(at, eight.data(), eight.size()) == 0) at += eight.size();
  while (at < end && classOf(*at) == CharacterClass::BLANK) ++at;
}

void Reading::passLayout() {
  for (;;) {
    passSpaces();
    if (at == end || *at != '\n') return;
    mode = CODE;
    startLine();
  }
}

bool Reading::passSame(Reading& old, Reading& fresh) {
  if (!passSamePiece(old, fresh)) return false;
  do {
    old.passSpaces();
    fresh.passSpaces();
  } while (passSamePiece(old, fresh));
  return true;
}

bool Reading::passSamePiece(Reading& old, Reading& fresh) {
  if (old.mode != fresh.mode) return false;
  if (old.mode == COMMENT) return passSameComment(old, fresh);
  const std::string_view oldRest = old.rest();
  const std::string_view freshRest = fresh.rest();
  if (oldRest.empty() || freshRest.empty()) return false;
  switch (classOf(oldRest[0])) {
    case CharacterClass::LETTER:
      return passCode(old, fresh, PieceKind::WORD,
                      lengthOfSameWord(oldRest, freshRest, PART_OF_WORD));
    case CharacterClass::DIGIT:
      return passCode(old, fresh, PieceKind::NUMBER,
                      lengthOfSameWord(oldRest, freshRest, PART_OF_WORD | PART_OF_NUMBER));
    case CharacterClass::DELIMITER:
      return passCode(old, fresh, PieceKind::DELIMITER, lengthOfSameDelimiter(oldRest, freshRest));
    case CharacterClass::SPECIAL: return passCommentMark(old, fresh);
    default: return false;
  }
}

bool Reading::passCode(Reading& old, Reading& fresh, PieceKind kind, std::size_t length) {
  if (length == 0) return false;
  for (Reading* reading : {&old, &fresh}) {
    reading->noteCode(kind, reading->at + length);
    reading->pass(length);
  }
  return true;
}

bool Reading::passCommentMark(Reading& old, Reading& fresh) {
  if (!old.isAtPlainComment() || !fresh.isAtPlainComment()) return false;
  for (Reading* reading : {&old, &fresh}) {
    reading->at += 2;
    reading->mode = COMMENT;
  }
  return true;
}

/** Pragma comments begin with another letter. */
bool Reading::isAtPlainComment() const {
  return rest().starts_with("--") && !startsWithWord(rest(), "--Q");
}

/** The rest of a comment. */
bool Reading::passSameComment(Reading& old, Reading& fresh) {
  const std::string_view comment = old.restOfLine();
  if (comment.empty() || comment != fresh.restOfLine()) return false;
  old.pass(comment.size());
  fresh.pass(comment.size());
  return true;
}
