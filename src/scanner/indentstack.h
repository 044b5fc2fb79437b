// What is open at a place in the source, innermost last: the indent to return to behind each level,
// and what the level is, so that a closing word need not guess what it closes.
#ifndef QORN_SCANNER_INDENTSTACK_H
#define QORN_SCANNER_INDENTSTACK_H

#include <cstdint>

#include "base/stack.h"

/** What a level of the stack holds. */
enum IndentKind : std::int8_t {
  LEVEL_STATEMENT,  // a statement, a declaration or a part of one: a semicolon ends it
  LEVEL_BODY,       // statements or declarations, up to an `end`
};

class IndentStack {
 public:
  void push(int indent, IndentKind kind) { levels.push({indent, kind}); }
  /** The indent below the innermost level, which goes; 0 from an empty stack. */
  int pop() { return levels.pop().indent; }
  /** The kind of the innermost level; LEVEL_STATEMENT of an empty stack. */
  [[nodiscard]] IndentKind kind() const { return levels.top().kind; }
  /** Says what the innermost level holds from here on; says nothing to an empty stack. */
  void setKind(IndentKind kind) {
    if (levels.getDepth() > 0) levels.push({levels.pop().indent, kind});
  }
  [[nodiscard]] int getDepth() const { return levels.getDepth(); }
  void reset() { levels.reset(); }

 private:
  struct Level {
    int indent = 0;  // columns; in force outside the level
    IndentKind kind = LEVEL_STATEMENT;
  };
  Stack<Level> levels;
};

#endif
