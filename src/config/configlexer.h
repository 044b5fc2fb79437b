// The lexer of the configuration language. It picks key words, value words, numbers and quoted
// texts out of free text and drops all else without a word: there are no lines, no separators and
// no errors. A value belongs to the nearest key before it. Words match anywhere, also inside longer
// runs of letters, so even a lone A or B of a misspelt word is a value.
#ifndef QORN_CONFIG_CONFIGLEXER_H
#define QORN_CONFIG_CONFIGLEXER_H

#include <cstdio>

#include "base/oldlist.h"

/** The stream to read; closed by the caller. */
extern FILE* xxin;
/** Its name in the message of a read error. */
extern const char* xxname;
/** The list that keys are appended to, which owns them. It may hold the keys of files before. */
extern OldList* xxconflist;

/** Reads xxin to its end and appends a QornConfigToken for each key. Returns 0. A read error is
    fatal. */
int xxlex();

#endif
