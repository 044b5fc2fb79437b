#include "keys.h"

#include "config/configreader.h"
#include "config/settings.h"

namespace {

std::string quoted(std::string_view text) {
  static constexpr std::string_view digits = "0123456789abcdef";
  std::string json = "\"";
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 0x20 || character == '"' || character == '\\') {
      json.append("\\u00").append(1, digits[code / 16]).append(1, digits[code % 16]);
    } else {
      json += character;
    }
  }
  return json + '"';
}

/** An element of a list, or a member of an object, with the comma that it may need. */
void add(std::string& json, std::string_view element) {
  if (!json.empty()) json += ',';
  json += element;
}

void addMember(std::string& json, std::string_view name, const std::string& value) {
  add(json, quoted(name) + ':' + value);
}

std::string_view kindName(const Setting& setting) {
  switch (setting.kind) {
    case SETTING_INTEGER: return "number";
    case SETTING_BOOLEAN: return "truth";
    case SETTING_STRING: return "text";
    default: return "word";
  }
}

/** The forms of those codes that the question takes. */
template <typename Question>
std::string forms(ConfigPieceKind kind, Question isWanted) {
  std::string json;
  for (const ConfigForm& form : configForms()) {
    if (form.kind == kind && isWanted(form.code)) add(json, quoted(form.text));
  }
  return '[' + json + ']';
}

std::string choices(const Setting& setting) {
  std::string json;
  for (const int code : setting.choices) {
    const std::string_view word = configName(code);
    add(json, quoted(word.empty() ? std::to_string(code) : std::string(word)));
  }
  return '[' + json + ']';
}

std::string keyObject(const Setting& setting, const Settings& settings, const std::string& place) {
  std::string json;
  addMember(json, "key", quoted(configName(setting.key)));
  addMember(json, "forms", forms(PIECE_KEY, [&](int code) { return code == setting.key; }));
  addMember(json, "kind", quoted(kindName(setting)));
  addMember(json, "help", quoted(setting.help));
  addMember(json, "value", quoted(settingValue(setting, settings)));
  addMember(json, "fallback", quoted(settingValue(setting, Settings())));
  addMember(json, "place", quoted(place));
  addMember(json, "choices", choices(setting));
  addMember(json, "least", std::to_string(setting.least));
  addMember(json, "most", std::to_string(setting.most));
  return '{' + json + '}';
}

}  // namespace

std::vector<std::string_view> textsOf(std::span<const ConfigText> files) {
  std::vector<std::string_view> texts;
  for (const ConfigText& file : files) texts.push_back(file.text);
  return texts;
}

std::string keysAsJson(std::span<const ConfigText> files) {
  const std::vector<std::string_view> texts = textsOf(files);
  const Settings settings = makeSettings(texts);
  std::string rows;
  for (const SettingOrigin& origin : checkSettings(files).origins) {
    add(rows, keyObject(settingOf(origin.key), settings, origin.place));
  }
  std::string json;
  addMember(json, "keys", '[' + rows + ']');
  addMember(json, "ignored",
            forms(PIECE_KEY, [](int code) { return settingOf(code).kind == SETTING_NONE; }));
  addMember(json, "words", forms(PIECE_WORD, [](int) { return true; }));
  return '{' + json + '}';
}
