// The pieces of a configuration text. The language has no words and no separators: at each position
// the longest of its rules matches, and reading continues after it, so that keys and values are
// found inside longer runs of letters as well.
#ifndef QORN_CONFIG_CONFIGREADER_H
#define QORN_CONFIG_CONFIGREADER_H

#include <cstddef>
#include <span>
#include <string_view>

enum ConfigPieceKind : int {
  PIECE_NONE,     // a character that no rule matches
  PIECE_KEY,      // `code` is the key
  PIECE_WORD,     // a value word; `code` is the word
  PIECE_NUMBER,   // digits
  PIECE_STRING,   // a quoted text, including its quotes
  PIECE_COMMENT,  // up to its line feed
};

/** One way to write a key or a value word; in upper case, matched in any case. */
struct ConfigForm {
  std::string_view text;
  int code;
  ConfigPieceKind kind;
};

/** All forms of the vocabulary. */
[[nodiscard]] std::span<const ConfigForm> configForms();
/** The full form of a code, or an empty text for any other number. */
[[nodiscard]] std::string_view configName(int code);

struct ConfigPiece {
  ConfigPieceKind kind = PIECE_NONE;
  int code = 0;
  std::string_view text;
};

/** Returns a text piece by piece, from beginning to end without a gap. Each stretch is read at most
    twice: a quote without a partner is the last of its kind, and only the last line can lack the
    line feed that a comment needs. */
class ConfigReader {
 public:
  /** The text must outlive the pieces. */
  explicit ConfigReader(std::string_view source) : text(source), lastLine(source.rfind('\n') + 1) {}

  bool atEnd() const { return place == text.size(); }
  /** Requires: not at the end. */
  ConfigPiece next();

 private:
  ConfigPiece pieceHere() const;
  ConfigPiece stringHere() const;

  std::string_view text;
  std::size_t lastLine;  // start of the line without a line feed; 0 without a line feed
  std::size_t place = 0;
};

#endif
