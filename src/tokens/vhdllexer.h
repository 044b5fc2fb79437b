// The VHDL lexer: turns one whole source, in a single call, into a list of tokens. It rejects
// nothing, and every byte ends up in some token except carriage returns between tokens. Blanks,
// line ends and comments are tokens like all others.
#ifndef QORN_TOKENS_VHDLLEXER_H
#define QORN_TOKENS_VHDLLEXER_H

#include "base/sourcetext.h"
#include "tokens/tabs.h"
#include "tokens/vhdltoken.h"

/** What carries over from one source of a run to the next. */
struct LexState {
  int edition = 1993;  // of the language
  int line = 1;
  int parenLevel = 0;  // restarts at 0 for a modern source
  TabExpander tabs;
};

/** Appends the tokens of the source, T_EOF last, to the list, which owns them. */
void yylex(const SourceText& source, LexState& state, TokenList& yytoklist);

#endif
