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
  VhdlToken* reached = nullptr;     // the furthest token visited; those behind it await `shifts`
  VhdlToken* unmeasured = nullptr;  // the first token passed over whose column is not set yet
  long long unmeasuredWidth = 0;    // bytes before that one
  PendingShifts shifts;             // for the rest of the line
  VhdlToken* hopeless = nullptr;    // a token on this line, with no place to break left of it
  const VhdlToken* brokenComment = nullptr;  // the last one that was broken instead of its code

  /** Brings the indent of the token behind the furthest one up to date. */
  void reach(VhdlToken* node) {
    reached = node;
    if (shifts.isEmpty()) return;
    VhdlToken& token = *node;
    token.setIndent(shifts.apply(token.getIndent()));
  }
  void visit(VhdlToken* node) {
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
  VhdlToken* passPlainTokens(VhdlToken* node, int limit);
  /** Sets the columns of the tokens that were passed over, up to a node. */
  void measure(const VhdlToken* end);
};

namespace {

/** Tokens that need no more than to be counted as long as the line fits. */
constexpr auto plainTokens = [] {
  TokenTable<bool> plain(true);
  for (const int typ : {T_NEWLINE, T_STRING, T_CHARACTER}) plain[typ] = false;
  for (int typ = 0; typ < tokenCodeCount; ++typ) plain[typ] = plain[typ] && !isComment(typ);
  return plain;
}();

bool isPlain(const VhdlToken& token) { return plainTokens[token.getTyp()] && !token.isExtended(); }

bool isBlank(const VhdlToken& token) {
  return token.getTyp() == T_WHITESPACE || token.getTyp() == T_NEWLINE;
}

}  // namespace

VhdlToken* VhdlScanner::LineInHand::passPlainTokens(VhdlToken* node, int limit) {
  if (!isNew || !shifts.isEmpty()) return node;
  if (unmeasured == nullptr) {
    unmeasured = node->getNext();
    unmeasuredWidth = width;
  }
  for (VhdlToken* next = node->getNext(); next != nullptr; next = next->getNext()) {
    const VhdlToken& token = *next;
    const long long wider = width + token.textLength(1);
    if (!isPlain(token) || wider > limit) break;
    width = wider;
    node = next;
  }
  return node;
}

void VhdlScanner::LineInHand::measure(const VhdlToken* end) {
  if (unmeasured == nullptr) return;
  long long column = unmeasuredWidth;
  for (VhdlToken* node = unmeasured; node != end; node = node->getNext()) {
    VhdlToken& token = *node;
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
    tokenList.setAnchor(line.passPlainTokens(tokenList.getAnchor(), settings.lineWidth));
    VhdlToken* token = stepForward();
    if (token == nullptr) break;
    const int typ = token->getTyp();
    const int length = token->textLength(1);
    if (typ == T_NEWLINE && length > 0) {
      line.start(/*nextIsNew*/ true);
      line.shifts.clear();
      continue;
    }
    line.measure(tokenList.getAnchor());
    line.visit(tokenList.getAnchor());
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
    comment.alignComment(settings.lineWidth, settings.blockCommentCharacters.view(),
                         settings.frameBlockComments, tokenList.getArena());
  }
}

int VhdlScanner::WrapLine(LineInHand& line) {
  VhdlToken* overflow = tokenList.getAnchor();
  anchorToken()->setColumn(heldInRange(anchorToken()->getColumn() + line.surplus));
  assert(anchorToken()->getColumn() == getColumn(1));
  VhdlToken* candidate = findBreak(line.hopeless);
  const VhdlToken* comment = candidate == nullptr ? nullptr : commentBehind(candidate);
  if (candidate != nullptr && comment == nullptr) {
    SetColumnsInLine();
    tokenList.setAnchor(candidate);
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
    tokenList.setAnchor(candidate);
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

VhdlToken* VhdlScanner::findBreak(const VhdlToken* hopeless) {
  const VhdlToken* behind = anchorToken();
  if (isBlockComment(behind->getTyp())) return nullptr;  // it stays beside its code
  const AnchorGuard guard(tokenList);
  VhdlToken* candidate = nullptr;
  int best = 0;
  bool isBlocked = false;
  while (behind->getColumn() != 0) {  // the first token of a line is scored too
    const VhdlToken* token = stepBack();
    int score = token->getWrapGravity(behind->getIndent());
    if (isBlocked && score > 0) score = 0;
    isBlocked = score == -1;
    if (score > best) {  // of equal scores the one furthest right
      best = score;
      candidate = tokenList.getAnchor();
    }
    if (tokenList.getAnchor() == hopeless) break;
    behind = token;
  }
  return candidate;
}

const VhdlToken* VhdlScanner::commentBehind(VhdlToken* node) {
  const AnchorGuard guard(tokenList);
  tokenList.setAnchor(node);
  return nextIs(T_COMMENT) == 1 ? findComment() : nullptr;
}

void VhdlScanner::breakBehindAnchor(LineInHand& line) {
  VhdlToken& candidate = *anchorToken();
  if (candidate.getTyp() == T_WHITESPACE) candidate.setFormatText("");
  tokenList.addItemAnchor(T_NEWLINE, candidate.getParenLevel())->setFormatText("\n");
  ruler.forget();
  const AnchorGuard guard(tokenList);
  bool isNew = false;
  for (VhdlToken* token = stepForward(); token != nullptr; token = stepForward()) {
    if (isNew) line.reach(tokenList.getAnchor());
    isNew = isNew || tokenList.getAnchor() == line.reached;
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
  while (tokenList.getAnchor() != line.reached) {
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
    isNew = isNew || tokenList.getAnchor() == line.reached;
    token = stepForward();
    if (token == nullptr) break;
    if (isNew) line.reach(tokenList.getAnchor());
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
