// The keys of the configuration language and what each of them sets: the one table from which
// everything else about keys is derived.
#ifndef QORN_CONFIG_SETTINGS_H
#define QORN_CONFIG_SETTINGS_H

#include <span>
#include <string_view>

#include "config/configtoken.h"
#include "scanner/settings.h"

/** What a key makes of its value. A value of another kind counts as 0 or as the empty text. */
enum SettingKind : int {
  SETTING_CASE,     // a case style
  SETTING_WORD,     // one of a few words
  SETTING_INTEGER,  // a number
  SETTING_BOOLEAN,  // 1 for TRUE, 0 for all else
  SETTING_STRING,   // a quoted text
  SETTING_NONE,     // anything: files may hold the key, but nothing reads it
};

/** A key with what it sets and what people may sensibly give it. The default is what a new object
    holds. */
struct Setting {
  int key;
  SettingKind kind = SETTING_NONE;
  int Settings::*number = nullptr;      // for words, numbers and booleans
  int Settings::*twin = nullptr;        // receives the same value
  int added = 0;                        // to the configured value
  CaseGroup group = CASE_ASIS;          // of a case style
  DynString Settings::*text = nullptr;  // of a quoted text
  std::span<const int> choices{};       // words or numbers; empty: any
  int least = 0;                        // sensible numbers, where there are no choices
  int most = 0;
  const char* help = "";  // one line without a full stop
};

/** One row for each key. */
[[nodiscard]] std::span<const Setting> settingTable();
/** The row of a key. */
[[nodiscard]] const Setting& settingOf(int key);

/** Writes the values of the keys into the settings, the first key first.
    Keys without a value change nothing. Moves the anchor. */
void setConfigVariables(ConfigList& keys, Settings& settings);

/** The settings that configuration texts make of the defaults; they behave like one long text. */
[[nodiscard]] Settings makeSettings(std::span<const std::string_view> configurations);

#endif
