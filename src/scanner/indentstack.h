// What is open at a position in the source, innermost last: the indent to return to after each
// level, and what the level is, so that a closing word need not guess what it closes.
//
// A place can be held and returned to, whatever was opened and closed since. Therefore a level
// knows the one below it, and while a place is held no level that it may need is freed.
#ifndef QORN_SCANNER_INDENTSTACK_H
#define QORN_SCANNER_INDENTSTACK_H

#include <cstddef>
#include <cstdint>
#include <vector>

/** What a level of the stack holds. */
enum IndentKind : std::int8_t {
  LEVEL_STATEMENT,      // a statement, a declaration or a part of one: a semicolon ends it
  LEVEL_BODY,           // statements or declarations, up to an `end`
  LEVEL_PROTECTED,      // the same, of a protected type
  LEVEL_GENERATE,       // the same, of a generate statement or an alternative of one
  LEVEL_CASE_GENERATE,  // all alternatives of one, two steps in
  LEVEL_ASSIGNMENT,     // the value of a variable
  LEVEL_CONDITION,      // a condition of that value, up to `else`
};

class IndentStack {
 public:
  /** A place to go back to: the number of the innermost level. */
  using Place = std::size_t;

  void push(int indent, IndentKind kind) {
    if (used == levels.size()) levels.emplace_back();
    levels[used++] = {indent, kind, top};
    top = used;
  }
  /** Removes the innermost level and returns its indent; 0 from an empty stack, which is why
      surplus closing words in a source end up at the left margin. */
  int pop() {
    if (top == 0) return 0;
    const Level gone = levels[top - 1];
    top = gone.below;
    if (held == 0) used = top;
    return gone.indent;
  }
  /** The kind of the innermost level; LEVEL_STATEMENT for an empty stack. */
  [[nodiscard]] IndentKind kind() const {
    return top == 0 ? LEVEL_STATEMENT : levels[top - 1].kind;
  }
  /** Sets what the innermost level holds from here on; no effect on an empty stack. */
  void setKind(IndentKind kind) {
    if (top > 0) push(pop(), kind);
  }
  /** Holds the place until a matching number of calls of `release`. */
  [[nodiscard]] Place hold() {
    ++held;
    return top;
  }
  /** Requires: the place is held. */
  void goBackTo(Place place) { top = place; }
  void release() { --held; }
  void reset() {
    levels = {};
    used = 0;
    top = 0;
    held = 0;
  }
  [[nodiscard]] int getDepth() const {
    int depth = 0;
    for (std::size_t place = top; place > 0; place = levels[place - 1].below) ++depth;
    return depth;
  }

 private:
  struct Level {
    int indent;  // columns; in force outside the level
    IndentKind kind;
    Place below;
  };
  std::vector<Level> levels;
  std::size_t used = 0;  // entries
  Place top = 0;         // 0 if empty, else the number of the innermost level, from 1 on
  int held = 0;
};

#endif
