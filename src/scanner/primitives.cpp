// The primitives that set blanks and line ends. They write format texts of blanks and line ends and
// insert new ones; the text of any other token is never touched.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

/** Width of the blank before a token, 0 if there is none. */
int blanksBefore(const VhdlToken& behind) {
  const VhdlToken* token = behind.getPrev();
  return typAt(token) == T_WHITESPACE ? token->textLength(1) : 0;
}

/** Has the line's first token its blanks already? */
bool isIndented(const VhdlToken& first, int indent) {
  const VhdlToken* token = first.getPrev();
  if (token == nullptr) return false;
  if (token->getTyp() != T_WHITESPACE) return indent <= 0;
  return token->isFormatted() && token->textLength(1) == indent;
}

}  // namespace

void VhdlScanner::setNextSpaces(int count) {
  VhdlToken* next = peekForward();
  if (next != nullptr && next->getTyp() == T_WHITESPACE) {
    next->setFormatBlanks(count);
  } else {
    insertBlanksBehind(count);
  }
}

void VhdlScanner::setPrevSpaces(int count) {
  VhdlToken* prev = peekBack();
  if (prev != nullptr && prev->getTyp() == T_WHITESPACE) {
    prev->setFormatBlanks(count);
  } else {
    insertBlanksBefore(count);
  }
}

void VhdlScanner::insertBlanksBehind(int count) {
  const VhdlToken* next = peekForward();
  if (next == nullptr) {
    tokenList.addItemLast(T_WHITESPACE, getParenLevel())->setFormatBlanks(count);
  } else if (next->getTyp() != T_EOF && count > 0) {
    const AnchorGuard guard(tokenList);
    tokenList.addItemAnchor(T_WHITESPACE, getParenLevel())->setFormatBlanks(count);
  }
}

void VhdlScanner::insertBlanksBefore(int count) {
  const int level = getParenLevel();
  if (peekBack() == nullptr) {
    if (count != 0) tokenList.addItemFirst(T_WHITESPACE, level)->setFormatBlanks(count);
  } else if (count > 0) {
    const AnchorGuard guard(tokenList);
    stepBack();
    tokenList.addItemAnchor(T_WHITESPACE, level)->setFormatBlanks(count);
  }
}

void VhdlScanner::setNextNewline() {
  if (endsLine(typBehindBlanks())) return;  // the comment stays here
  IndentLine(0);
  const int level = getParenLevel();
  VhdlToken* token = stepForward();
  if (token == nullptr) {
    tokenList.addItemLast(T_NEWLINE, level)->setFormatText("\n");
    return;
  }
  while (token->getTyp() == T_WHITESPACE) {
    token->setFormatText("");
    token = stepForward();
    if (token == nullptr) return;
  }
  if (token->getTyp() == T_NEWLINE) {
    token->setFormatText("\n");
    return;
  }
  stepBack();
  tokenList.addItemAnchor(T_NEWLINE, level)->setFormatText("\n");
}

void VhdlScanner::endLine() {
  setNextNewline();
  StatementClosed();
}

void VhdlScanner::endHead(IndentKind kind) {
  indentStack.setKind(kind);
  endLine();
}

void VhdlScanner::setPrevNewline() {
  const AnchorGuard guard(tokenList);
  const int level = getParenLevel();
  VhdlToken* token = stepBack();
  while (token != nullptr && token->getTyp() == T_WHITESPACE) {
    token->setFormatText("");
    token = stepBack();
  }
  if (token == nullptr) return;
  if (token->getTyp() == T_NEWLINE) {
    token->setFormatText("\n");
  } else {
    tokenList.addItemAnchor(T_NEWLINE, level)->setFormatText("\n");
  }
  IndentLine(0);  // of the line that now ends here
}

void VhdlScanner::deleteNewline() {
  const int next = typBehindBlanks();
  const bool stays = next == T_NEWLINE || isComment(next) || prevIs(T_NEWLINE) == 1;
  if (stays) {
    IndentLine(0);
  } else {
    anchorToken()->setFormatText("");
  }
}

void VhdlScanner::singleSpace() {
  VhdlToken* blank = anchorToken();
  if (!blank->isFormatted()) blank->setFormatBlanks(1);
}

void VhdlScanner::IndentLine(int delta) {
  VhdlToken* place = tokenList.getAnchor();
  if (place == nullptr) return;
  VhdlToken* first = ruler.findFirst(place);
  if (first == nullptr) return;
  VhdlToken& token = *first;
  if (delta != 0) token.setIndent(addColumns(token.getIndent(), delta));
  if (isIndented(*first, token.getIndent())) return;
  const AnchorGuard guard(tokenList);
  tokenList.setAnchor(first);
  const int before = blanksBefore(*first);
  setPrevSpaces(token.getIndent());
  ruler.indented(first, blanksBefore(*first) - before);
}
