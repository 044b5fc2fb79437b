// Declarations: objects, attributes, groups, types and subprograms. One entry remains on the indent
// stack for the semicolon that the pass reads, unless a handler has consumed the semicolon itself.
#include "base/columns.h"
#include "scanner/peek.h"
#include "scanner/vhdlscanner.h"

//     signal a : bit;                 | SIGNAL   a     : bit;
//     constant depth : natural := 5;  | CONSTANT depth : natural := 5;
//     file log : text;                | FILE     log   : text;
void VhdlScanner::objectDeclaration(int blanks) {
  setNextSpaces(blanks);
  alignConstantSignalFile();
}

// Not in `type t is file of word;`.
void VhdlScanner::File() {
  if (isName(typAfterBlanks())) objectDeclaration(5);
}

// Not for an operator symbol: `alias "+" is add;` is a statement like any other.
void VhdlScanner::Alias() {
  if (isName(typAfterBlanks())) objectDeclaration(4);
}

// Reads a template to its end; of a group, what follows the name of its template is left to the
// pass.
//     group pins is (signal, signal <>);  | GROUP pins IS (SIGNAL, SIGNAL <>);
void VhdlScanner::Group() {
  if (!isName(typAfterBlanks())) return;
  objectDeclaration(1);
  setNextSpaces(1);
  if (getNextTokenTyp() != T_LPAREN) return;
  // A template: two entity classes at most, each with an optional box after it.
  if (readEntityClass() == T_COMMA) {
    setNextSpaces(1);
    readEntityClass();
  }
  getNextToken();
  popIndent();
  setNextNewline();
}

// A class, an optional box, and the token after them, whose code is returned.
int VhdlScanner::readEntityClass() {
  getNextToken();
  const int after = getNextTokenTyp();
  return after == T_BOX ? getNextTokenTyp() : after;
}

// Neither its colon nor its value is aligned.
void VhdlScanner::Attribute() {
  stepIn();
  finishStatement();
}

// Enumerations, and the heads of other types, whose definitions have handlers. In style A, the
// literals stay on the line. With STYLE B:
//     type bool is (no, yes);  | TYPE bool IS
//                              | (
//                              |     no,
//                              |     yes
//                              | );
void VhdlScanner::Type() {
  stepIn();
  if (!isName(getNextTokenTyp())) return;
  const int after = getNextTokenTyp();
  if (after == T_SEMICOLON) {  // an incomplete type
    endStatement();
    return;
  }
  if (after != T_IS || LookForward(1) != T_LPAREN) return;
  const VhdlToken* paren = getNextToken();
  if (settings.style == C_A) {
    waitForParenClose(paren->getParenLevel());
    return;
  }
  entriesInBlock();
}

// The parenthesis on a line of its own, at the level of the head. See Type.
void VhdlScanner::entriesInBlock() {
  popTokenIndent();
  setPrevNewline();
  entryBlock();
}

// One entry per line, and a level left open for the semicolon.
void VhdlScanner::entryBlock() {
  stepIn();
  setNextNewline();
  InterfaceList();
  setPrevNewline();
  outdentToken();
}

// entryBlock leaves a level for the semicolon. In style B it takes the place of the type's; in
// style A that one is still open, so the other is closed.
//     type m is               | TYPE m IS
//     array (0 to 3, 0 to 1)  |     ARRAY (
//     of bit;                 |         0 TO 3,
//                             |         0 TO 1
//                             |     ) OF bit;
void VhdlScanner::Array() {
  if (!hasSeveralIndexRanges()) return;
  startDefinition();
  if (getNextTokenTyp() != T_LPAREN) return;
  if (settings.style != C_A) setPrevNewline();
  entryBlock();
  if (settings.style == C_A) popIndent();
}

bool VhdlScanner::hasSeveralIndexRanges() {
  const Peek peek(*this);
  if (getNextTokenTyp() != T_LPAREN) return false;
  return CountListEntries(getParenLevel(), T_COMMA, T_RPAREN) > 1;
}

// In style A one step in from the type, in style B below it.
void VhdlScanner::startDefinition() {
  setPrevNewline();
  if (settings.style != C_A) popTokenIndent();
}

void VhdlScanner::openElements() {
  startDefinition();
  stepIn();
  setNextNewline();
}

void VhdlScanner::closeElements() {
  End();
  if (settings.style == C_A) popIndent();
}

//     type r is record       | TYPE r IS
//     a : bit; data : word;  |     RECORD
//     end record;            |         a    : bit;
//                            |         data : word;
//                            |     END RECORD;
void VhdlScanner::Record() {
  openElements();
  InterfaceList();
  setPrevNewline();
  closeElements();
}

// With VHDL 2008:
//     type q is protected body  | TYPE q IS
//     end protected body;       |     PROTECTED BODY
//                               |     END PROTECTED BODY;
void VhdlScanner::Protected() {
  if (indentStack.kind() != LEVEL_STATEMENT || state.statementClosed == 1) {  // no type in hand
    Identifier();
    return;
  }
  startDefinition();
  stepIn();
  if (LookForward(1) == T_BODY) getNextToken();
  endHead(LEVEL_PROTECTED);
}

// With VHDL 2019:
//     view v of link is  | VIEW v OF link IS
//     data : out;        |     data : OUT;
//     end view;          | END VIEW;
void VhdlScanner::View() {
  if (!opensStatement() || !isName(LookForward(1)) || LookForward(2) != T_OF) {
    Identifier();
    return;
  }
  stepIn();
  if (!waitFor(T_IS, T_SEMICOLON)) return;
  setNextNewline();
  InterfaceList();
  setPrevNewline();
  End();
}

// Passed over: `private variable n : natural;` is the declaration of a variable.
void VhdlScanner::Private() {
  if (!opensStatement()) Identifier();
}

//     type t is range 0 to 9   | TYPE t IS RANGE 0 TO 9
//     units fs; ps = 1000 fs;  |     UNITS
//     end units;               |         fs;
//                              |         ps = 1000 fs;
//                              |     END UNITS;
void VhdlScanner::Unit() {
  openElements();
  UnitList();
  closeElements();
}

// A primary unit, which has no `=`, does not widen the column.
void VhdlScanner::UnitList() {
  const int width = LongestInterfaceIdentifier(settings.identLength);
  while (const VhdlToken* token = getNextToken()) {
    switch (token->getTyp()) {
      case T_END: setPrevNewline(); return;
      case T_EQUAL: alignAt(addColumns(width, 1)); break;  // it already has a blank before it
      case T_COMMA:
      case T_SEMICOLON: endEntry(); break;
      default: break;
    }
  }
}

// Also procedures; declarations and bodies alike. In style B, parameters are in a block. See Type.
//     function f (signal a : in bit;  | FUNCTION f(SIGNAL a : IN bit;
//     n : natural) return bit;        |            n        : natural) RETURN bit;
void VhdlScanner::Function() {
  stepIn();
  int blanks = 0;  // before the parameters
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_LPAREN:
        settings.style == C_A ? parametersInColumn(blanks) : entriesInBlock();
        setNextSpaces(1);
        break;
      case T_GENERIC:
        if (isModern()) genericsOfSubprogram();
        break;
      case T_PARAMETER: blanks = 1; break;
      case T_SEMICOLON:  // a declaration
        endStatement();
        return;
      case T_IS:
        if (!isModern() || LookForward(1) != T_NEW) endHead();  // else an instance
        return;
      default: break;
    }
  }
}

// With VHDL 2008:
//     procedure p generic (type t)  | PROCEDURE p
//     parameter (a : t);            |     GENERIC (
//                                   |         TYPE t
//                                   |     )
//                                   |     PARAMETER (a : t);
void VhdlScanner::genericsOfSubprogram() {
  setPrevNewline();
  if (LookForward(1) != T_LPAREN) return;
  interfaceBlock(*getNextToken());
  if (LookForward(1) == T_GENERIC) {
    getNextToken();
    PortMap();
  }
  const bool hasWord = LookForward(1) == T_PARAMETER;
  if (!hasWord && LookForward(1) != T_LPAREN) return;
  getNextToken();
  setPrevNewline();
  if (hasWord && getNextTokenTyp() != T_LPAREN) return;
  settings.style == C_A ? parametersInColumn(1) : entriesInBlock();
  setNextSpaces(1);
}

// The level of the parenthesis itself is for a closing one that starts a line, which then stands
// under it.
// NOLINTNEXTLINE(misc-no-recursion): parameters hold no subprograms
void VhdlScanner::parametersInColumn(int blanks) {
  setPrevSpaces(blanks);
  IndentLine(0);
  setIndent(getColumn(1), /*relative*/ 0);
  setTokenIndent();
  setIndent(1, /*relative*/ 1);
  InterfaceList(/*isOfParameters*/ true);
  popTokenIndent();
  popIndent();
}

//     impure function f return bit;  | IMPURE FUNCTION f RETURN bit;
void VhdlScanner::Pure() {
  if (getNextTokenTyp() == T_FUNCTION) Function();
}
