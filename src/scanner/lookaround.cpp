// Look-around: what stands beside the anchor. Each walk stops at the first token that decides.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

int VhdlScanner::getParenLevel() const {
  const VhdlToken* token = anchorToken();
  return token == nullptr ? 0 : token->getParenLevel();
}

int VhdlScanner::typBehindBlanks() {
  const AnchorGuard guard(tokenList);
  const VhdlToken* token = stepForward();
  while (token != nullptr && token->getTyp() == T_WHITESPACE) token = stepForward();
  return token == nullptr ? -1 : token->getTyp();
}

int VhdlScanner::typBeforeBlanks() {
  const AnchorGuard guard(tokenList);
  const VhdlToken* token = stepBack();
  while (token != nullptr && token->getTyp() == T_WHITESPACE) token = stepBack();
  return token == nullptr ? -1 : token->getTyp();
}

int VhdlScanner::nextIsComment() {
  const AnchorGuard guard(tokenList);
  const VhdlToken* token = stepForward();
  while (token != nullptr && (token->getTyp() == T_WHITESPACE || token->getTyp() == T_NEWLINE)) {
    token = stepForward();
  }
  return token != nullptr && token->getTyp() == T_COMMENT ? 1 : 0;
}

int VhdlScanner::prevIsNewline(int mode) {
  const AnchorGuard guard(tokenList);
  while (const VhdlToken* token = stepBack()) {
    if (token->getTyp() == T_WHITESPACE) continue;
    if (token->getTyp() != T_NEWLINE) return 0;
    if (mode != 1 || token->textLength(1) > 0) return 1;
  }
  return 1;
}

int VhdlScanner::prevIsLabel() {
  const AnchorGuard guard(tokenList);
  int hasColon = 0;
  while (const VhdlToken* token = stepBack()) {
    const int typ = token->getTyp();
    if (typ == T_IDENTIFIER) return hasColon;
    if (typ == T_COLON) {
      hasColon = 1;
    } else if (!isSpacing(typ) && typ != T_POSTPONED) {
      return 0;
    }
  }
  return 0;
}

int VhdlScanner::LookForward(int count) {
  const AnchorGuard guard(tokenList);
  while (const VhdlToken* token = stepForward()) {
    if (isSpacing(token->getTyp())) continue;
    if (--count <= 0) return token->getTyp();
  }
  return T_EOF;
}

int VhdlScanner::getColumn(int mode) {
  if (tokenList.getAnchorNode() == nullptr) return 0;
  if (mode == 1) return ruler.read(tokenList.getAnchorNode(), indentation).column;
  const AnchorGuard guard(tokenList);
  int column = 0;
  while (const VhdlToken* token = stepBack()) {
    if (beginsWithLineEnd(*token, mode)) break;
    column = addColumns(column, countColumns(*token, mode, indentation));
  }
  return column;
}
