// Control statements. Each handler reads the head of its statement, up to `then`, `is`, `loop` and
// the like, and returns at the first token of the body. From the head on, one entry on the indent
// stack holds the level of the statement, pushed by its label or by the handler.
#include "base/columns.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int elsifContinuation = 7;  // of a wrapped condition, whatever the indentation

}  // namespace

void VhdlScanner::openBody() {
  const bool isGenerated = anchorToken() != nullptr && anchorToken()->getTyp() == T_GENERATE;
  outdentToken();
  endHead(isGenerated ? LEVEL_GENERATE : LEVEL_BODY);
}

void VhdlScanner::BetweenIfThen() {
  setNextSpaces(1);
  if (!waitFor(T_THEN, T_GENERATE)) return;
  setPrevSpaces(1);
  StatementClosed();
}

//     if a = b then c := d; end if;  | IF a = b THEN
//                                    |     c := d;
//                                    | END IF;
void VhdlScanner::If() {
  indentUnlessLabelled();
  BetweenIfThen();
  openBody();
}

//     elsif a then b := c;  | ELSIF a THEN
//                           |     b := c;
void VhdlScanner::Elsif() {
  popTokenIndent();
  setIndent(elsifContinuation, /*relative*/ 1);
  BetweenIfThen();
  openBody();
}

// In the value of a variable, `else` only ends the condition before it. See whenAmidStatement.
// With VHDL 2008:
//     else l : generate q <= a; end generate;  | ELSE l: GENERATE
//                                              |     q <= a;
//                                              | END GENERATE;
void VhdlScanner::Else() {
  if (indentStack.kind() == LEVEL_CONDITION) {
    if (getParenLevel() > 0) return;
    popIndent();
    if (settings.style == C_A) setNextNewline();
    return;
  }
  if (isModern() && getParenLevel() > 0) return;  // of a value between parentheses
  if (!isElseGenerate()) {
    openBody();
    return;
  }
  outdentToken();
  if (waitFor(T_GENERATE, T_GENERATE)) endHead(LEVEL_GENERATE);
}

bool VhdlScanner::isElseGenerate() const {
  if (!isModern()) return false;
  return LookForward(1) == T_GENERATE ||
         (LookForward(2) == T_COLON && LookForward(3) == T_GENERATE);
}

void VhdlScanner::openAlternative(IndentKind kind) {
  setNextNewline();
  popIndent();
  setIndent(timesColumns(2, settings.indentation), /*relative*/ 1, kind);
  StatementClosed();
}

//     case a is                  | CASE a IS
//     when '0' | '1' => b := c;  |     WHEN '0' | '1' =>
//                                |         b := c;
void VhdlScanner::Case() {
  indentUnlessLabelled();
  if (!waitFor(T_IS, isModern() ? T_GENERATE : T_IS)) return;
  openAlternative(anchorToken()->getTyp() == T_IS ? LEVEL_BODY : LEVEL_CASE_GENERATE);
}

// The choice of a case statement, or the condition of an `exit` or `next`, in place of whose level
// it opens its own, one step in.
//     exit l when a;  | EXIT l WHEN a;
void VhdlScanner::When() {
  if (isModern() && state.statementClosed == 0) {
    whenAmidStatement();
    return;
  }
  const IndentKind kind = indentStack.kind();
  popIndent();
  stepIn();
  setTokenIndent();
  if (!readChoice()) return;
  if (anchorToken()->getTyp() == T_ARROW) {
    openAlternative(kind);
    return;
  }
  endStatement();  // of an exit or next statement
}

// In `when (0 => a, 1 => b) => c := d;` the third arrow ends the choice; in older editions, the
// first.
bool VhdlScanner::readChoice() {
  const int level = getParenLevel();
  do {
    if (!waitFor(T_SEMICOLON, T_ARROW)) return false;
  } while (isModern() && anchorToken()->getTyp() == T_ARROW && getParenLevel() > level);
  return true;
}

// In the value of a variable, as in that of a signal; or in an `exit`, `next` or `return`, up to
// its end. With VHDL 2008:
//     v := a when b  | v := a
//     else c;        |          WHEN b ELSE
//                    |      c;
void VhdlScanner::whenAmidStatement() {
  if (getParenLevel() > 0) return;
  if (indentStack.kind() == LEVEL_ASSIGNMENT) {
    if (settings.style == C_A) setPrevNewline();
    stepIn(LEVEL_CONDITION);
    setTokenIndent();
    return;
  }
  finishStatement();
}

//     l1 : while a loop b := c; end loop;  | l1: WHILE a LOOP
//                                          |     b := c;
//                                          | END LOOP;
void VhdlScanner::While() {
  indentUnlessLabelled();
  if (waitFor(T_LOOP, T_LOOP)) endHead();
}

void VhdlScanner::Loop() {
  indentUnlessLabelled();
  endHead();
}

// A loop, a generate statement, the configuration of a block or of instances: what comes next
// decides.
//     for i in 0 to 3 loop a := b; end loop;  | FOR i IN 0 TO 3 LOOP
//                                             |     a := b;
//                                             | END LOOP;
void VhdlScanner::For() {
  indentUnlessLabelled();
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_GENERATE: endHead(LEVEL_GENERATE); return;
      case T_LOOP: endHead(); return;
      case T_SEMICOLON: endStatement(); return;
      case T_USE: openBinding(); return;
      case T_GENERIC:
      case T_PORT:
        if (!isModern()) break;
        openMaps();
        return;
      case T_END:
        setPrevNewline();
        End();
        return;
      case T_FOR:  // of a block configuration
        setPrevNewline();
        stepIn();
        break;
      default: break;
    }
  }
}

// In a configuration, `end for` closes the level of the `for`, so the binding has one of its own.
// Without an `end for` one level is both: two steps in, for what continues the binding, and closed
// by its semicolon.
//     for u1 : cell use entity work.x  | FOR u1: cell
//     port map (a => b);               |     USE ENTITY work.x
//                                      |         PORT MAP (
//                                      |             a => b
//                                      |         );
void VhdlScanner::openBinding() {
  setPrevNewline();
  if (state.inConfiguration == 1) {
    stepIn();
  } else {  // on its own: no `end` closes it
    popIndent();
    setIndent(timesColumns(2, settings.indentation), /*relative*/ 1);
  }
  StatementOpen();
}

// With VHDL 2008:
//     for u1 : cell          | FOR u1: cell
//     generic map (n => 1);  |     GENERIC MAP (
//                            |         n => 1
//                            |     );
void VhdlScanner::openMaps() {
  if (state.inConfiguration == 0) {
    popIndent();
    stepIn();
  } else {
    setIndent(0, /*relative*/ 1);
  }
  PortMap();
}

// Words of properties, which are names in older sources. Semicolons between parameters end nothing.
// With VHDL 2008:
//     property p(a : bit;  | PROPERTY p(a: bit; b: bit) IS a -> b;
//     b : bit) is a -> b;  | DEFAULT clock IS c;
//     default clock is c;  |
void VhdlScanner::Directive() {
  if (!opensStatement()) {
    Identifier();
    return;
  }
  const int level = getParenLevel();
  indentUnlessLabelled();
  while (waitFor(T_SEMICOLON, T_SEMICOLON) && getParenLevel() > level) {
  }
  endStatement();
}

void VhdlScanner::CheckedDirective() { opensStatement() ? Assert() : Identifier(); }

//     wait until clk = '1' for 10 ns;  | WAIT UNTIL clk = '1' FOR 10 ns;
void VhdlScanner::Wait() {
  indentUnlessLabelled();
  finishStatement();
}

//     assert a = b report "x"  | ASSERT a = b
//     severity error;          |     REPORT "x"
//                              |     SEVERITY error;
void VhdlScanner::Assert() {
  indentUnlessLabelled();
  stepIn();
  for (;;) {
    switch (getNextTokenTyp()) {
      case T_EOF: return;
      case T_REPORT:
      case T_SEVERITY:
        outdentToken();
        setPrevNewline();
        break;
      case T_SEMICOLON:
        popIndent();
        endStatement();
        return;
      default: break;
    }
  }
}
