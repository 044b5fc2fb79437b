// Comment placement: a comment stays with the code that it is beside or above. What happens to an
// over-long comment is decided later, when lines are wrapped.
#include <algorithm>

#include "base/columns.h"
#include "scanner/vhdlscanner.h"

// Comments on consecutive lines of the source belong together.
void VhdlScanner::handleComment() {
  VhdlToken& comment = *anchorToken();
  const bool fresh = run.lastCommentLine + 1 != comment.getLineNo();
  if (fresh) run.commentColumn = settings.commentStartColumn;
  run.lastCommentLine = comment.getLineNo();
  if (prevIsNewline(0) == 1) {
    placeOwnLineComment(comment, fresh);
  } else {
    placeTrailingComment(comment);
  }
  endCommentLine();
}

// The line end is consumed, or the cursor would drop it.
void VhdlScanner::endCommentLine() {
  VhdlToken* after = stepForward();
  if (after == nullptr) return;
  if (after->getTyp() == T_NEWLINE) {
    after->setFormatText("\n");
  } else {  // a carriage return has ended the comment
    stepBack();
    setNextNewline();
  }
}

// A line of a delimited comment moves as far as the first line of the comment has moved.
// With VHDL 2008:
//     begin     | BEGIN
//     /* one    |     /* one
//       two */  |       two */
void VhdlScanner::placeWholeLine(VhdlToken& line) {
  const int typ = line.getTyp();
  const int column = getColumn(0);
  if (isToolLine(typ)) obeyDirective(line);
  if (typ == T_COMMENTLINE) line.setIndent(std::max(addColumns(column, run.blockShift), 0));
  if (typ == T_RAWLINE) line.setIndent(0);
  IndentLine(0);
  if (typ == T_BLOCKCOMMENT && prevIsNewline(0) == 0) placeTrailingComment(line);
  if (typ == T_BLOCKCOMMENT) run.blockShift = getColumn(1) - column;
  endCommentLine();
}

// Each branch starts from the state before the first, for only one of them is compiled.
// With VHDL 2008:
//     `if TOOL = "x" then  | `if TOOL = "x" then
//     process begin        | PROCESS
//     `else                | BEGIN
//     process (a) begin    | `else
//     `end                 | PROCESS (a)
//                          | BEGIN
//                          | `end
void VhdlScanner::obeyDirective(VhdlToken& directive) {
  const int typ = directive.getTyp();
  if (typ == T_IF_DIRECTIVE) {
    branches.push_back({indentStack.hold(), state});
    return;
  }
  if (branches.empty()) return;
  const Branching& start = branches.back();
  if (typ == T_ELSE_DIRECTIVE) {
    indentStack.goBackTo(start.place);
    state = start.state;
  }
  if (typ == T_ELSE_DIRECTIVE || typ == T_END_DIRECTIVE) directive.setIndent(start.state.indent);
  if (typ == T_END_DIRECTIVE) {
    indentStack.release();
    branches.pop_back();
  }
}

// At the indent of the code that follows. A comment that stood further right, directly below
// another, stays in line with that.
//     begin -- a  | BEGIN                                   -- a
//           -- b  |                                         -- b
//     -- c        |     -- c
void VhdlScanner::placeOwnLineComment(VhdlToken& comment, bool fresh) {
  if (!fresh && getColumn(0) > comment.getIndent()) {
    comment.setIndent(run.commentColumn);  // under the comment above
  } else {
    run.commentColumn = comment.getIndent();
  }
  IndentLine(0);
}

// In the column of the settings, or a blank after code that reaches it. With COMMENTSTART 12:
//     a <= b; -- one        | a <= b;    -- one
//     a <= b and c; -- two  | a <= b AND c; -- two
void VhdlScanner::placeTrailingComment(VhdlToken& comment) {
  comment.setIndent(settings.commentStartColumn);
  run.commentColumn = settings.commentStartColumn;
  setPrevSpaces(0);
  const int codeEnd = getColumn(1);
  if (codeEnd < run.commentColumn) {
    setPrevSpaces(run.commentColumn - codeEnd);
  } else {
    setPrevSpaces(1);
    run.commentColumn = codeEnd + 1;
  }
}
