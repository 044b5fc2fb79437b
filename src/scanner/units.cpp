// Design units and structures: library and use clauses, unit heads, components, blocks, processes,
// `begin` and `end`. A head pushes one indent for its body, `begin` replaces it, `end` pops it, so
// that a structure leaves the stack as it found it.
#include "base/columns.h"
#include "scanner/peek.h"
#include "scanner/vhdlscanner.h"

namespace {

// Continuation of a clause under its first entry: the length of the word and a blank.
constexpr int libraryContinuation = 8;
constexpr int useContinuation = 4;

}  // namespace

bool VhdlScanner::readHead(std::initializer_list<int> head) {
  for (const int typ : head) {
    const int next = getNextTokenTyp();
    if (next != typ && !(typ == T_IDENTIFIER && isName(next))) return false;
    while (isModern() && typ == T_IDENTIFIER && LookForward(1) == T_DOT) {  // of a library
      getNextToken();
      getNextToken();
    }
  }
  return true;
}

bool VhdlScanner::openUnit(std::initializer_list<int> head) {
  stepIn();
  if (!readHead(head)) return false;
  endHead();
  return true;
}

// In `u1 : entity work.cell;` and in a binding, a unit is only named. In older editions nothing but
// blanks may stand before the word: on a line of its own it is taken for a head.
bool VhdlScanner::isInstantiated() {
  if (!isModern()) return prevIs(T_COLON) == 1 || prevIs(T_USE) == 1;
  const VhdlToken* node = anchorToken()->getPrev();
  while (node != nullptr && isSpacing(typAt(node))) node = node->getPrev();
  return typAt(node) == T_COLON || typAt(node) == T_USE;
}

//     entity e is  | ENTITY e IS
void VhdlScanner::Entity() {
  if (isInstantiated()) return;
  openUnit({T_IDENTIFIER, T_IS});
}

//     architecture rtl of e is  | ARCHITECTURE rtl OF e IS
//     begin                     | BEGIN
void VhdlScanner::Architecture() { openUnit({T_IDENTIFIER, T_OF, T_IDENTIFIER, T_IS}); }

// Inside, each `for` has an `end for`, which For has to know.
//     configuration c of e is  | CONFIGURATION c OF e IS
void VhdlScanner::Configuration() {
  if (isInstantiated()) return;
  if (openUnit({T_IDENTIFIER, T_OF, T_IDENTIFIER, T_IS})) state.inConfiguration = 1;
}

//     package body p is  | PACKAGE BODY p IS
void VhdlScanner::Package() {
  stepIn();
  int name = getNextTokenTyp();
  if (name == T_BODY) name = getNextTokenTyp();
  if (!isName(name) || !readHead({T_IS})) return;
  if (isModern() && LookForward(1) == T_NEW) return;  // an instance, up to its semicolon
  endHead();
}

// With VHDL 2008:
//     context work.c, ieee.x;  | CONTEXT work.c, ieee.x;
//     context c is             | CONTEXT c IS
void VhdlScanner::Context() {
  if (!opensStatement() || !isName(LookForward(1))) {
    Identifier();
  } else if (LookForward(2) != T_IS) {
    nameClause(libraryContinuation);
  } else {
    openUnit({T_IDENTIFIER, T_IS});
  }
}

// `is` may be missing: the word after the name is looked at before it is consumed.
//     component cell        | COMPONENT cell
//       port (n : in bit);  |     PORT (
//                           |         n : IN bit
//                           |     );
void VhdlScanner::Component() {
  if (isInstantiated()) return;
  stepIn();
  if (!readHead({T_IDENTIFIER})) return;
  if (peekTokenTyp() == T_IS) getNextToken();
  endHead();
}

int VhdlScanner::peekTokenTyp() {
  const Peek peek(*this);
  return getNextTokenTyp();
}

void VhdlScanner::Library() { nameClause(libraryContinuation); }

// A verification unit is bound on a line of its own. With VHDL 2008:
//     for u1 : cell use entity work.x;  | FOR u1: cell
//     use vunit checks;                 |     USE ENTITY work.x;
//                                       |     USE VUNIT checks;
void VhdlScanner::Use() {
  const int unit = LookForward(1);
  if (state.inConfiguration == 0 && (unit == T_VUNIT || unit == T_VPROP || unit == T_VMODE)) {
    anchorToken()->setIndent(addColumns(state.indent, settings.indentation));  // under its binding
  }
  nameClause(useContinuation);
}

// In style A, a wrapped clause continues under its first name. In style B, several names have a
// line each, and their semicolon is consumed; in older editions the statement stays open.
// With STYLE B:
//     library ieee, std;  | LIBRARY
//                         |     ieee,
//                         |     std;
void VhdlScanner::nameClause(int continuation) {
  if (settings.style == C_A) {
    StatementOpen();
    setIndent(continuation, /*relative*/ 1);
    return;
  }
  const int level = getParenLevel();
  stepIn();
  if (CountListEntries(level, T_COMMA, T_SEMICOLON) < 2) return;
  setNextNewline();
  WrappedList(level, T_COMMA, T_SEMICOLON);
  setNextNewline();
  popIndent();
  if (isModern()) StatementClosed();
}

// In a header, only clauses end their lines, unless BLOCKHEADER is WRAPPED, as after `process`.
//     b1 : block       | b1: BLOCK SIGNAL   s : bit;
//     signal s : bit;  | BEGIN
//     begin            |
void VhdlScanner::Block() {
  indentUnlessLabelled();
  if (settings.blockHeader == C_WRAPPED) {
    endProcessHead();
  } else {
    state.inBlockHeader = 1;
  }
}

//     p1 : process (clk, reset) is  | p1: PROCESS (clk, reset) IS
//     begin end process;            | BEGIN
//                                   | END PROCESS;
void VhdlScanner::Process() {
  indentUnlessLabelled();
  endProcessHead();
}

void VhdlScanner::endProcessHead() {
  const int next = LookForward(1);
  if (next == T_LPAREN || next == T_IS) {
    const VhdlToken* token = getNextToken();
    if (token == nullptr) return;
    if (token->getTyp() == T_LPAREN) {
      waitForParenClose(token->getParenLevel());
      if (LookForward(1) == T_IS) getNextToken();
    }
  }
  endHead();
}

void VhdlScanner::Begin() {
  if (state.inBlockHeader == 1) setPrevNewline();  // nothing in a block's header ends its line
  nextPart();
  endLine();
  state.inBlockHeader = 0;
}

// `begin` is at the level of its head. In a case generate statement, where alternatives are two
// steps in, it stands one step in, under its `when`, and so does the `end` of the alternative.
// With VHDL 2008:
//     g : case n generate  | g: CASE n GENERATE
//     when 1 => begin      |     WHEN 1 =>
//     q <= a; end;         |     BEGIN
//                          |         q <= a;
//                          |     END;
void VhdlScanner::nextPart() {
  const IndentKind kind = indentStack.kind();
  if (kind != LEVEL_CASE_GENERATE) {
    outdentToken(kind == LEVEL_GENERATE ? kind : LEVEL_BODY);
    return;
  }
  popIndent();
  anchorToken()->setIndent(addColumns(state.indent, settings.indentation));
  setIndent(timesColumns(2, settings.indentation), /*relative*/ 1, kind);
}

// `end;` or `end LABEL;` leaves a generate statement open; its own `end` says `generate`.
bool VhdlScanner::endsAlternative() const {
  const IndentKind kind = indentStack.kind();
  if (!isModern() || (kind != LEVEL_GENERATE && kind != LEVEL_CASE_GENERATE)) return false;
  const int next = LookForward(1);
  return next == T_SEMICOLON || (isName(next) && LookForward(2) == T_SEMICOLON);
}

// The semicolon of the binding has closed what this `end` belongs to. See For.
bool VhdlScanner::endsBindingFor() const {
  return isModern() && state.inConfiguration == 0 && LookForward(1) == T_FOR;
}

// Whatever it closes. A surplus `end` stands at the margin.
void VhdlScanner::End() {
  const bool isAlternative = endsAlternative();
  if (isAlternative || endsBindingFor()) {
    if (isAlternative) nextPart();
    waitForSemiColon();
    endLine();
    return;
  }
  const IndentKind kind = indentStack.kind();
  outdentToken();
  waitForSemiColon();
  if (kind == LEVEL_PROTECTED && settings.style == C_A) popIndent();  // of the type
  endStatement();
}

// The braces of a verification unit, like `is` and `end`. With VHDL 2008:
//     vunit v (e) {          | VUNIT v(e) {
//     default clock is c; }  |     DEFAULT clock IS c;
//                            | }
void VhdlScanner::RightBrace() {
  setPrevNewline();
  popTokenIndent();
  endLine();
}
