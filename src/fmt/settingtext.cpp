// Settings as a configuration that gives them again, whatever they are: a value of the wrong kind
// counts as 0 or as the empty text, and so a 0 stands for it.
#include <algorithm>
#include <string>
#include <string_view>

#include "config/configreader.h"
#include "config/settings.h"
#include "fmt/settingcheck.h"

namespace {

constexpr std::size_t keyWidth = 24;
constexpr std::size_t valueWidth = 12;

std::string padded(std::string_view text, std::size_t width) {
  std::string column(text);
  column.resize(std::max(width, text.size() + 1), ' ');
  return column;
}

std::string wordText(int code) {
  const std::string_view name = configName(code);
  return name.empty() ? "0" : std::string(name);
}

std::string quotedText(std::string_view text) {
  if (text.empty()) return "0";
  const char quote = text.find('"') == std::string_view::npos ? '"' : '\'';
  return quote + std::string(text) + quote;
}

/** A comment ends with its line. */
std::string commentText(std::string place) {
  std::ranges::replace(place, '\n', '?');
  return place.empty() ? "# default" : "# " + place;
}

}  // namespace

std::string settingValue(const Setting& setting, const Settings& settings) {
  switch (setting.kind) {
    case SETTING_CASE: return wordText(settings.caseStyles.ofGroup(setting.group));
    case SETTING_WORD: return wordText(settings.*setting.number);
    case SETTING_BOOLEAN: return settings.*setting.number == 1 ? "TRUE" : "FALSE";
    case SETTING_STRING: return quotedText((settings.*setting.text).get());
    default: return std::to_string(settings.*setting.number - setting.added);
  }
}

std::string settingsText(const Settings& settings, std::span<const SettingOrigin> origins) {
  std::string text;
  for (const SettingOrigin& origin : origins) {
    const std::string value = settingValue(settingOf(origin.key), settings);
    text += padded(configName(origin.key), keyWidth) + padded(value, valueWidth) +
            commentText(origin.place) + '\n';
  }
  return text;
}
