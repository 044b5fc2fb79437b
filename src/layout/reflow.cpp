// Comments beside and after an over-long line: moved, extended, split at blanks. Breaking a comment
// takes the whole run of comments after it along.
#include "scanner/vhdlscanner.h"

// The pieces of a comment are in one column. So are all comments that follow with no code between
// them. With LINEWIDTH 28 COMMENTSTART 13:
//     a <= b;     -- one two three        | a <= b;     -- one two three
//                 -- four five six seven  |             -- four five six
//                                         |             -- seven
void VhdlScanner::BreakComment() {
  for (;;) {
    VhdlToken& comment = *findComment();
    placeLongComment(comment);
    const int column = getColumn(1);
    comment.setIndent(column);
    Arena& arena = tokenList.getArena();
    const std::string_view frame = settings.blockCommentCharacters.view();
    const std::span<char> rest = comment.stripComment(settings.lineWidth, frame, arena);
    if (settings.extendComments == 1) {
      comment.alignComment(settings.lineWidth, frame, settings.frameBlockComments, arena);
    }
    if (!rest.empty()) {
      VhdlToken* piece = tokenList.addItemAnchor(T_COMMENT, /*level*/ 0);
      piece->setFormatText(rest, arena);
      piece->setIndent(column);
      setPrevNewline();
      IndentLine(0);
    } else {
      stepForward();
      if (nextIsComment() == 0) return;
    }
    run.reflowColumn = column;
  }
}

VhdlToken* VhdlScanner::findComment() {
  VhdlToken* token = anchorToken();
  while (token->getTyp() != T_COMMENT) token = stepForward();
  return token;
}

// Under the comment above if there is one. Else a comment with little room beside its code goes to
// a line of its own. With LINEWIDTH 24 COMMENTSTART 13:
//     a <= b and c; -- one two three  | a <= b AND c;
//                                     |             -- one two
//                                     |             -- three
void VhdlScanner::placeLongComment(VhdlToken& comment) {
  const int column = getColumn(1);
  if (column < settings.commentStartColumn) return;
  if (run.reflowColumn != RunState::noColumn) {
    comment.setIndent(run.reflowColumn);
    IndentLine(0);
  } else if (settings.lineWidth - column < Settings::minimumFieldWidth) {
    comment.setIndent(settings.commentStartColumn);
    setPrevNewline();
    IndentLine(0);
  }
}
