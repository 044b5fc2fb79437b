// The primitives that set blanks and line ends. They write format texts of blanks and line ends and
// insert new ones; the text of any other token is never touched.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

/** Width of the blank before a node, 0 if there is none. */
int blanksBefore(const OldListRefItem& node) {
  if (node.getPrev() == nullptr) return 0;
  const auto& token = *static_cast<const VhdlToken*>(node.getPrev()->getItem());
  return token.getTyp() == T_WHITESPACE ? token.textLength(1) : 0;
}

/** Has the line's first token its blanks already? */
bool isIndented(const OldListRefItem& first, int indent) {
  const OldListRefItem* node = first.getPrev();
  if (node == nullptr) return false;
  const auto& token = *static_cast<const VhdlToken*>(node->getItem());
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
    return;
  }
  if (next != nullptr && (next->getTyp() == T_EOF || count <= 0)) return;
  VhdlToken* blank = newSpacing(T_WHITESPACE, getParenLevel(), "");
  blank->setFormatBlanks(count);
  if (next == nullptr) {
    tokenList.addItemLast(blank);
  } else {
    const AnchorGuard guard(tokenList);
    tokenList.addItemAnchor(blank);
  }
}

void VhdlScanner::setPrevSpaces(int count) {
  VhdlToken* prev = peekBack();
  if (prev != nullptr && prev->getTyp() == T_WHITESPACE) {
    prev->setFormatBlanks(count);
    return;
  }
  if (prev == nullptr ? count == 0 : count <= 0) return;
  VhdlToken* blank = newSpacing(T_WHITESPACE, getParenLevel(), "");
  blank->setFormatBlanks(count);
  if (prev == nullptr) {
    tokenList.addItemFirst(blank);
  } else {
    const AnchorGuard guard(tokenList);
    stepBack();
    tokenList.addItemAnchor(blank);
  }
}

void VhdlScanner::setNextNewline() {
  if (isComment(typBehindBlanks())) return;  // the comment stays here, and ends the line
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
  auto& token = *static_cast<VhdlToken*>(first->getItem());
  if (delta != 0) token.setIndent(addColumns(token.getIndent(), delta));
  if (isIndented(*first, token.getIndent())) return;
  const AnchorGuard guard(tokenList);
  tokenList.setAnchorNode(first);
  const int before = blanksBefore(*first);
  setPrevSpaces(token.getIndent());
  ruler.indented(blanksBefore(*first) - before);
}
