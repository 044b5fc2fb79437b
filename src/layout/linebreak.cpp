// Wrapping: the pass walks the list once and keeps every line within lineWidth columns. A line is
// broken between two tokens only, behind the one with the best score among those left of the token
// that overflows. All that shapes a continuation line stands in the tokens already: the indent at
// which each one starts a line, and its gravity.
//
// Nothing is brought up to date further than the next overflow: columns are counted along as tokens
// are visited, and the shifts of indents wait until a token is reached.
#include <cassert>

#include "base/columns.h"
#include "layout/pendingshifts.h"
#include "scanner/vhdlscanner.h"

/** The line that the pass is on. */
struct VhdlScanner::LineInHand {
  long long width = 0;    // bytes of the tokens visited, the one under the anchor included
  long long surplus = 0;  // columns that tabs and redrawn comments before the anchor add to them
  bool isNew = true;      // is the token under the anchor visited for the first time?
  OldListRefItem* reached = nullptr;  // the furthest token visited; those behind it await `shifts`
  OldListRefItem* unmeasured = nullptr;  // the first token passed over whose column is not set yet
  long long unmeasuredWidth = 0;         // bytes before that one
  PendingShifts shifts;                  // for the rest of the line
  OldListRefItem* hopeless = nullptr;    // a token on this line, with no place to break left of it
  const VhdlToken* brokenComment = nullptr;  // the last one that was broken instead of its code

  /** Brings the indent of the token behind the furthest one up to date. */
  void reach(OldListRefItem* node) {
    reached = node;
    if (shifts.isEmpty()) return;
    VhdlToken& token = tokenAt(node);
    token.setIndent(shifts.apply(token.getIndent()));
  }
  void visit(OldListRefItem* node) {
    if (isNew) {
      reach(node);
    } else {
      isNew = node == reached;
    }
  }
  /** The token visited next starts a line, or is measured as if it did. */
  void start(bool nextIsNew) {
    width = 0;
    surplus = 0;
    isNew = nextIsNew;
    hopeless = nullptr;
    unmeasured = nullptr;
  }
  /** Passes over the tokens behind a node that need nothing as long as the line fits. Returns the
     last of them, or the node itself. */
  OldListRefItem* passPlainTokens(OldListRefItem* node, int limit);
  /** Sets the columns of the tokens that were passed over, up to a node. */
  void measure(const OldListRefItem* end);
};

namespace {

/** Tokens that need no more than to be counted as long as the line fits. */
constexpr auto plainTokens = [] {
  TokenTable<bool> plain(true);
  for (const int typ : {T_NEWLINE, T_COMMENT, T_FORMAT_ON, T_FORMAT_OFF, T_INDENT_ON, T_INDENT_OFF,
                        T_STRING, T_CHARACTER}) {
    plain[typ] = false;
  }
  return plain;
}();

bool isPlain(const VhdlToken& token) { return plainTokens[token.getTyp()] && !token.isExtended(); }

bool isBlank(const VhdlToken& token) {
  return token.getTyp() == T_WHITESPACE || token.getTyp() == T_NEWLINE;
}

}  // namespace

OldListRefItem* VhdlScanner::LineInHand::passPlainTokens(OldListRefItem* node, int limit) {
  if (!isNew || !shifts.isEmpty()) return node;
  if (unmeasured == nullptr) {
    unmeasured = node->getNext();
    unmeasuredWidth = width;
  }
  for (OldListRefItem* next = node->getNext(); next != nullptr; next = next->getNext()) {
    const VhdlToken& token = tokenAt(next);
    const long long wider = width + token.textLength(1);
    if (!isPlain(token) || wider > limit) break;
    width = wider;
    node = next;
  }
  return node;
}

void VhdlScanner::LineInHand::measure(const OldListRefItem* end) {
  if (unmeasured == nullptr) return;
  long long column = unmeasuredWidth;
  for (OldListRefItem* node = unmeasured; node != end; node = node->getNext()) {
    VhdlToken& token = tokenAt(node);
    token.setColumn(static_cast<int>(column));
    column += token.textLength(1);
  }
  unmeasured = nullptr;
}

void VhdlScanner::LineBreak() {
  ruler.forget();
  LineInHand line;
  bool isWrapping = true;
  tokenList.getFirst();
  for (;;) {
    tokenList.setAnchorNode(line.passPlainTokens(tokenList.getAnchorNode(), settings.lineWidth));
    VhdlToken* token = stepForward();
    if (token == nullptr) break;
    const int typ = token->getTyp();
    const int length = token->textLength(1);
    if (typ == T_NEWLINE && length > 0) {
      line.start(/*nextIsNew*/ true);
      line.shifts.clear();
      continue;
    }
    line.measure(tokenList.getAnchorNode());
    line.visit(tokenList.getAnchorNode());
    token->setColumn(static_cast<int>(line.width));
    line.width += length;
    if (isPragma(typ)) isWrapping = typ == T_FORMAT_ON || typ == T_INDENT_ON;
    if (typ == T_COMMENT && isWrapping) drawOutComment(*token);
    if (line.width > settings.lineWidth && isWrapping && WrapLine(line) == 0) continue;
    line.surplus += countColumns(*token, 1, settings.indentation) - length;
  }
}

void VhdlScanner::drawOutComment(VhdlToken& comment) {
  if (prevIsNewline(1) == 1) commentColumn = 0;
  if (settings.extendComments == 1) {
    comment.alignComment(settings.lineWidth, settings.blockCommentCharacters.get(),
                         settings.frameBlockComments);
  }
}

int VhdlScanner::WrapLine(LineInHand& line) {
  OldListRefItem* overflow = tokenList.getAnchorNode();
  anchorToken()->setColumn(heldInRange(anchorToken()->getColumn() + line.surplus));
  assert(anchorToken()->getColumn() == getColumn(1));
  OldListRefItem* candidate = findBreak(line.hopeless);
  const VhdlToken* comment = candidate == nullptr ? nullptr : commentBehind(candidate);
  if (candidate != nullptr && comment == nullptr) {
    SetColumnsInLine();
    tokenList.setAnchorNode(candidate);
    breakBehindAnchor(line);
    return 0;
  }
  // Where a carriage return joins two comments to one line, the second leads back to the first. It
  // is broken once; after that the line counts as one without a place to break.
  const bool isStuck = comment != nullptr && comment == line.brokenComment;
  if (comment != nullptr && !isStuck) {
    finishLine(line);
    line.brokenComment = comment;
    commentColumn = 0;
    tokenList.setAnchorNode(candidate);
    breakComments(line);
    return 0;
  }
  if (anchorToken()->getTyp() == T_COMMENT) {
    finishLine(line);
    breakComments(line);
    return 0;
  }
  line.hopeless = isStuck ? nullptr : overflow;
  return 1;
}

OldListRefItem* VhdlScanner::findBreak(const OldListRefItem* hopeless) {
  const AnchorGuard guard(tokenList);
  const VhdlToken* behind = anchorToken();
  OldListRefItem* candidate = nullptr;
  int best = 0;
  bool isBlocked = false;
  while (behind->getColumn() != 0) {  // the first token of a line is scored too
    const VhdlToken* token = stepBack();
    int score = token->getWrapGravity(behind->getIndent());
    if (isBlocked && score > 0) score = 0;
    isBlocked = score == -1;
    if (score > best) {  // of equal scores the one furthest right
      best = score;
      candidate = tokenList.getAnchorNode();
    }
    if (tokenList.getAnchorNode() == hopeless) break;
    behind = token;
  }
  return candidate;
}

const VhdlToken* VhdlScanner::commentBehind(OldListRefItem* node) {
  const AnchorGuard guard(tokenList);
  tokenList.setAnchorNode(node);
  return nextIs(T_COMMENT) == 1 ? findComment() : nullptr;
}

void VhdlScanner::breakBehindAnchor(LineInHand& line) {
  VhdlToken& candidate = *anchorToken();
  if (candidate.getTyp() == T_WHITESPACE) candidate.setFormatText("");
  tokenList.addItemAnchor(newSpacing(T_NEWLINE, candidate.getParenLevel(), "\n"));
  ruler.forget();
  const AnchorGuard guard(tokenList);
  bool isNew = false;
  for (VhdlToken* token = stepForward(); token != nullptr; token = stepForward()) {
    if (isNew) line.reach(tokenList.getAnchorNode());
    isNew = isNew || tokenList.getAnchorNode() == line.reached;
    if (!isBlank(*token)) break;
    if (isLineEnd(*token, 1)) line.shifts.clear();  // the line below is drawn up to this one
    token->setFormatText("");
  }
  IndentLine(0);
  ReindentLine(line);
  line.start(/*nextIsNew*/ false);
}

void VhdlScanner::SetColumnsInLine() {
  const AnchorGuard guard(tokenList);
  VhdlToken* token = anchorToken();
  int column = token->getColumn();
  while (isBlank(*token) && !isLineEnd(*token, 1)) {
    column = addColumns(column, token->textLength(1));
    token = stepForward();
    if (token == nullptr) return;
    token->setColumn(column);
  }
}

void VhdlScanner::ReindentLine(LineInHand& line) {
  if (anchorToken() == nullptr) return;
  const AnchorGuard guard(tokenList);
  const int limit = anchorToken()->getColumn();
  const int shift = limit - anchorToken()->getIndent();
  if (shift == 0) return;
  while (tokenList.getAnchorNode() != line.reached) {
    VhdlToken* token = stepForward();
    if (token->getIndent() > limit) token->setIndent(addColumns(token->getIndent(), -shift));
  }
  line.shifts.add(limit, shift);
}

void VhdlScanner::finishLine(LineInHand& line) {
  const AnchorGuard guard(tokenList);
  VhdlToken* token = anchorToken();
  int column = addColumns(token->getColumn(), token->textLength(1));
  bool isNew = false;
  while (!isLineEnd(*token, 1)) {
    isNew = isNew || tokenList.getAnchorNode() == line.reached;
    token = stepForward();
    if (token == nullptr) break;
    if (isNew) line.reach(tokenList.getAnchorNode());
    token->setColumn(column);
    column = addColumns(column, countColumns(*token, 1, settings.indentation));
  }
  line.shifts.clear();
}

void VhdlScanner::breakComments(LineInHand& line) {
  ruler.forget();  // the comment may be one that was passed before
  BreakComment();
  line.start(/*nextIsNew*/ true);
  const VhdlToken* token = anchorToken();
  if (isLineEnd(*token, 1)) return;
  line.surplus = getColumn(1);  // the pass measures from here as from the start of a line
  line.surplus += countColumns(*token, 1, settings.indentation);
}
