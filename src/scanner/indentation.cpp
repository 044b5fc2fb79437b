// The current indent and the stack of those to return to. An indent is in columns; its effect on a
// line is decided when the line is finished, by the stamp on the line's first token.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

void VhdlScanner::setIndent(int amount, int relative, IndentKind kind) {
  indentStack.push(indent, kind);
  indent = relative == 1 ? addColumns(indent, amount) : amount;
  StatementOpen();
}

void VhdlScanner::popIndent() {
  indent = indentStack.pop();
  if (indent == 0) inConfiguration = 0;
}

void VhdlScanner::setIdentifierIndent() {
  if (statementClosed == 1) setIndent(settings.indentation, /*relative*/ 1);
}

void VhdlScanner::setTokenIndent() {
  VhdlToken* token = anchorToken();
  if (token != nullptr) token->setIndent(indent);
}

void VhdlScanner::popTokenIndent() {
  popIndent();
  setTokenIndent();
}

void VhdlScanner::indentUnlessLabelled() {
  if (prevIsLabel() == 0) setIndent(settings.indentation, /*relative*/ 1);
}
