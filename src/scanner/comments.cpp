// Comment placement: a comment stays with the code that it stands beside or above. What becomes of
// a comment that is too long is decided later, when lines are wrapped.
#include "scanner/vhdlscanner.h"

void VhdlScanner::handleComment() {
  VhdlToken& comment = *anchorToken();
  const bool fresh = lastCommentLine + 1 != comment.getLineNo();
  if (fresh) commentColumn = settings.commentStartColumn;
  lastCommentLine = comment.getLineNo();
  if (prevIsNewline(0) == 1) {
    placeOwnLineComment(comment, fresh);
  } else {
    placeTrailingComment(comment);
  }
  VhdlToken* behind = stepForward();
  if (behind == nullptr) return;
  if (behind->getTyp() == T_NEWLINE) {
    behind->setFormatText("\n");
  } else {  // a carriage return has ended the comment
    stepBack();
    setNextNewline();
  }
}

void VhdlScanner::placeOwnLineComment(VhdlToken& comment, bool fresh) {
  if (!fresh && getColumn(0) > comment.getIndent()) {
    comment.setIndent(commentColumn);  // under the comment above
  } else {
    commentColumn = comment.getIndent();
  }
  IndentLine(0);
}

void VhdlScanner::placeTrailingComment(VhdlToken& comment) {
  comment.setIndent(settings.commentStartColumn);
  commentColumn = settings.commentStartColumn;
  setPrevSpaces(0);
  const int codeEnd = getColumn(1);
  if (codeEnd < commentColumn) {
    setPrevSpaces(commentColumn - codeEnd);
  } else {
    setPrevSpaces(1);
    commentColumn = codeEnd + 1;
  }
}
