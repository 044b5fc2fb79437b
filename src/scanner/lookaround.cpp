// Look-around: what is beside the anchor. Each walk stops at the first token that decides. They
// step from token to token, which saves moving the anchor and restoring it.
#include "scanner/vhdlscanner.h"

int VhdlScanner::getParenLevel() const {
  const VhdlToken* token = anchorToken();
  return token == nullptr ? 0 : token->getParenLevel();
}

int VhdlScanner::typAfterBlanks() const {
  const VhdlToken* node = tokenList.getAnchor();
  if (node == nullptr) return -1;
  do {
    node = node->getNext();
  } while (typAt(node) == T_WHITESPACE);
  return typAt(node);
}

int VhdlScanner::typBeforeBlanks() const {
  const VhdlToken* node = tokenList.getAnchor();
  if (node == nullptr) return -1;
  do {
    node = node->getPrev();
  } while (typAt(node) == T_WHITESPACE);
  return typAt(node);
}

int VhdlScanner::nextIsComment() const {
  const VhdlToken* node = tokenList.getAnchor();
  if (node == nullptr) return 0;
  do {
    node = node->getNext();
  } while (typAt(node) == T_WHITESPACE || typAt(node) == T_NEWLINE);
  return typAt(node) == T_COMMENT ? 1 : 0;
}

int VhdlScanner::LookForward(int count) const {
  const VhdlToken* node = tokenList.getAnchor();
  while (node != nullptr && (node = node->getNext()) != nullptr) {
    const int typ = typAt(node);
    if (!isSpacing(typ) && --count <= 0) return typ;
  }
  return T_EOF;
}

int VhdlScanner::prevIsNewline(int mode) const {
  const VhdlToken* token = anchorToken();
  while (token != nullptr && (token = token->getPrev()) != nullptr) {
    if (token->getTyp() == T_WHITESPACE) continue;
    if (token->getTyp() != T_NEWLINE) return 0;
    if (mode != 1 || token->textLength(1) > 0) return 1;
  }
  return 1;
}

// `lab : process`, `lab : postponed process`.
int VhdlScanner::prevIsLabel() const {
  int hasColon = 0;
  const VhdlToken* token = anchorToken();
  while (token != nullptr && (token = token->getPrev()) != nullptr) {
    const int typ = token->getTyp();
    if (isName(typ)) return hasColon;
    if (typ == T_COLON) {
      hasColon = 1;
    } else if (!isSpacing(typ) && typ != T_POSTPONED) {
      return 0;
    }
  }
  return 0;
}

int VhdlScanner::getColumn(int mode) {
  VhdlToken* place = tokenList.getAnchor();
  if (place == nullptr) return 0;
  return mode == 1 ? ruler.read(place, settings.indentation).column
                   : ruler.readSource(place, settings.indentation);
}
