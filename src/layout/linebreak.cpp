// Wrapping: the pass walks the list once and keeps every line within lineWidth columns. A line is
// broken only between two tokens, after the one with the best score among those left of the token
// that overflows. Everything that shapes a continuation line is already in the tokens: the indent
// at which each one starts a line, and its gravity.
//
// Nothing is updated beyond the next overflow: columns are counted as tokens are visited, and the
// shifts of indents wait until a token is reached.
#include <cassert>

#include "base/columns.h"
#include "layout/pendingshifts.h"
#include "scanner/vhdlscanner.h"

/** The line that the pass is on. After a break, the tokens from there to the one that overflowed
   are visited a second time: `reached` is the furthest token visited so far, and `isNew` says that
   the pass is past it. */
struct VhdlScanner::LineInHand {
  long long width = 0;         // bytes of the tokens visited, including the current one
  long long extraColumns = 0;  // that tabs and redrawn comments before it take, beyond their bytes
  bool isNew = true;           // is the current token visited for the first time?
  VhdlToken* reached = nullptr;              // the tokens after it await `shifts`
  PendingShifts shifts;                      // for the rest of the line
  VhdlToken* unbreakableUpTo = nullptr;      // a token with no place to break left of it
  const VhdlToken* brokenComment = nullptr;  // the last one broken instead of its code

  /** Updates the indent of the token after the furthest one. */
  void reach(VhdlToken& token) {
    reached = &token;
    if (shifts.concern(token.getIndent())) token.setIndent(shifts.apply(token.getIndent()));
  }
  void visit(VhdlToken& token) {
    if (isNew) {
      reach(token);
    } else {
      isNew = &token == reached;
    }
  }
  /** The token visited next starts a line, or is measured as if it did. */
  void start(bool nextIsNew) {
    width = 0;
    extraColumns = 0;
    isNew = nextIsNew;
    unbreakableUpTo = nullptr;
  }
};

namespace {

bool isBlank(const VhdlToken& token) {
  return token.getTyp() == T_WHITESPACE || token.getTyp() == T_NEWLINE;
}

/** The comment at a token, or after it with only blanks in between; else null. */
const VhdlToken* commentAt(const VhdlToken& place) {
  const VhdlToken* token = &place;
  do {
    token = token->getNext();
  } while (typAt(token) == T_WHITESPACE);
  if (typAt(token) != T_COMMENT) return nullptr;
  return place.getTyp() == T_COMMENT ? &place : token;
}

/** Updates the columns after a token as far as a break before it needs them: over blanks, which the
    break removes, to the first token after them. */
void SetColumnsInLine(VhdlToken* token) {
  int column = token->getColumn();
  while (isBlank(*token) && !isLineEnd(*token, 1)) {
    column = addColumns(column, token->textLength(1));
    token = token->getNext();
    if (token == nullptr) return;
    token->setColumn(column);
  }
}

/** The best token to break after, left of the overflow on its line, or null. The search ends at
    `unbreakableUpTo`, left of which there is none. */
VhdlToken* findBreak(const VhdlToken& overflow, const VhdlToken* unbreakableUpTo) {
  if (isBlockComment(overflow.getTyp())) return nullptr;  // it stays beside its code
  VhdlToken* candidate = nullptr;
  int best = 0;
  bool isBlocked = false;
  const VhdlToken* follower = &overflow;
  while (follower->getColumn() != 0) {  // the first token of a line is scored too
    VhdlToken* token = follower->getPrev();
    int score = token->getWrapGravity(follower->getIndent());
    if (isBlocked && score > 0) score = 0;
    isBlocked = score == -1;
    if (score > best) {  // of equal scores the rightmost wins
      best = score;
      candidate = token;
    }
    if (token == unbreakableUpTo) break;
    follower = token;
  }
  return candidate;
}

}  // namespace

void VhdlScanner::LineBreak() {
  ruler.forget();
  run.reflowColumn = run.commentColumn;
  LineInHand line;
  bool isWrapping = true;
  VhdlToken* token = tokenList.getFirst();
  while ((token = token->getNext()) != nullptr) {
    if (isLineEnd(*token, 1)) {
      line.start(/*nextIsNew*/ true);
      line.shifts.clear();
      continue;
    }
    const int typ = token->getTyp();
    const int length = token->textLength(1);
    line.visit(*token);
    token->setColumn(static_cast<int>(line.width));
    line.width += length;
    const bool isPlain = !isComment(typ) && !token->holdsTabs();
    if (!isPlain) {
      if (isPragma(typ)) isWrapping = typ == T_FORMAT_ON || typ == T_INDENT_ON;
      if (typ == T_COMMENT && isWrapping) drawOutComment(*token);
    }
    if (line.width > settings.lineWidth && isWrapping) {
      VhdlToken* visited = WrapLine(*token, line);
      if (visited != nullptr) {
        token = visited;
        continue;
      }
    }
    if (!isPlain) line.extraColumns += countColumns(*token, 1, settings.indentation) - length;
  }
  run.commentColumn = run.reflowColumn;
}

// A comment at the start of a line is the first of its run. With LINEWIDTH 24:
//     -- Title ====  | -- Title ===============
void VhdlScanner::drawOutComment(VhdlToken& comment) {
  tokenList.setAnchor(&comment);
  if (prevIsNewline(1) == 1) run.reflowColumn = RunState::noColumn;
  if (settings.extendComments == 1) {
    comment.alignComment(settings.lineWidth, settings.blockCommentCharacters.view(),
                         settings.frameBlockComments, tokenList.getArena());
  }
}

// With LINEWIDTH 24:
//     sum := weigh(first, second);  | sum := weigh(first,
//                                   |              second);
VhdlToken* VhdlScanner::WrapLine(VhdlToken& overflow, LineInHand& line) {
  // An emptied blank after an unbreakable line: a break before it would remove the line end.
  if (isModern() && overflow.textLength(1) == 0) return nullptr;
  overflow.setColumn(saturated(overflow.getColumn() + line.extraColumns));
  assert(overflow.getColumn() == ruler.read(&overflow, settings.indentation).column);
  VhdlToken* candidate = findBreak(overflow, line.unbreakableUpTo);
  const VhdlToken* comment = candidate == nullptr ? nullptr : commentAt(*candidate);
  if (candidate != nullptr && comment == nullptr) {
    SetColumnsInLine(&overflow);
    return breakAfter(*candidate, line);
  }
  // If a carriage return joins two comments on one line, the second leads back to the first. It is
  // broken once; after that the line counts as having no place to break.
  const bool isStuck = comment != nullptr && comment == line.brokenComment;
  if (comment != nullptr && !isStuck) {
    finishLine(overflow, line);
    line.brokenComment = comment;
    run.reflowColumn = RunState::noColumn;
    return breakComments(*candidate, line);
  }
  if (overflow.getTyp() == T_COMMENT) {
    finishLine(overflow, line);
    return breakComments(overflow, line);
  }
  line.unbreakableUpTo = isStuck ? nullptr : &overflow;
  return nullptr;
}

// Blanks and line ends after the break are emptied. If that joins the next line to this one, the
// shifts end here: they are not meant for it.
VhdlToken* VhdlScanner::breakAfter(VhdlToken& candidate, LineInHand& line) {
  if (candidate.getTyp() == T_WHITESPACE) candidate.setFormatText("");
  VhdlToken* lineEnd = tokenList.addItemAfter(candidate, T_NEWLINE, /*level*/ 0);
  lineEnd->setFormatText("\n");
  ruler.forget();
  bool isNew = false;
  bool isDrawnUp = false;  // is the next line joined to this one?
  VhdlToken* first = lineEnd->getNext();
  for (; first != nullptr; first = first->getNext()) {
    if (isNew) line.reach(*first);
    isNew = isNew || first == line.reached;
    if (!isBlank(*first)) break;
    if (isLineEnd(*first, 1)) {
      line.shifts.clear();
      isDrawnUp = true;
    }
    first->setFormatText("");
  }
  if (first != nullptr) {
    if (isDrawnUp) first->setColumn(0);  // columns of that line have not been counted yet
    tokenList.setAnchor(first);
    IndentLine(0);
    ReindentLine(*first, line);
  }
  line.start(/*nextIsNew*/ false);
  return lineEnd;
}

// `second` is stamped with the column after its parenthesis. The break before `weigh` moves that
// column, and so the indents of all that stands right of the break. With LINEWIDTH 32:
//     total := first_one + weigh(second, third);  | total := first_one +
//                                                 |          weigh(second, third);
void VhdlScanner::ReindentLine(const VhdlToken& first, LineInHand& line) {
  const int limit = first.getColumn();
  const int shift = limit - first.getIndent();
  if (shift == 0) return;
  if (&first != line.reached) {
    for (VhdlToken* token = first.getNext();; token = token->getNext()) {
      if (token->getIndent() > limit) token->setIndent(addColumns(token->getIndent(), -shift));
      if (token == line.reached) break;
    }
  }
  line.shifts.add(limit, shift);
}

// A comment is about to be broken in place of the code. The pass does not come back to this line,
// so the rest of it is measured here.
void VhdlScanner::finishLine(const VhdlToken& overflow, LineInHand& line) {
  int column = addColumns(overflow.getColumn(), overflow.textLength(1));
  bool isNew = &overflow == line.reached;
  if (!isLineEnd(overflow, 1)) {
    for (VhdlToken* token = overflow.getNext(); token != nullptr; token = token->getNext()) {
      if (isNew) line.reach(*token);
      token->setColumn(column);
      column = addColumns(column, countColumns(*token, 1, settings.indentation));
      if (isLineEnd(*token, 1)) break;
      isNew = isNew || token == line.reached;
    }
  }
  line.shifts.clear();
}

VhdlToken* VhdlScanner::breakComments(VhdlToken& place, LineInHand& line) {
  ruler.forget();  // the comment may be one already passed
  tokenList.setAnchor(&place);
  BreakComment();
  line.start(/*nextIsNew*/ true);
  VhdlToken* last = anchorToken();
  if (!isLineEnd(*last, 1)) {
    line.extraColumns = getColumn(1);  // width restarts at 0 here, as at the start of a line
    line.extraColumns += countColumns(*last, 1, settings.indentation);
  }
  return last;
}
