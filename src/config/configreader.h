// The pieces of a configuration text. The language has no words and no separators: at each place
// the longest of its rules matches, and reading goes on after it, so that keys and values are found
// inside longer runs of letters as well.
#ifndef QORN_CONFIG_CONFIGREADER_H
#define QORN_CONFIG_CONFIGREADER_H

#include <cstddef>
#include <span>
#include <string_view>

enum ConfigPieceKind : int {
  PIECE_NONE,     // a character that no rule takes
  PIECE_KEY,      // `code` is the key
  PIECE_WORD,     // a value word; `code` is the word
  PIECE_NUMBER,   // digits
  PIECE_STRING,   // a quoted text with its quotes
  PIECE_COMMENT,  // up to its line feed
};

/** One way to write a key or a value word; in upper case, matched in either. */
struct ConfigForm {
  std::string_view text;
  int code;
  ConfigPieceKind kind;
};

/** All forms of the vocabulary. */
[[nodiscard]] std::span<const ConfigForm> configForms();
/** The full form of a code, or an empty text if it is none. */
[[nodiscard]] std::string_view configName(int code);

struct ConfigPiece {
  ConfigPieceKind kind = PIECE_NONE;
  int code = 0;
  std::string_view text;
};

/** Hands out a text from its beginning to its end without a gap. Each stretch is looked at once or
    twice: a quote without a partner is the last of its kind, and only the last line can lack the
    line feed that a comment needs. */
class ConfigReader {
 public:
  /** The text has to outlive the pieces. */
  explicit ConfigReader(std::string_view source) : text(source), lastLine(source.rfind('\n') + 1) {}

  bool atEnd() const { return place == text.size(); }
  /** Requires: not at the end. */
  ConfigPiece next();

 private:
  ConfigPiece pieceHere() const;
  ConfigPiece stringHere() const;

  std::string_view text;
  std::size_t lastLine;  // where the line without a line feed starts; 0 without a line feed
  std::size_t place = 0;
};

#endif
