// The unit tests' view into the scanner: its settings, its list and its primitives.
#ifndef QORN_TESTS_SCANNERPROBE_H
#define QORN_TESTS_SCANNERPROBE_H

#include <string>
#include <string_view>

#include "scanner/vhdlscanner.h"
#include "tokendump.h"

class ScannerProbe : public VhdlScanner {
 public:
  using VhdlScanner::VhdlScanner;

  static TokenList& tokenList(VhdlScanner& scanner) { return scanner.tokenList; }

  // --- Fixtures: the list in hand ---

  /** Reads a source to the end of the list; the anchor is on the first token. */
  void scan(std::string_view source) {
    lexInto(list(), source, run.lexState);
    list().getFirst();
  }
  /** What follows the lexer, as for a file. */
  void runPasses() {
    if (settings.keepIndentation == 1) KeepIndentation();
    Format();
    LineBreak();
  }
  TokenList& list() { return tokenList(*this); }
  VhdlToken* token() { return anchorToken(); }
  /** Puts the anchor on the first token with that source text, on none if there is none. "_" is a
      blank, "$" the first line end, "$$" the second and so on, and "#" the end. */
  void at(std::string_view wanted) {
    std::string lineEnds;
    for (list().getFirst(); token() != nullptr; stepForward()) {
      std::string name = textOf(*token(), 0);
      if (token()->getTyp() == T_WHITESPACE) name = "_";
      if (token()->getTyp() == T_NEWLINE) name = lineEnds += '$';
      if (token()->getTyp() == T_EOF) name = "#";
      if (name == wanted) return;
    }
  }

  /** The list as one line: "[ ]" is a blank, "$" a line end and "!" one that prints nothing, "#"
      the end; what a pass inserted stands in "<>"; the anchor token has a "^" before it. */
  std::string shows() {
    std::string line;
    const VhdlToken* anchor = list().getAnchor();
    const AnchorGuard guard(list());
    for (list().getFirst(); token() != nullptr; stepForward()) {
      const bool isInserted = token()->getLineNo() == 0;
      std::string text = textOf(*token(), 1);
      if (token()->getTyp() == T_NEWLINE) text = text.empty() ? "!" : "$";
      if (token()->getTyp() == T_EOF) text = "#";
      const bool isBlank = token()->getTyp() == T_WHITESPACE;
      const std::string_view marks = isInserted ? "<>" : isBlank ? "[]" : "";
      if (list().getAnchor() == anchor) line += '^';
      line.append(marks.substr(0, 1)).append(text).append(marks.substr(marks.empty() ? 0 : 1));
    }
    return line;
  }
  int& indent = state.indent;
  int& statementClosed = state.statementClosed;
  int& inConfiguration = state.inConfiguration;
  int countIndents() const { return indentStack.getDepth(); }

  // clang-format off
  using VhdlScanner::deleteNewline;       using VhdlScanner::determineContext;
  using VhdlScanner::Format;              using VhdlScanner::getColumn;
  using VhdlScanner::IndentLine;          using VhdlScanner::KeepIndentation;
  using VhdlScanner::LineBreak;           using VhdlScanner::LookForward;
  using VhdlScanner::nextIs;              using VhdlScanner::nextIsComment;
  using VhdlScanner::popIndent;           using VhdlScanner::prevIs;
  using VhdlScanner::prevIsLabel;         using VhdlScanner::prevIsNewline;
  using VhdlScanner::readInput;           using VhdlScanner::setIndent;
  using VhdlScanner::setNextNewline;      using VhdlScanner::setNextSpaces;
  using VhdlScanner::setPrevNewline;      using VhdlScanner::setPrevSpaces;
  using VhdlScanner::settings;            using VhdlScanner::setTokenIndent;
  using VhdlScanner::singleSpace;         using VhdlScanner::startLex;
  using VhdlScanner::StatementClosed;
  // clang-format on
};

#endif
