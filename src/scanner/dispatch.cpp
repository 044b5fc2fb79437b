// The formatting pass. It has no grammar beyond the indent stack and a few flags: of the tokens not
// consumed by a handler, those that open a construct are dispatched to theirs.

#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

using Handler = void (VhdlScanner::*)();

}  // namespace

/** The handlers by token; a member so that it may name private ones. */
struct VhdlScanner::Dispatch {
  static constexpr TokenTable<Handler> handlers = [] {
    TokenTable<Handler> table(&VhdlScanner::Default);
    // clang-format off
    for (int typ = T_ASSUME; typ <= T_VUNIT; ++typ) table[typ] = &VhdlScanner::Identifier;
    table[T_ALIAS]              = &VhdlScanner::Alias;
    table[T_ARCHITECTURE]       = &VhdlScanner::Architecture;
    table[T_ARRAY]              = &VhdlScanner::Array;
    table[T_ASSERT]             = &VhdlScanner::Assert;
    table[T_ASSUME]             = &VhdlScanner::Directive;
    table[T_ASSUME_GUARANTEE]   = &VhdlScanner::CheckedDirective;
    table[T_ATTRIBUTE]          = &VhdlScanner::Attribute;
    table[T_BEGIN]              = &VhdlScanner::Begin;
    table[T_BLOCK]              = &VhdlScanner::Block;
    table[T_CASE]               = &VhdlScanner::Case;
    table[T_COMPONENT]          = &VhdlScanner::Component;
    table[T_CONFIGURATION]      = &VhdlScanner::Configuration;
    table[T_CONSTANT]           = &VhdlScanner::Constant;
    table[T_CONTEXT]            = &VhdlScanner::Context;
    table[T_COVER]              = &VhdlScanner::CheckedDirective;
    table[T_DEFAULT]            = &VhdlScanner::Directive;
    table[T_ELSE]               = &VhdlScanner::Else;
    table[T_ELSIF]              = &VhdlScanner::Elsif;
    table[T_END]                = &VhdlScanner::End;
    table[T_ENTITY]             = &VhdlScanner::Entity;
    table[T_FILE]               = &VhdlScanner::File;
    table[T_FOR]                = &VhdlScanner::For;
    table[T_FUNCTION]           = &VhdlScanner::Function;
    table[T_GENERIC]            = &VhdlScanner::Port;
    table[T_GROUP]              = &VhdlScanner::Group;
    table[T_IDENTIFIER]         = &VhdlScanner::Identifier;
    table[T_IF]                 = &VhdlScanner::If;
    table[T_IMPURE]             = &VhdlScanner::Impure;
    table[T_LBRACE]             = &VhdlScanner::LeftBrace;
    table[T_LBRACKET]           = &VhdlScanner::Bracket;
    table[T_LIBRARY]            = &VhdlScanner::Library;
    table[T_LOOP]               = &VhdlScanner::Loop;
    table[T_OPENEXTERNAL]       = &VhdlScanner::External;
    table[T_PACKAGE]            = &VhdlScanner::Package;
    table[T_PORT]               = &VhdlScanner::Port;
    table[T_POSTPONED]          = &VhdlScanner::PassOver;
    table[T_PRIVATE]            = &VhdlScanner::Private;
    table[T_PROCEDURE]          = &VhdlScanner::Procedure;
    table[T_PROCESS]            = &VhdlScanner::Process;
    table[T_PROPERTY]           = &VhdlScanner::Directive;
    table[T_PROTECTED]          = &VhdlScanner::Protected;
    table[T_PURE]               = &VhdlScanner::Pure;
    table[T_RBRACE]             = &VhdlScanner::RightBrace;
    table[T_RBRACKET]           = &VhdlScanner::Bracket;
    table[T_RECORD]             = &VhdlScanner::Record;
    table[T_REPORT]             = &VhdlScanner::Assert;
    table[T_RESTRICT]           = &VhdlScanner::Directive;
    table[T_RESTRICT_GUARANTEE] = &VhdlScanner::CheckedDirective;
    table[T_SEMICOLON]          = &VhdlScanner::SemiColon;
    table[T_SEQUENCE]           = &VhdlScanner::Directive;
    table[T_SHARED]             = &VhdlScanner::PassOver;
    table[T_SIGASSIGN]          = &VhdlScanner::SignalAssignment;
    table[T_SIGNAL]             = &VhdlScanner::Signal;
    table[T_TYPE]               = &VhdlScanner::Type;
    table[T_UNITS]              = &VhdlScanner::Unit;
    table[T_USE]                = &VhdlScanner::Use;
    table[T_VARASSIGN]          = &VhdlScanner::VariableAssignment;
    table[T_VARIABLE]           = &VhdlScanner::Variable;
    table[T_VIEW]               = &VhdlScanner::View;
    table[T_WAIT]               = &VhdlScanner::Wait;
    table[T_WHEN]               = &VhdlScanner::When;
    table[T_WHILE]              = &VhdlScanner::While;
    table[T_WITH]               = &VhdlScanner::SelectedSignalAssignment;
    // clang-format on
    return table;
  }();
};

void VhdlScanner::Format() {
  addSentinel();
  tokenList.getFirst();
  while (const VhdlToken* token = getNextToken()) {
    (this->*Dispatch::handlers[token->getTyp()])();
  }
}

// Any word opens a statement if none is open: `null;`, `exit;`, `subtype word is bit_vector;`.
void VhdlScanner::Default() { setIdentifierIndent(); }

// What continues a call stands under its first argument. With LINEWIDTH 30:
//     put(first_word, second_word, c);  | put(first_word, second_word,
//                                       |     c);
void VhdlScanner::Identifier() {
  setIdentifierIndent();
  if (LookForward(1) != T_LPAREN) return;
  getNextToken();
  ParameterList();
}

// The level is that of the first token: in `f((a), b)` the inner parenthesis ends the list, and
// what follows is indented as the statement.
void VhdlScanner::ParameterList() {
  IndentLine(0);
  setIndent(addColumns(getColumn(1), 1), /*relative*/ 0);
  const VhdlToken* token = getNextToken();
  if (token == nullptr) return;
  const int level = token->getParenLevel();
  for (; token != nullptr; token = getNextToken()) {
    if (token->getTyp() == T_RPAREN && token->getParenLevel() == level) {
      popIndent();
      return;
    }
  }
}

// `cover {a; b};` does, `cover <= a;` does not.
bool VhdlScanner::opensStatement() {
  if (state.statementClosed == 0 && prevIsLabel() == 0) return false;
  switch (LookForward(1)) {
    case T_ATTRIBUTE_NAME:
    case T_COLON:
    case T_COMMA:
    case T_DELIMITER:
    case T_DOT:
    case T_SEMICOLON:
    case T_SIGASSIGN:
    case T_TICK:
    case T_VARASSIGN: return false;
    default: return true;
  }
}

// With VHDL 2008:
//     a <= <<signal .tb.dut.s : bit>>;  | a <= << SIGNAL .tb.dut.s: bit >>;
void VhdlScanner::External() {
  setIdentifierIndent();
  if (!waitFor(T_CLOSEEXTERNAL, T_SEMICOLON)) return;
  if (anchorToken()->getTyp() == T_SEMICOLON) SemiColon();
}

// The end of a statement that no handler has read up to here, and whose level its first token
// opened.
void VhdlScanner::SemiColon() {
  if (indentStack.kind() == LEVEL_CONDITION) popIndent();
  endStatement();
}

//     alias a is b [bit return bit];  | ALIAS    a IS b[ bit RETURN bit];
void VhdlScanner::Bracket() {
  setPrevSpaces(0);
  setNextSpaces(1);
}

void VhdlScanner::waitForSemiColon() { waitFor(T_SEMICOLON, T_SEMICOLON); }

void VhdlScanner::finishStatement() {
  waitForSemiColon();
  endStatement();
}

void VhdlScanner::waitForParenClose(int level) {
  while (const VhdlToken* token = getNextToken()) {
    if (token->getTyp() == T_RPAREN && token->getParenLevel() == level) return;
  }
}

// Words on the way are not dispatched: they only get their blanks and their indent.
bool VhdlScanner::waitFor(int typ, int orTyp) {
  for (;;) {
    const int next = getNextTokenTyp();
    if (next == typ || next == orTyp) return true;
    if (next == T_EOF) return false;
  }
}

int VhdlScanner::determineContext() {
  context = {anchorToken(), findContext()};
  return context.typ;
}

// There is a colon before the token in `variable v : word := x;` and `lab : v := x;`, none in `v :=
// x;`.
int VhdlScanner::findContext() const {
  const VhdlToken* token = anchorToken();
  while (token != nullptr && (token = token->getPrev()) != nullptr) {
    if (token == context.at) return context.typ;  // the tokens before it don't change
    switch (token->getTyp()) {
      case T_COLON: return T_COLON;
      case T_ALIAS:
      case T_COMMA:
      case T_CONSTANT:
      case T_DOWNTO:
      case T_FILE:
      case T_GROUP:
      case T_NEWLINE:
      case T_SEMICOLON:
      case T_SIGNAL:
      case T_VARIABLE: return -1;
      default: break;
    }
  }
  return -1;
}
