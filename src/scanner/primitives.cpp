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

}  // namespace

VhdlToken* VhdlScanner::newSpacing(int typ, int level, std::string_view format) {
  auto* token = new VhdlToken(typ, /*line*/ 0, level, "");
  token->setFormatText(format);
  return token;
}

void VhdlScanner::setNextSpaces(int count) {
  const AnchorGuard guard(tokenList);
  const int level = getParenLevel();
  VhdlToken* target = stepForward();
  if (target == nullptr) {
    target = newSpacing(T_WHITESPACE, level, "");
    tokenList.addItemLast(target);
  } else if (target->getTyp() != T_WHITESPACE && target->getTyp() != T_EOF && count > 0) {
    stepBack();
    target = newSpacing(T_WHITESPACE, level, "");
    tokenList.addItemAnchor(target);
  }
  setBlanks(*target, count);
}

void VhdlScanner::setPrevSpaces(int count) {
  const AnchorGuard guard(tokenList);
  const int level = getParenLevel();
  VhdlToken* target = stepBack();
  if (target == nullptr) {
    if (count == 0) return;
    target = newSpacing(T_WHITESPACE, level, "");
    tokenList.addItemFirst(target);
  } else if (target->getTyp() != T_WHITESPACE && count > 0) {
    target = newSpacing(T_WHITESPACE, level, "");
    tokenList.addItemAnchor(target);
  }
  setBlanks(*target, count);
}

void VhdlScanner::setBlanks(VhdlToken& target, int count) {
  if (target.getTyp() == T_WHITESPACE) target.setFormatBlanks(count);
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
  OldListRefItem* first = ruler.read(place, indentation).first;
  if (first == nullptr) return;
  const AnchorGuard guard(tokenList);
  tokenList.setAnchorNode(first);
  VhdlToken& token = *anchorToken();
  if (delta != 0) token.setIndent(addColumns(token.getIndent(), delta));
  const int before = blanksBefore(*first);
  setPrevSpaces(token.getIndent());
  ruler.indented(blanksBefore(*first) - before);
}
