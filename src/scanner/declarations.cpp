// Declarations: objects, attributes, groups, types and subprograms. One entry remains on the indent
// stack for the semicolon that the pass reads, unless a handler has consumed the semicolon itself.
#include "base/columns.h"
#include "scanner/peek.h"
#include "scanner/vhdlscanner.h"

void VhdlScanner::objectDeclaration(int blanks) {
  setNextSpaces(blanks);
  alignConstantSignalFile();
}

void VhdlScanner::File() {
  if (isName(typBehindBlanks())) objectDeclaration(5);
}

void VhdlScanner::Alias() {
  if (isName(typBehindBlanks())) objectDeclaration(4);
}

void VhdlScanner::Group() {
  if (!isName(typBehindBlanks())) return;
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

int VhdlScanner::readEntityClass() {
  getNextToken();
  const int behind = getNextTokenTyp();
  return behind == T_BOX ? getNextTokenTyp() : behind;
}

void VhdlScanner::Attribute() {
  stepIn();
  finishStatement();
}

void VhdlScanner::Type() {
  stepIn();
  if (!isName(getNextTokenTyp())) return;
  const int behind = getNextTokenTyp();
  if (behind == T_SEMICOLON) {  // an incomplete type
    endStatement();
    return;
  }
  if (behind != T_IS || LookForward(1) != T_LPAREN) return;
  const VhdlToken* paren = getNextToken();
  if (settings.style == C_A) {
    waitForParenClose(paren->getParenLevel());
    return;
  }
  entriesInBlock();
}

void VhdlScanner::entriesInBlock() {
  popTokenIndent();
  setPrevNewline();
  entryBlock();
}

void VhdlScanner::entryBlock() {
  stepIn();
  setNextNewline();
  InterfaceList();
  setPrevNewline();
  outdentToken();
}

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
  StatementClosed();
}

void VhdlScanner::Record() {
  openElements();
  InterfaceList();
  setPrevNewline();
  closeElements();
}

//     type queue is protected body variable size : natural; end protected body queue;
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

//     view sender of link is data : out; ready : in; end view sender;
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

void VhdlScanner::Private() {
  if (!opensStatement()) Identifier();
}

void VhdlScanner::Unit() {
  openElements();
  UnitList();
  closeElements();
}

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

//     procedure swap generic (type t) generic map (t => bit) parameter (variable a, b : inout t);
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

void VhdlScanner::Pure() {
  if (getNextTokenTyp() == T_FUNCTION) Function();
}
