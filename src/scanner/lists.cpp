// Interface and association lists: generic and port clauses, parameters, record elements, maps. A
// list is measured ahead of the cursor first, then read entry by entry and put into columns.
//
// The levels that the loops compare differ on purpose: the measuring functions and AssociationList
// use the level of the opening parenthesis, InterfaceList ends at the level of the first token that
// it reads and splits at every comma and semicolon, however deep.
#include <algorithm>
#include <cassert>

#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int interfaceExtra = 9;  // an interface name may be longer than other names by this much

}  // namespace

void VhdlScanner::alignAt(int width) {
  IndentLine(0);
  setPrevSpaces(std::max(addColumns(addColumns(width, state.indent), -getColumn(1)), 1));
}

void VhdlScanner::endEntry() {
  setPrevSpaces(0);
  setNextNewline();
}

void VhdlScanner::Port() {
  if (LookForward(1) == T_MAP) {
    PortMap();
    return;
  }
  const VhdlToken* paren = getNextToken();
  if (paren == nullptr || paren->getTyp() != T_LPAREN) return;
  interfaceBlock(*paren);
  if (getNextTokenTyp() == T_SEMICOLON) endLine();
}

void VhdlScanner::interfaceBlock(const VhdlToken& paren) {
  if (settings.style != C_A) setPrevNewline();
  stepIn();
  setPrevSpaces(1);
  setNextNewline();
  if (settings.interfaceIdentifierList == C_WRAPPED) {
    InterfaceList();
    setPrevNewline();
  } else {
    waitForParenClose(paren.getParenLevel());
  }
  popTokenIndent();
}

void VhdlScanner::PortMap() {
  const bool hasHead = isModern() || settings.blockHeader == C_WRAPPED;
  const bool isClause = hasHead && indentStack.kind() == LEVEL_BODY;
  setPrevNewline();
  if (getNextTokenTyp() != T_MAP) return;
  const VhdlToken* paren = getNextToken();
  if (paren == nullptr || paren->getTyp() != T_LPAREN) return;
  const int level = paren->getParenLevel();
  settings.style == C_A ? setPrevSpaces(1) : setPrevNewline();
  setNextNewline();
  stepIn();
  settings.associationList == C_WRAPPED ? AssociationList(level) : waitForParenClose(level);
  setPrevNewline();
  popTokenIndent();
  if (state.inBlockHeader == 1 && nextIs(T_SEMICOLON) == 1) getNextToken();
  StatementClosed();
  if (isClause && LookForward(1) == T_SEMICOLON) {
    getNextToken();
    setNextNewline();
  }
}

void VhdlScanner::InterfaceList(bool isOfParameters) {
  const int colonOffset = LongestInterfaceIdentifier(longestInterfaceName());
  if (colonOffset == T_EOF) return;
  const VhdlToken* token = getNextToken();
  if (token == nullptr) return;
  const int level = token->getParenLevel();
  for (; token != nullptr; token = getNextToken()) {
    switch (token->getTyp()) {
      case T_END: setPrevNewline(); return;
      case T_RPAREN:
        if (token->getParenLevel() == level) return;
        break;
      case T_SEMICOLON:
      case T_COMMA: endEntry(); break;
      case T_COLON:
        alignAt(colonOffset);
        setNextSpaces(1);
        break;
      case T_INTERFACE_SUBPROGRAM:
        if (!isOfParameters) interfaceSubprogram();
        break;
      case T_INTERFACE_PACKAGE: interfacePackage(); break;
      default: break;
    }
  }
}

//     generic (type item; function image(value : item) return string is <>;
//              package keys is new work.keys generic map (<>));
void VhdlScanner::interfaceSubprogram() {
  getNextToken();  // its name
  if (LookForward(1) == T_PARAMETER) getNextToken();
  if (LookForward(1) != T_LPAREN) return;
  const VhdlToken* paren = getNextToken();
  if (settings.style == C_A) {
    parametersInColumn(0);
  } else {
    waitForParenClose(paren->getParenLevel());
  }
  setNextSpaces(1);
}

void VhdlScanner::interfacePackage() {
  for (;;) {
    switch (LookForward(1)) {
      case T_LPAREN: waitForParenClose(getNextToken()->getParenLevel()); return;
      case T_IDENTIFIER:
      case T_DOT:
      case T_IS:
      case T_NEW:
      case T_GENERIC:
      case T_MAP: getNextToken(); break;
      default: return;
    }
  }
}

int VhdlScanner::longestInterfaceName() const {
  return addColumns(settings.identLength, interfaceExtra);
}

int VhdlScanner::LongestInterfaceIdentifier(int limit) {
  const int level = getParenLevel();
  lookForInOutLinkage();
  const int classColumn = lookForSignalConstantVariable();
  if (isLeftOpen(level)) return T_EOF;
  if (!stopIndex.knowsNames(limit)) return walkOverNames(level, classColumn, limit);
  return stopIndex.longestName(tokenList.getAnchor(), level, classColumn) + 1;
}

int VhdlScanner::walkOverNames(int level, int classColumn, int limit) {
  const VhdlToken* cursor = tokenList.getAnchor();
  if (cursor == nullptr) return T_EOF;
  const NameWalk walk = walkOverInterfaceNames(cursor, level, classColumn, limit);
  if (walk.end == nullptr) {
    stopIndex.build(cursor);
    return T_EOF;
  }
  stopIndex.countSteps(cursor, walk.end, walk.steps);
  return walk.longest + 1;
}

bool VhdlScanner::isLeftOpen(int level) const {
  return stopIndex.isBuilt() && !stopIndex.hasListEnd(level);
}

void VhdlScanner::lookForInOutLinkage() { setWordColumn(MODE_WORD); }

int VhdlScanner::lookForSignalConstantVariable() { return setWordColumn(CLASS_WORD); }

int VhdlScanner::setWordColumn(WordKind kind) {
  const int level = getParenLevel();
  if (stopIndex.isBuilt()) return setIndexedWordColumn(level, kind);
  int widest = 0;
  const VhdlToken* ahead = peekForward();
  for (; ahead != nullptr && !endsList(*ahead, level); ahead = ahead->getNext()) {
    widest = std::max(widest, wordWidth(kind, ahead->getTyp()));
  }
  if (widest == 0) return 0;
  const AnchorGuard guard(tokenList);
  const VhdlToken* token = stepForward();
  for (; token != nullptr && !endsList(*token, level); token = stepForward()) {
    const int width = wordWidth(kind, token->getTyp());
    if (width > 0) setNextSpaces(widest - width + 1);
  }
  return widest;
}

int VhdlScanner::setIndexedWordColumn(int level, WordKind kind) {
  const int widest = stopIndex.widestWord(level, kind);
  const AnchorGuard guard(tokenList);
  for (VhdlToken* word : stopIndex.wordsToSet(level, kind)) {
    tokenList.setAnchor(word);
    setNextSpaces(widest - wordWidth(kind, typAt(word)) + 1);
  }
  return widest;
}

void VhdlScanner::AssociationList(int level) {
  // -1: no arrow anywhere in the list; 0: none yet in the current entry; 1: the entry has one.
  int arrows = -1;
  const int width = LongestAssociationIdentifier(arrows);
  if (width == T_EOF) return;
  if (arrows == 1) arrows = 0;
  while (const VhdlToken* token = getNextToken()) {
    const int depth = token->getParenLevel();
    switch (token->getTyp()) {
      case T_RPAREN:
        if (depth != level) break;
        if (arrows == 0) IndentLine(addColumns(width, 2));  // below the actuals of the others
        return;
      case T_COMMA:
      case T_SEMICOLON:
        if (depth > level) break;
        if (arrows == 0) IndentLine(addColumns(width, 2));
        endEntry();
        if (arrows == 1) arrows = 0;
        break;
      case T_ARROW:
        alignAt(width);
        setNextSpaces(1);
        arrows = 1;
        break;
      case T_END: setPrevNewline(); return;
      default: break;
    }
  }
}

int VhdlScanner::LongestAssociationIdentifier(int& hasArrow) {
  const int level = getParenLevel();
  if (isLeftOpen(level)) return T_EOF;
  const VhdlToken* cursor = anchorToken();
  int length = 0;
  int longest = 0;
  for (const VhdlToken* token = peekForward(); token != nullptr; token = token->getNext()) {
    const int typ = token->getTyp();
    if (endsList(*token, level)) return longest + 2;
    if (isSpacing(typ)) continue;
    if (typ == T_ARROW) {
      if (length > longest && length < settings.identLength) longest = length;
      length = 0;
      hasArrow = 1;
    } else if (typ == T_COMMA || typ == T_SEMICOLON) {
      length = token->getParenLevel() <= level ? 0 : addColumns(length, 2);
    } else if (typ == T_RPAREN) {
      length = addColumns(length, 1);
    } else {
      length = addColumns(length, token->textLength(1));
    }
  }
  if (cursor != nullptr) stopIndex.build(cursor);
  return T_EOF;
}

int VhdlScanner::CountListEntries(int level, int separator, int stop) {
  if (stopIndex.isBuilt()) {
    assert(separator == T_COMMA);  // the only separator that is indexed
    return stopIndex.countEntries(level, stop);
  }
  const VhdlToken* cursor = anchorToken();
  int count = 1;
  int steps = 0;
  for (const VhdlToken* token = peekForward(); token != nullptr;
       token = token->getNext(), ++steps) {
    if (token->getParenLevel() > level) continue;
    if (token->getTyp() == stop) {
      stopIndex.countSteps(cursor, token, steps);
      return std::min(count, severalEntries);
    }
    if (token->getTyp() == separator) ++count;
  }
  if (cursor != nullptr) stopIndex.build(cursor);
  return 0;
}

void VhdlScanner::WrappedList(int level, int separator, int stop) {
  while (const VhdlToken* token = getNextToken()) {
    if (token->getParenLevel() > level) continue;
    if (token->getTyp() == stop) return;
    if (token->getTyp() == separator) setNextNewline();
  }
}
