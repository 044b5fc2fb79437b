// The primitives that set blanks and line ends. They write format texts of blanks and line ends and
// insert new ones; the text of any other token is never touched.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

void VhdlScanner::setNextSpaces(int count) {
  VhdlToken* next = peekForward();
  if (next == nullptr) {
    tokenList.addItemLast(T_WHITESPACE, getParenLevel())->setFormatBlanks(count);
  } else if (next->getTyp() == T_WHITESPACE) {
    next->setFormatBlanks(count);
  } else if (next->getTyp() != T_EOF && count > 0) {
    tokenList.addItemBefore(*next, T_WHITESPACE, getParenLevel())->setFormatBlanks(count);
  }
}

void VhdlScanner::setPrevSpaces(int count) {
  VhdlToken* token = anchorToken();
  if (token != nullptr) {
    setSpacesBefore(*token, count);
  } else if (count != 0) {
    tokenList.addItemFirst(T_WHITESPACE, /*level*/ 0)->setFormatBlanks(count);
  }
}

int VhdlScanner::setSpacesBefore(VhdlToken& token, int count) {
  VhdlToken* blank = token.getPrev();
  int before = 0;
  if (typAt(blank) == T_WHITESPACE) {
    before = blank->textLength(1);
  } else if (count > 0) {
    blank = tokenList.addItemBefore(token, T_WHITESPACE, token.getParenLevel());
  } else {
    return 0;
  }
  blank->setFormatBlanks(count);
  return blank->textLength(1) - before;
}

// A comment after the anchor stays on its line, and ends it.
void VhdlScanner::setNextNewline() {
  if (endsLine(typAfterBlanks())) return;  // the comment stays here
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

void VhdlScanner::endStatement() {
  popIndent();
  endLine();
}

void VhdlScanner::endHead(IndentKind kind) {
  indentStack.setKind(kind);
  endLine();
}

// The blanks before the anchor are emptied, not removed: tokens stay in the list. The line that now
// ends there is complete, so it gets its indent.
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
  IndentLine(0);  // indents the line that now ends here
}

// Empty lines stay, and so does the line end before a comment.
void VhdlScanner::deleteNewline() {
  const int next = typAfterBlanks();
  const bool stays = next == T_NEWLINE || isComment(next) || prevIs(T_NEWLINE) == 1;
  if (stays) {
    IndentLine(0);
  } else {
    anchorToken()->setFormatText("");
  }
}

// Only a blank that no primitive has set yet.
void VhdlScanner::singleSpace() {
  VhdlToken* blank = anchorToken();
  if (!blank->isFormatted()) blank->setFormatBlanks(1);
}

// Only the first token's indent counts: that is why every token has one.
void VhdlScanner::IndentLine(int delta) {
  VhdlToken* place = anchorToken();
  VhdlToken* first = place == nullptr ? nullptr : ruler.findFirst(place);
  if (first == nullptr) return;
  if (delta != 0) first->setIndent(addColumns(first->getIndent(), delta));
  ruler.indented(first, setSpacesBefore(*first, first->getIndent()));
}
