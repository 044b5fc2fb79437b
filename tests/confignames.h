// Configuration as people read it: codes by their names, keys with their values.
#ifndef QORN_TESTS_CONFIGNAMES_H
#define QORN_TESTS_CONFIGNAMES_H

#include <string>

#include "config/configlexer.h"
#include "config/configreader.h"
#include "config/configtoken.h"
#include "tokendump.h"
#include "tokens/tokencodes.h"

/** The name of a configuration code; any other number as its digits. */
inline std::string codeName(int code) {
  const std::string_view name = configName(code);
  return name.empty() ? std::to_string(code) : std::string(name);
}

/** "KEY" without a value, else "KEY=WORD", "KEY=12" or "KEY='text'". */
inline std::string shown(const QornConfigToken& key) {
  const std::string name = codeName(key.getTyp());
  int value = -1;
  key.setCaseType(&value);
  if (value == -1) return name;
  if (value != 0) return name + "=" + codeName(value);
  if (key.getPath()[0] != '\0') return name + "='" + key.getPath() + "'";
  return name + "=" + std::to_string(key.getInteger());
}

/** All keys, parted by blanks. Moves the anchor. */
inline std::string shown(ConfigList& list) {
  std::string line;
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    if (!line.empty()) line += ' ';
    line += shown(*item);
  }
  return line;
}

#endif
