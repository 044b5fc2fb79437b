// Configuration codes as people read them.
#ifndef QORN_TESTS_CONFIGNAMES_H
#define QORN_TESTS_CONFIGNAMES_H

#include <string>

#include "tokens/tokencodes.h"

/** The name of a configuration code without its prefix; any other number as its digits. */
inline std::string codeName(int code) {
  switch (code) {
#define QORN_CONFIGCODE(name, number) \
  case name:                          \
    return std::string(#name).substr(2);
#define QORN_KEY(name, form)
#define QORN_VALUE(name, form)
#include "tokens/configcodes.def"
    default: return std::to_string(code);
  }
}

#endif
