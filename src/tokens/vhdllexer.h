// The VHDL lexer: turns one whole source stream, in a single call, into a list of tokens. It
// rejects nothing, and every byte ends up in some token but carriage returns between tokens.
// Blanks, line ends and comments are tokens like all others. One lexer serves the process: its line
// number, column and parenthesis level run on from file to file.
#ifndef QORN_TOKENS_VHDLLEXER_H
#define QORN_TOKENS_VHDLLEXER_H

#include <cstdio>

#include "base/oldlist.h"

/** The stream to read; closed by the caller. */
extern FILE* yyin;
/** Its name in the message of a read error. */
extern const char* yyname;
/** The list that tokens are appended to, which owns them. */
extern OldList* yytoklist;

/** Reads yyin to its end and appends its tokens, T_EOF last, to yytoklist. Returns 0. A read error
   is fatal. */
int yylex();

#endif
