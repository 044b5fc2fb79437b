// Control statements. Each handler reads the head of its statement, up to `then`, `is`, `loop` and
// the like, and returns at the first token of the body. From the head on, one entry on the indent
// stack holds the level of the statement, pushed by its label or by the handler.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int elsifContinuation = 7;  // of a wrapped condition, whatever the indentation

}  // namespace

void VhdlScanner::openBody() {
  const bool isGenerated = anchorToken() != nullptr && anchorToken()->getTyp() == T_GENERATE;
  outdentToken();
  endHead(isGenerated ? LEVEL_GENERATE : LEVEL_BODY);
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

void VhdlScanner::Else() {
  if (indentStack.kind() == LEVEL_CONDITION) {
    if (getParenLevel() > 0) return;
    popIndent();
    if (settings.style == C_A) setNextNewline();
    return;
  }
  if (isModern() && getParenLevel() > 0) return;  // of a value between parentheses
  if (!isElseGenerate()) {
    openBody();
    return;
  }
  outdentToken();
  if (waitFor(T_GENERATE, T_GENERATE)) endHead(LEVEL_GENERATE);
}

bool VhdlScanner::isElseGenerate() const {
  if (!isModern()) return false;
  return LookForward(1) == T_GENERATE ||
         (LookForward(2) == T_COLON && LookForward(3) == T_GENERATE);
}

void VhdlScanner::openAlternative(IndentKind kind) {
  setNextNewline();
  popIndent();
  setIndent(timesColumns(2, settings.indentation), /*relative*/ 1, kind);
  StatementClosed();
}

void VhdlScanner::Case() {
  indentUnlessLabelled();
  if (!waitFor(T_IS, isModern() ? T_GENERATE : T_IS)) return;
  openAlternative(anchorToken()->getTyp() == T_IS ? LEVEL_BODY : LEVEL_CASE_GENERATE);
}

void VhdlScanner::When() {
  if (isModern() && state.statementClosed == 0) {
    whenAmidStatement();
    return;
  }
  const IndentKind kind = indentStack.kind();
  popIndent();
  stepIn();
  setTokenIndent();
  if (!readChoice()) return;
  if (anchorToken()->getTyp() == T_ARROW) {
    openAlternative(kind);
    return;
  }
  endStatement();  // of an exit or next statement
}

bool VhdlScanner::readChoice() {
  const int level = getParenLevel();
  do {
    if (!waitFor(T_SEMICOLON, T_ARROW)) return false;
  } while (isModern() && anchorToken()->getTyp() == T_ARROW && getParenLevel() > level);
  return true;
}

void VhdlScanner::whenAmidStatement() {
  if (getParenLevel() > 0) return;
  if (indentStack.kind() == LEVEL_ASSIGNMENT) {
    if (settings.style == C_A) setPrevNewline();
    stepIn(LEVEL_CONDITION);
    setTokenIndent();
    return;
  }
  finishStatement();
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
      case T_GENERATE: endHead(LEVEL_GENERATE); return;
      case T_LOOP: endHead(); return;
      case T_SEMICOLON: endStatement(); return;
      case T_USE: openBinding(); return;
      case T_GENERIC:
      case T_PORT:
        if (!isModern()) break;
        openMaps();
        return;
      case T_END:
        setPrevNewline();
        End();
        return;
      case T_FOR:  // of a block configuration
        setPrevNewline();
        stepIn();
        break;
      default: break;
    }
  }
}

void VhdlScanner::openBinding() {
  setPrevNewline();
  if (state.inConfiguration == 1) {
    stepIn();
  } else {  // on its own: no `end` closes it
    popIndent();
    setIndent(timesColumns(2, settings.indentation), /*relative*/ 1);
  }
  StatementOpen();
}

//     for u1 : cell generic map (n => 1) port map (a => b); end for;
void VhdlScanner::openMaps() {
  if (state.inConfiguration == 0) {
    popIndent();
    stepIn();
  } else {
    setIndent(0, /*relative*/ 1);
  }
  PortMap();
}

void VhdlScanner::Directive() { opensStatement() ? Wait() : Identifier(); }

void VhdlScanner::CheckedDirective() { opensStatement() ? Assert() : Identifier(); }

void VhdlScanner::Wait() {
  indentUnlessLabelled();
  finishStatement();
}

void VhdlScanner::Assert() {
  indentUnlessLabelled();
  stepIn();
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_REPORT:
      case T_SEVERITY:
        outdentToken();
        setPrevNewline();
        break;
      case T_SEMICOLON:
        popIndent();
        endStatement();
        return;
      default: break;
    }
  }
}
