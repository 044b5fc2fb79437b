// Assignments and declarations in a run, statement after statement on consecutive lines, have their
// assignment tokens or colons in one column. The alignment works on lengths: each statement gets
// the blanks that pad its own target to the longest of its run.
#include <algorithm>

#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int assignmentWidth = 3;  // the two characters of the token and a blank

}  // namespace

// A target that is too long counts as none: one blank after it, and no wider column for its run.
int VhdlScanner::prevTargetLength() {
  const int length = ruler.readTarget(*anchorToken(), settings.identLength);
  return length >= settings.identLength ? 0 : length;
}

int VhdlScanner::targetLengthAhead(const VhdlToken& token) const {
  const int length = LineRuler::measureTarget(token, settings.identLength);
  return length >= settings.identLength ? 0 : length;
}

// A run goes on as long as the next assignment is on the line after a semicolon. Its first
// statement measures it for all the others.
int VhdlScanner::determineTargetLength(int typ, int orTyp) {
  if (anchorToken()->getLineNo() <= run.targetEndLine) return run.targetLength;
  run.targetLength = prevTargetLength();
  const VhdlToken* start = nextSemicolon();
  if (start == nullptr || runEnds[typ] == start) return run.targetLength;
  bool isAssigned = true;  // has the current statement had its assignment token?
  int semicolonLine = 0;
  for (const VhdlToken* token = start; token != nullptr; token = token->getNext()) {
    const int next = token->getTyp();
    if (next == T_SEMICOLON) {
      if (!isAssigned) break;
      semicolonLine = token->getLineNo();
      isAssigned = false;
    } else if ((next == typ || next == orTyp) && !isAssigned) {
      if (token->getLineNo() != semicolonLine + 1) break;
      run.targetLength = std::max(run.targetLength, targetLengthAhead(*token));
      run.targetEndLine = token->getLineNo();
      isAssigned = true;
      start = nullptr;
    }
  }
  if (start != nullptr) runEnds[typ] = start;
  return run.targetLength;
}

const VhdlToken* VhdlScanner::nextSemicolon() {
  const VhdlToken* cursor = anchorToken();
  if (stopIndex.isBuilt()) return stopIndex.nextSemicolon(cursor);
  const Measure way = findSemicolon(cursor->getNext());
  stopIndex.record(cursor, way);
  return way.end;
}

int VhdlScanner::blanksBeforeAssignment(int typ, int orTyp) {
  const int longest = determineTargetLength(typ, orTyp);
  const int own = prevTargetLength();
  return own == 0 || own >= longest ? 1 : longest - own + 1;
}

// What continues a declaration stands to the right of the colon. The column of the colon is added
// to the statement's indent where it could replace it: deeply nested, that is too far right.
//     signal a, b : bit;          | SIGNAL   a, b : bit;
//     constant n : natural := 1;  | CONSTANT n    : natural := 1;
void VhdlScanner::alignConstantSignalFile() {
  stepIn();
  if (!waitFor(T_COLON, T_IS)) return;
  setPrevSpaces(blanksBeforeAssignment(T_COLON, T_IS));
  popIndent();
  setIndent(addColumns(getColumn(1), 1), /*relative*/ 1);
  StatementOpen();
}

// In style A, each element of a waveform has its line, to the right of the arrow; in style B one
// step in.
//     a <= b;                       | a       <= b;
//     lab : bc <= d, e after 2 ns;  | lab: bc <= d,
//                                   |            e AFTER 2 ns;
void VhdlScanner::SignalAssignment() {
  const int level = getParenLevel();
  const int blanks = blanksBeforeAssignment(T_SIGASSIGN, -1);
  IndentLine(0);
  setPrevSpaces(blanks);
  if (settings.style == C_A) {
    setIndent(addColumns(getColumn(1), assignmentWidth), /*relative*/ 0);
  } else if (CountListEntries(level, T_COMMA, T_SEMICOLON) > 1) {
    setNextNewline();
  }
  readWaveform(level);
}

// All tokens up to the semicolon are read here: `when` and `else` would be dispatched to handlers
// of other statements.
//     q <= a when b else     | q <= a
//          c when d else e;  |          WHEN b ELSE
//                            |      c
//                            |          WHEN d ELSE
//                            |      e;
void VhdlScanner::readWaveform(int level) {
  bool isWhenOpen = false;
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_COMMA: startElement(level); break;
      case T_INERTIAL:
      case T_TRANSPORT: settings.style == C_A ? startElement(level) : setNextSpaces(1); break;
      case T_WHEN:
        if (isModern() && getParenLevel() > level) break;
        if (settings.style == C_A) setPrevNewline();
        stepIn();
        setTokenIndent();
        isWhenOpen = true;
        break;
      case T_ELSE:
        if (isModern() && getParenLevel() > level) break;
        isWhenOpen = false;
        if (settings.style == C_A) setNextNewline();
        popIndent();
        break;
      case T_SEMICOLON:
        if (settings.style == C_A) popIndent();
        if (isWhenOpen) popIndent();
        endStatement();
        return;
      default: break;
    }
  }
}

void VhdlScanner::startElement(int level) {
  getParenLevel() == level ? setNextNewline() : setNextSpaces(1);
}

// After a colon, which is a declaration's or a label's, the token is not aligned. What continues
// stands to the right of it. With LINEWIDTH 30:
//     a := b;                            | a   := b;
//     bcd := a_long_name + another_one;  | bcd := a_long_name +
//                                        |        another_one;
void VhdlScanner::VariableAssignment() {
  const bool isDeclared = determineContext() == T_COLON;
  const int blanks = isDeclared ? 1 : blanksBeforeAssignment(T_VARASSIGN, -1);
  IndentLine(0);
  setPrevSpaces(blanks);
  popIndent();
  setIndent(addColumns(getColumn(1), assignmentWidth), /*relative*/ 0, LEVEL_ASSIGNMENT);
}

//     with s select a <=          | WITH s SELECT a <=
//     b when '0', c when others;  |     b WHEN '0',
//                                 |     c WHEN OTHERS;
void VhdlScanner::SelectedSignalAssignment() {
  indentUnlessLabelled();
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_COMMA:
      case T_SIGASSIGN: setNextNewline(); break;
      case T_VARASSIGN:
        if (isModern()) setNextNewline();
        break;
      case T_SEMICOLON: endStatement(); return;
      default: break;
    }
  }
}
