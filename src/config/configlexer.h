// The lexer of the configuration language. It picks key words, value words, numbers and quoted
// texts out of free text and silently drops all else: there are no lines, no separators and no
// errors. A value belongs to the nearest key before it. Words match anywhere, also inside longer
// runs of letters, so even a lone A or B of a misspelt word is a value.
#ifndef QORN_CONFIG_CONFIGLEXER_H
#define QORN_CONFIG_CONFIGLEXER_H

#include <string_view>

#include "config/configtoken.h"

/** Appends a QornConfigToken for each key of the text to the list, which owns it. The list may hold
    the keys of earlier texts: a value that precedes all keys of this one goes to the last of
    them. */
void xxlex(std::string_view text, ConfigList& xxconflist);

#endif
