// A reading of VHDL in all its revisions, PSL included, that shares nothing with the formatter's
// lexer: it is the independent check that a layout has left the tokens of a text alone. It rejects
// nothing. No revision is chosen: where two of them read a text differently, the compound of the
// later one counts, since earlier ones have no use for what later ones put together.
#ifndef QORN_FMT_READING_H
#define QORN_FMT_READING_H

#include <array>
#include <string_view>

/** What a piece of a text is, and with that how two of them are compared. */
enum class PieceKind : unsigned char {
  END,         // of the text; empty
  WORD,        // identifier or reserved word, with the ! that PSL puts to some of them
  NUMBER,      // decimal or based literal
  BIT_STRING,  // with its length and its base
  STRING,
  CHARACTER,
  EXTENDED,      // extended identifier
  DELIMITER,     // single or compound
  BAR,           // or the ! that VHDL-87 takes for it
  COMMENT_WORD,  // of a line comment, without the frame characters at its end; never empty
  BLOCK_WORD,    // of a block comment, whose marks are words or parts of them
  PRAGMA,        // a whole comment that switches formatting or layout
  DIRECTIVE,     // name of a tool directive, with its backtick
  FOREIGN,       // from a character that is no VHDL to the end of its line; encrypted text
  BLANKS,        // where blanks count
  LINE_END,      // where line ends count; empty
};

struct Piece {
  std::string_view text;  // part of the text that is read
  const char* lineStart;  // of its line
  unsigned line;          // 1-based
  PieceKind kind;
  bool startsLine;  // only what is skipped precedes it on its line
  bool isShielded;  // from all formatting: letter case counts
};

/** Reads one text, piece by piece. Blanks, line ends and the frames of line comments are skipped,
    except where they count: blanks and line ends under a pragma comment and in encrypted text, line
    ends in block comments and tool directives. The text must outlive the reading. Linear, and
    allocates nothing. */
class Reading {
 public:
  /** The characters are those that frame comments, as the settings have them. */
  Reading(std::string_view text, std::string_view frameCharacters);

  /** The next piece; after the last one, always END; valid until the next call. */
  const Piece& next();
  /** The piece that came last. */
  const Piece& getPiece() const { return piece; }

  // --- At a glance (glance.cpp) ---
  // Two readings of like texts are much faster if both skip what is the same without a piece.

  /** Nothing but code and line comments, and no layout that counts. */
  bool isPlain() const {
    return mode <= COMMENT && !isLayoutKept() && !isInDirective && !isBeforeEncrypted;
  }
  /** Skips the layout before a piece. Requires: isPlain. */
  void passLayout();
  /** The line that this stands in, of which nothing but layout has been passed; null elsewhere. */
  const char* startOfFreshLine() const { return isLineStart && mode == CODE ? lineStart : nullptr; }
  unsigned getLine() const { return line; }
  /** Skips pieces that are the same at a glance, up to the end of a line at most. False if the next
      one is none of them. Requires: both are plain. */
  [[nodiscard]] static bool passSame(Reading& old, Reading& fresh);

 private:
  enum Mode : unsigned char { CODE, COMMENT, BLOCK, ENCRYPTED };

  // Each sets the piece and is true if it did; `at` is then after the piece.
  bool readLayout();
  bool readBlanks(const char* blanks);
  bool readCode();
  bool readWord();
  bool readSpecial();
  bool readTick();
  bool readDelimiter();
  bool readComment();
  bool readCommentWord();
  bool readBlockWord();
  bool readDirective();
  bool readEncryptedLine();
  bool readForeign();
  bool emit(PieceKind kind, const char* behind);
  bool emitCode(PieceKind kind, const char* behind);
  /** A piece of code, foreign text where there is no end to it. */
  bool emitClosed(PieceKind kind, const char* behind);

  void noteCode(PieceKind kind, const char* behind);
  void passSpaces();
  static bool passSamePiece(Reading& old, Reading& fresh);
  static bool passCode(Reading& old, Reading& fresh, PieceKind kind, std::size_t length);
  static bool passCommentMark(Reading& old, Reading& fresh);
  static bool passSameComment(Reading& old, Reading& fresh);
  void pass(std::size_t length);
  bool isAtPlainComment() const;

  void startLine();
  void obeyPragma(std::string_view comment);
  const char* endOfWord() const;
  std::string_view rest() const { return {at, static_cast<std::size_t>(end - at)}; }
  /** Without the blanks at its end. */
  std::string_view restOfLine() const;
  bool isTickAfterOperand() const;
  bool isBetweenChoices() const;
  bool isLayoutKept() const { return isFormattingOff || isLayoutOff; }

  const char* at;
  const char* end;
  const char* lineStart;
  unsigned line = 1;
  bool isLineStart = true;
  Mode mode = CODE;
  bool isFormattingOff = false;
  bool isLayoutOff = false;
  bool isInDirective = false;
  bool isBeforeEncrypted = false;       // the next line begins encrypted text
  bool isTick = false;                  // the last piece of code is one
  bool isAfterTick = false;             // or it stands after one
  PieceKind codeKind = PieceKind::END;  // of that piece
  std::string_view code;                // its text
  Piece piece;
  std::array<bool, 256> isFrame{};
};

#endif
