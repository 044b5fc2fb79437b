// The current indent and the stack of those to return to. An indent is in columns; its effect on a
// line is decided when the line is finished, by the stamp on the line's first token.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

void VhdlScanner::setIndent(int amount, int relative, IndentKind kind) {
  indentStack.push(state.indent, kind);
  state.indent = relative == 1 ? addColumns(state.indent, amount) : amount;
  StatementOpen();
}

void VhdlScanner::stepIn(IndentKind kind) { setIndent(settings.indentation, /*relative*/ 1, kind); }

// At the margin no configuration is open, even if its `end` is missing.
void VhdlScanner::popIndent() {
  state.indent = indentStack.pop();
  if (state.indent == 0) state.inConfiguration = 0;
}

// A statement's own first line is not indented by this: its first token has been stamped before.
void VhdlScanner::setIdentifierIndent() {
  if (state.statementClosed == 1) stepIn();
}

void VhdlScanner::setTokenIndent() {
  VhdlToken* token = anchorToken();
  if (token != nullptr) token->setIndent(state.indent);
}

void VhdlScanner::popTokenIndent() {
  popIndent();
  setTokenIndent();
}

void VhdlScanner::outdentToken(IndentKind kind) {
  popTokenIndent();
  stepIn(kind);
}

// A label is a name, and has opened the statement.
void VhdlScanner::indentUnlessLabelled() {
  if (prevIsLabel() == 0) stepIn();
}
