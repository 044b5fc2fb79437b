// Tabs of the input are resolved while it is read, so that no later stage has to know about them.
// Only blanks, comments and attributes are expanded; a tab elsewhere counts as one column.
#ifndef QORN_TOKENS_TABS_H
#define QORN_TOKENS_TABS_H

#include <string_view>

/** Column of the next character in the expanded source line, counted from 0. It runs on from file
   to file; a line end sets it back. */
extern long lexColumn;

/** Sets the tab distance of the input; one below 1 acts as 1. */
void YYsetInTabSize(int size);

/** The text with tabs turned into blanks up to the next tab stop. Moves lexColumn on over it. The
    result is the text itself or stands in `YYbuf` until the next call. */
std::string_view ReplaceTabs(std::string_view text);

#endif
