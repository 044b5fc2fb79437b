// What a configuration says, and what of it has no effect. The language drops whatever it does not
// know; people want to know.
#ifndef QORN_FMT_SETTINGCHECK_H
#define QORN_FMT_SETTINGCHECK_H

#include <span>
#include <string>
#include <vector>

#include "config/settings.h"
#include "scanner/settings.h"

/** A configuration file in memory, with its name as messages show it. */
struct ConfigText {
  std::string name;
  std::string text;
};

/** "FILE:LINE" of the key that gave a setting its value; empty for a default. */
struct SettingOrigin {
  int key;
  std::string place;
};

struct SettingCheck {
  /** "FILE:LINE: ...", in the order of files and lines. */
  std::vector<std::string> complaints;
  /** One for each key that has an effect, in the order of the table of settings. */
  std::vector<SettingOrigin> origins;
};

/** Reads the files as the settings are read: one after the other, as one long text. */
[[nodiscard]] SettingCheck checkSettings(std::span<const ConfigText> files);

/** The value of a key as a configuration writes it. */
[[nodiscard]] std::string settingValue(const Setting& setting, const Settings& settings);

/** Every key that has an effect, with its value and where that comes from. Read as a configuration,
    the text gives the same settings again. */
[[nodiscard]] std::string settingsText(const Settings& settings,
                                       std::span<const SettingOrigin> origins);

#endif
