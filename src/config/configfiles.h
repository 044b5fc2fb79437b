// Where the program looks for its configuration.
#ifndef QORN_CONFIG_CONFIGFILES_H
#define QORN_CONFIG_CONFIGFILES_H

#include "scanner/settings.h"

/** Reads the named configuration file or, with null, `.qornrc` in each folder of QORNRC, and
   applies the keys to the settings. 0, or -1 if a named file can't be opened, which is then
   reported; the settings stay as they were. A read error is fatal. */
[[nodiscard]] int ReadConfigFile(const char* path, Settings& settings);

#endif
