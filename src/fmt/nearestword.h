// Guesses at misspelt words of a configuration.
#ifndef QORN_FMT_NEARESTWORD_H
#define QORN_FMT_NEARESTWORD_H

#include <string_view>

#include "config/configreader.h"
#include "config/settings.h"

/** The key or value word that was probably meant, or null. `waiting` is the key whose value is
    looked for, or null. */
[[nodiscard]] const ConfigForm* nearestWord(std::string_view written, const Setting* waiting);

#endif
