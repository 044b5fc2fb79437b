// The primitives that set blanks and line ends. They write format texts of blanks and line ends and
// insert new ones; the text of any other token is never touched.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

/** Width of the blank before a node, 0 if there is none. */
int blanksBefore(const OldListRefItem& node) {
  if (node.getPrev() == nullptr) return 0;
  const VhdlToken& token = tokenAt(node.getPrev());
  return token.getTyp() == T_WHITESPACE ? token.textLength(1) : 0;
}

/** Has the line's first token its blanks already? */
bool isIndented(const OldListRefItem& first, int indent) {
  const OldListRefItem* node = first.getPrev();
  if (node == nullptr) return false;
  const VhdlToken& token = tokenAt(node);
  if (token.getTyp() != T_WHITESPACE) return indent <= 0;
  return token.isFormatted() && token.textLength(1) == indent;
}

}  // namespace

VhdlToken* VhdlScanner::newSpacing(int typ, int level, std::string_view format) {
  auto* token = new VhdlToken(typ, /*line*/ 0, level, "");
  token->setFormatText(format);
  return token;
}

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

VhdlToken* VhdlScanner::newBlanks(int count) {
  VhdlToken* blanks = newSpacing(T_WHITESPACE, getParenLevel(), "");
  blanks->setFormatBlanks(count);
  return blanks;
}

void VhdlScanner::insertBlanksBehind(int count) {
  const VhdlToken* next = peekForward();
  if (next == nullptr) {
    tokenList.addItemLast(newBlanks(count));
  } else if (next->getTyp() != T_EOF && count > 0) {
    const AnchorGuard guard(tokenList);
    tokenList.addItemAnchor(newBlanks(count));
  }
}

void VhdlScanner::insertBlanksBefore(int count) {
  if (peekBack() == nullptr) {
    if (count != 0) tokenList.addItemFirst(newBlanks(count));
  } else if (count > 0) {
    VhdlToken* blanks = newBlanks(count);
    const AnchorGuard guard(tokenList);
    stepBack();
    tokenList.addItemAnchor(blanks);
  }
}

void VhdlScanner::setNextNewline() {
  if (endsLine(typBehindBlanks())) return;  // the comment stays here
  IndentLine(0);
  const int level = getParenLevel();
  VhdlToken* token = stepForward();
  if (token == nullptr) {
    tokenList.addItemLast(newSpacing(T_NEWLINE, level, "\n"));
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
  tokenList.addItemAnchor(newSpacing(T_NEWLINE, level, "\n"));
}

void VhdlScanner::endLine() {
  setNextNewline();
  StatementClosed();
}

void VhdlScanner::endHead() {
  indentStack.setKind(LEVEL_BODY);
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
    tokenList.addItemAnchor(newSpacing(T_NEWLINE, level, "\n"));
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

void VhdlScanner::singleSpace() { anchorToken()->setTextIfUnformatted(" "); }

void VhdlScanner::IndentLine(int delta) {
  OldListRefItem* place = tokenList.getAnchorNode();
  if (place == nullptr) return;
  OldListRefItem* first = ruler.findFirst(place);
  if (first == nullptr) return;
  VhdlToken& token = tokenAt(first);
  if (delta != 0) token.setIndent(addColumns(token.getIndent(), delta));
  if (isIndented(*first, token.getIndent())) return;
  const AnchorGuard guard(tokenList);
  tokenList.setAnchorNode(first);
  const int before = blanksBefore(*first);
  setPrevSpaces(token.getIndent());
  ruler.indented(first, blanksBefore(*first) - before);
}
