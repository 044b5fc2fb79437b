// Fragments cut from the middle of a file: the column at which the code starts determines how many
// levels the indent stack is primed with, so that the fragment's closing words have levels to pop.
#include "scanner/vhdlscanner.h"

// A fragment that starts at column 8 has two levels, of 4 columns each, around it.
void VhdlScanner::KeepIndentation() {
  const auto* token = tokenList.getFirst();
  while (isSpacing(token->getTyp())) token = stepForward();
  const int typ = token->getTyp();
  if (typ == T_BEGIN || typ == T_ELSE || typ == T_ELSIF || typ == T_END) {
    stepIn();  // their handlers step back from it
  }
  const int column = getColumn(1);
  const int steps = settings.indentation == 0 ? 0 : column / settings.indentation;
  const int rest = column - steps * settings.indentation;
  if (rest != 0) setIndent(rest, /*relative*/ 1);
  for (int i = 0; i < steps; ++i) stepIn();
  ruler.forget();  // a comment before the code may still change
  StatementClosed();
}
