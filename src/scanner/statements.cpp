// Control statements. Each handler reads the head of its statement, up to `then`, `is`, `loop` and
// the like, and gives back control at the first token of the body. From the head on, one entry on
// the indent stack holds the level of the statement, pushed by its label or by the handler.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int elsifContinuation = 7;  // a wrapped condition, whatever the indentation

}  // namespace

void VhdlScanner::openBody() {
  popTokenIndent();
  setIndent(settings.indentation, /*relative*/ 1);
  endHead();
}

void VhdlScanner::BetweenIfThen() {
  setNextSpaces(1);
  if (!waitFor(T_THEN, T_GENERATE)) return;
  setPrevSpaces(1);
  StatementClosed();
}

void VhdlScanner::If() {
  indentUnlessLabelled();
  BetweenIfThen();
  openBody();
}

void VhdlScanner::Elsif() {
  popTokenIndent();
  setIndent(elsifContinuation, /*relative*/ 1);
  BetweenIfThen();
  openBody();
}

void VhdlScanner::Else() { openBody(); }

void VhdlScanner::openAlternative() {
  setNextNewline();
  popIndent();
  setIndent(timesColumns(2, settings.indentation), /*relative*/ 1);
  StatementClosed();
}

void VhdlScanner::Case() {
  indentUnlessLabelled();
  if (waitFor(T_IS, T_IS)) openAlternative();
}

void VhdlScanner::When() {
  popIndent();
  setIndent(settings.indentation, /*relative*/ 1);
  setTokenIndent();
  if (!waitFor(T_SEMICOLON, T_ARROW)) return;
  if (anchorToken()->getTyp() == T_ARROW) {
    openAlternative();
    return;
  }
  popIndent();  // of an exit or next statement
  endLine();
}

void VhdlScanner::While() {
  indentUnlessLabelled();
  if (waitFor(T_LOOP, T_LOOP)) endHead();
}

void VhdlScanner::Loop() {
  indentUnlessLabelled();
  endHead();
}

void VhdlScanner::For() {
  indentUnlessLabelled();
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_GENERATE:
      case T_LOOP: endHead(); return;
      case T_SEMICOLON:
        popIndent();
        endLine();
        return;
      case T_USE: openBinding(); return;
      case T_END:
        setPrevNewline();
        End();
        return;
      case T_FOR:  // of a block configuration
        setPrevNewline();
        setIndent(settings.indentation, /*relative*/ 1);
        break;
      default: break;
    }
  }
}

void VhdlScanner::openBinding() {
  setPrevNewline();
  if (inConfiguration == 1) {
    setIndent(settings.indentation, /*relative*/ 1);
  } else {  // it stands by itself: no `end` closes it
    popIndent();
    setIndent(timesColumns(2, settings.indentation), /*relative*/ 1);
  }
  StatementOpen();
}

void VhdlScanner::Wait() {
  indentUnlessLabelled();
  waitForSemiColon();
  popIndent();
  endLine();
}

void VhdlScanner::Assert() {
  indentUnlessLabelled();
  setIndent(settings.indentation, /*relative*/ 1);
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_REPORT:
      case T_SEVERITY:
        popTokenIndent();
        setIndent(settings.indentation, /*relative*/ 1);
        setPrevNewline();
        break;
      case T_SEMICOLON:
        popIndent();
        popIndent();
        endLine();
        return;
      default: break;
    }
  }
}
