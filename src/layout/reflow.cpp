// Comments beside and behind an over-long line: moved, drawn out, cut at blanks. A comment that is
// broken takes along the whole run of comments behind it.
#include <utility>

#include "scanner/vhdlscanner.h"

void VhdlScanner::BreakComment() {
  for (;;) {
    VhdlToken& comment = *findComment();
    placeLongComment(comment);
    const int column = getColumn(1);
    comment.setIndent(column);
    DynString rest;
    const bool isSplit =
        comment.stripComment(settings.lineWidth, settings.blockCommentCharacters.get(), rest);
    if (settings.extendComments == 1) {
      comment.alignComment(settings.lineWidth, settings.blockCommentCharacters.get(),
                           settings.frameBlockComments);
    }
    if (isSplit) {
      auto* piece = new VhdlToken(T_COMMENT, /*line*/ 0, /*level*/ 0, "");
      piece->setFormatText(std::move(rest));
      piece->setIndent(column);
      tokenList.addItemAnchor(piece);
      setPrevNewline();
      IndentLine(0);
    } else {
      stepForward();
      if (nextIsComment() == 0) return;
    }
    commentColumn = column;
  }
}

VhdlToken* VhdlScanner::findComment() {
  VhdlToken* token = anchorToken();
  while (token->getTyp() != T_COMMENT) token = stepForward();
  return token;
}

void VhdlScanner::placeLongComment(VhdlToken& comment) {
  const int column = getColumn(1);
  if (column < settings.commentStartColumn) return;
  if (commentColumn != 0) {
    comment.setIndent(commentColumn);
    IndentLine(0);
  } else if (settings.lineWidth - column < settings.minimumFieldWidth) {
    comment.setIndent(settings.commentStartColumn);
    setPrevNewline();
    IndentLine(0);
  }
}
