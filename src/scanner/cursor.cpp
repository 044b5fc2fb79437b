// The cursor: everything done to a token whatever its statement. A handler reads on by calling
// getNextToken, which consumes; looking ahead (lookahead.h, LookForward) consumes nothing.
#include "scanner/vhdlscanner.h"

namespace {

constexpr int kept = 99;  // in the table below: left alone

/** How a token is spaced as it is read. */
struct Spacing {
  int before = kept;   // blanks
  int after = kept;    // blanks
  int gravity = kept;  // priority of a line break after it; 0: no break; -1: nor directly before it
};

constexpr auto spacings = [] {
  TokenTable<Spacing> table(Spacing{});
  // clang-format off
  table[T_COLON]              = {0,    1,       6};
  table[T_COMMA]              = {0,    1,      10};
  table[T_DOT]                = {0,    0,      -1};
  table[T_EQUAL]              = {1,    1,       5};
  table[T_LPAREN]             = {kept, 0,       0};
  table[T_RPAREN]             = {0,    kept,    4};
  table[T_SEMICOLON]          = {0,    kept,   10};
  table[T_VARASSIGN]          = {1,    1,      -1};
  table[T_ARROW]              = {1,    1,       5};
  table[T_SIGASSIGN]          = {kept, 1,    kept};
  table[T_MATCHEQUAL]         = {1,    1,       5};
  table[T_OPENEXTERNAL]       = {kept, 1,       0};
  table[T_CLOSEEXTERNAL]      = {1,    kept,    4};
  table[T_PATHDOT]            = {1,    0,      -1};
  table[T_LBRACE]             = {1,    kept, kept};
  table[T_SEQUENCE_SEMICOLON] = {0,    kept,    4};
  table[T_DECIMAL]            = {kept, kept,    0};
  table[T_BASED]              = {kept, kept,    0};
  // clang-format on
  return table;
}();

constexpr Spacing calledName = {kept, 0, 0};

}  // namespace

// Blanks as the table has them, where it has any, and as in the source elsewhere.
//     a<=f (b , c)+d ;  | a <= f(b, c)+d;
VhdlToken* VhdlScanner::getNextToken() {
  while (VhdlToken* token = stepForward()) {
    token->setIndent(state.indent);
    const int typ = token->getTyp();
    if (typ == T_WHITESPACE) {
      singleSpace();
    } else if (typ == T_NEWLINE) {
      passNewline();
    } else if (isComment(typ)) {
      passComment(*token);
    } else {
      const bool isCalled = typ == T_IDENTIFIER && LookForward(1) == T_LPAREN;
      const Spacing& spacing = isCalled ? calledName : spacings[typ];
      if (spacing.before != kept) setPrevSpaces(spacing.before);
      if (spacing.after != kept) setNextSpaces(spacing.after);
      if (spacing.gravity != kept) token->setGravity(spacing.gravity);
      stopIndex.pass(tokenList.getAnchor());
      return token;
    }
  }
  return nullptr;
}

int VhdlScanner::getNextTokenTyp() {
  const VhdlToken* token = getNextToken();
  return token == nullptr ? static_cast<int>(T_EOF) : token->getTyp();
}

// A line end of the source becomes a blank, unless a comment or an empty line keeps it.
//     a <= b and  | a <= b AND c;
//          c;     |
//                 | d <=                                    -- e
//     d <= -- e   |      f;
//          f;     |
void VhdlScanner::passNewline() {
  deleteNewline();
  setPrevSpaces(0);
  setNextSpaces(prevIs(T_LPAREN) == 1 ? 0 : 1);
}

void VhdlScanner::passComment(VhdlToken& comment) {
  const int typ = comment.getTyp();
  if (typ == T_INLINECOMMENT) return;
  if (isBlockComment(typ) || isToolLine(typ)) {
    placeWholeLine(comment);
    return;
  }
  // The blanks before these still print formatted, so the comment keeps its source column.
  if (typ == T_FORMAT_OFF || typ == T_INDENT_OFF) comment.setIndent(getColumn(0));
  IndentLine(0);
  handleComment();
}
