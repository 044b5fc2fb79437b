// Comment placement: a comment stays with the code that it is beside or above. What happens to an
// over-long comment is decided later, when lines are wrapped.
#include <algorithm>

#include "base/columns.h"
#include "scanner/vhdlscanner.h"

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

void VhdlScanner::endCommentLine() {
  VhdlToken* behind = stepForward();
  if (behind == nullptr) return;
  if (behind->getTyp() == T_NEWLINE) {
    behind->setFormatText("\n");
  } else {  // a carriage return has ended the comment
    stepBack();
    setNextNewline();
  }
}

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

void VhdlScanner::placeOwnLineComment(VhdlToken& comment, bool fresh) {
  if (!fresh && getColumn(0) > comment.getIndent()) {
    comment.setIndent(run.commentColumn);  // under the comment above
  } else {
    run.commentColumn = comment.getIndent();
  }
  IndentLine(0);
}

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
