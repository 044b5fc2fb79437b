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
constexpr int checkedWords = 256;  // tokens; as far as a debug build checks their column

/** Do the words of a list have the blanks that put what follows them into one column? */
[[maybe_unused]] bool hasWordColumn(const VhdlToken* ahead, int level, WordKind kind, int widest) {
  const VhdlToken* token = ahead;
  for (int steps = 0; steps < checkedWords; ++steps, token = token->getNext()) {
    if (token == nullptr || endsList(*token, level)) return true;
    const int width = wordWidth(kind, token->getTyp());
    const VhdlToken* blank = token->getNext();
    if (width == 0 || blank == nullptr || blank->getTyp() == T_EOF) continue;
    if (blank->getTyp() != T_WHITESPACE || blank->textLength(1) != widest - width + 1) return false;
  }
  return true;
}

}  // namespace

void VhdlScanner::alignAt(int width) {
  IndentLine(0);
  setPrevSpaces(std::max(addColumns(addColumns(width, state.indent), -getColumn(1)), 1));
}

void VhdlScanner::endEntry() {
  setPrevSpaces(0);
  setNextNewline();
}

//     port (a : in bit;     | PORT (
//     data : buffer word);  |     a    : IN     bit;
//                           |     data : BUFFER word
//                           | );
// With INTERFACEIDENTIFIERLIST LIST:
//     port (a : in bit;     | PORT (
//     data : buffer word);  |     a: IN bit; data: BUFFER word);
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

// In style B the parenthesis has a line of its own.
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

// The semicolon of an instance is left to the pass, which closes the level of the label. That of a
// map in a header closes nothing and is consumed here. In the header of a block, it does not even
// end its line unless BLOCKHEADER is WRAPPED.
//     u1 : cell generic map (8)  | u1: cell
//     port map (a => x);         |     GENERIC MAP (
//                                |         8
//                                |     )
//                                |     PORT MAP (
//                                |         a => x
//                                |     );
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

// Every comma and semicolon ends a line, however deep. Colons stand one blank after the longest
// name; an over-long name has one blank after it.
//     port (signal clk, rst : in bit;  | PORT (
//     constant n : in natural);        |     SIGNAL   clk,
//                                      |     rst          : IN bit;
//                                      |     CONSTANT n   : IN natural
//                                      | );
// NOLINTNEXTLINE(misc-no-recursion): parameters hold no subprograms
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

// Its commas, colons and semicolons are not those of the list that it is in. With VHDL 2008:
//     generic (function f     | GENERIC (
//       (a : t; n : natural)  |     FUNCTION f(a : t;
//       return t is <>);      |                n : natural) RETURN t IS <>
//                             | );
// NOLINTNEXTLINE(misc-no-recursion): parameters hold no subprograms
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

// With VHDL 2008:
//     generic (package p is new work.q  | GENERIC (
//     generic map (<>); n : natural);   |     PACKAGE p IS NEW work.q GENERIC MAP (<>);
//                                       |     n : natural
//                                       | );
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

// T_EOF says that the list never ends. It could be a width as well: a list whose longest name has
// T_EOF - 1 columns is taken for one that is left open.
int VhdlScanner::LongestInterfaceIdentifier(int limit) {
  const VhdlToken* cursor = anchorToken();
  const int level = getParenLevel();
  lookForInOutLinkage();
  const int classColumn = lookForSignalConstantVariable();
  if (cursor == nullptr || isLeftOpen(level)) return T_EOF;
  if (stopIndex.knowsNames(limit)) return stopIndex.longestName(cursor, level, classColumn) + 1;
  const Measure longest = measureNames(cursor->getNext(), level, classColumn, limit);
  stopIndex.record(cursor, longest);
  return longest.end == nullptr ? static_cast<int>(T_EOF) : longest.value + 1;
}

bool VhdlScanner::isLeftOpen(int level) const {
  return stopIndex.isBuilt() && !stopIndex.hasListEnd(anchorToken(), level);
}

void VhdlScanner::lookForInOutLinkage() { setWordColumn(MODE_WORD); }

int VhdlScanner::lookForSignalConstantVariable() { return setWordColumn(CLASS_WORD); }

int VhdlScanner::setWordColumn(WordKind kind) {
  const int level = getParenLevel();
  if (anchorToken() == nullptr) return 0;
  if (stopIndex.isBuilt()) return setIndexedWordColumn(level, kind);
  const int widest = measureWords(peekForward(), level, kind);
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
  const VhdlToken* cursor = anchorToken();
  const int widest = stopIndex.widestWord(cursor, level, kind);
  {
    const AnchorGuard guard(tokenList);
    for (VhdlToken* word : stopIndex.wordsToSet(cursor, level, kind)) {
      tokenList.setAnchor(word);
      setNextSpaces(widest - wordWidth(kind, typAt(word)) + 1);
    }
  }
  assert(hasWordColumn(cursor->getNext(), level, kind, widest));
  return widest;
}

// Arrows stand one blank after the longest formal, entries without one under the actuals of the
// others.
//     u1 : cell port map       | u1: cell
//     (a => x, data => y, z);  |     PORT MAP (
//                              |         a    => x,
//                              |         data => y,
//                              |                 z
//                              |     );
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
  const VhdlToken* cursor = anchorToken();
  const int level = getParenLevel();
  if (cursor == nullptr || isLeftOpen(level)) return T_EOF;
  const Measure longest = measureFormals(cursor->getNext(), level, settings.identLength, hasArrow);
  if (longest.end != nullptr) return longest.value + 2;
  stopIndex.build(cursor);
  return T_EOF;
}

int VhdlScanner::CountListEntries(int level, int separator, int stop) {
  const VhdlToken* cursor = anchorToken();
  if (cursor == nullptr) return 0;
  if (stopIndex.isBuilt()) {
    assert(separator == T_COMMA);  // the only separator that is indexed
    return stopIndex.countEntries(cursor, level, stop);
  }
  const Measure entries = countEntries(cursor->getNext(), level, separator, stop);
  stopIndex.record(cursor, entries);
  return entries.value;
}

void VhdlScanner::WrappedList(int level, int separator, int stop) {
  while (const VhdlToken* token = getNextToken()) {
    if (token->getParenLevel() > level) continue;
    if (token->getTyp() == stop) return;
    if (token->getTyp() == separator) setNextNewline();
  }
}
