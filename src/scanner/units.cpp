// Design units and structures: library and use clauses, unit heads, components, blocks, processes,
// `begin` and `end`. A head pushes one indent for its body, `begin` replaces it, `end` pops it, so
// that a structure leaves the stack as it found it.
#include "scanner/peek.h"
#include "scanner/vhdlscanner.h"

namespace {

// Continuation of a clause under its first entry: the length of the word and a blank.
constexpr int libraryContinuation = 8;
constexpr int useContinuation = 4;

}  // namespace

bool VhdlScanner::readHead(std::initializer_list<int> head) {
  for (const int typ : head) {
    if (getNextTokenTyp() != typ) return false;
  }
  return true;
}

void VhdlScanner::Entity() {
  if (isInstantiated()) return;
  setIndent(settings.indentation, /*relative*/ 1);
  if (readHead({T_IDENTIFIER, T_IS})) endHead();
}

void VhdlScanner::Architecture() {
  setIndent(settings.indentation, /*relative*/ 1);
  if (readHead({T_IDENTIFIER, T_OF, T_IDENTIFIER, T_IS})) endHead();
}

void VhdlScanner::Configuration() {
  if (isInstantiated()) return;
  setIndent(settings.indentation, /*relative*/ 1);
  if (!readHead({T_IDENTIFIER, T_OF, T_IDENTIFIER, T_IS})) return;
  inConfiguration = 1;
  endHead();
}

void VhdlScanner::Package() {
  setIndent(settings.indentation, /*relative*/ 1);
  int name = getNextTokenTyp();
  if (name == T_BODY) name = getNextTokenTyp();
  if (name == T_IDENTIFIER && readHead({T_IS})) endHead();
}

void VhdlScanner::Component() {
  if (isInstantiated()) return;
  setIndent(settings.indentation, /*relative*/ 1);
  if (!readHead({T_IDENTIFIER})) return;
  if (peekTokenTyp() == T_IS) getNextToken();
  endHead();
}

int VhdlScanner::peekTokenTyp() {
  const Peek peek(*this);
  return getNextTokenTyp();
}

void VhdlScanner::Library() { nameClause(libraryContinuation); }

void VhdlScanner::Use() { nameClause(useContinuation); }

void VhdlScanner::nameClause(int continuation) {
  if (settings.style == C_A) {
    StatementOpen();
    setIndent(continuation, /*relative*/ 1);
    return;
  }
  const int level = getParenLevel();
  setIndent(settings.indentation, /*relative*/ 1);
  if (CountListEntries(level, T_COMMA, T_SEMICOLON) < 2) return;
  setNextNewline();
  WrappedList(level, T_COMMA, T_SEMICOLON);
  setNextNewline();
  popIndent();
}

void VhdlScanner::Block() {
  indentUnlessLabelled();
  inBlockHeader = 1;
}

void VhdlScanner::Process() {
  indentUnlessLabelled();
  const int next = LookForward(1);
  if (next == T_LPAREN || next == T_IS) {
    const VhdlToken* token = getNextToken();
    if (token == nullptr) return;
    if (token->getTyp() == T_LPAREN) {
      waitForParenClose(token->getParenLevel());
      if (LookForward(1) == T_IS) getNextToken();
    }
  }
  endHead();
}

void VhdlScanner::Begin() {
  if (inBlockHeader == 1) setPrevNewline();  // nothing in a block's header ends its line
  popTokenIndent();
  setNextNewline();
  setIndent(settings.indentation, /*relative*/ 1, LEVEL_BODY);
  StatementClosed();
  inBlockHeader = 0;
}

void VhdlScanner::End() {
  popTokenIndent();
  setIndent(settings.indentation, /*relative*/ 1);
  waitForSemiColon();
  popIndent();
  endLine();
}
