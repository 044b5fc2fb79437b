// A text whose line ends differ gets those that most of its lines have: formatting lays out every
// line anew, and nothing but the line ends is lost.
#include "fmt/textform.h"

#include <algorithm>
#include <cstring>

namespace {

unsigned lineOf(std::string_view content, std::size_t place) {
  return 1 + static_cast<unsigned>(std::count(content.begin(), content.begin() + place, '\n'));
}

}  // namespace

Unreadable findUnreadable(std::string_view content) {
  if (content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF")) {
    return {"the text is in UTF-16; convert it to UTF-8 first", 1};
  }
  const std::size_t zero = content.find('\0');
  if (zero == std::string_view::npos) return {};
  return {"a NUL byte, so this is not text", lineOf(content, zero)};
}

TextForm takeOffForm(std::string_view content, std::string& text) {
  TextForm form;
  form.hasMark = content.starts_with(byteOrderMark);
  if (form.hasMark) content.remove_prefix(byteOrderMark.size());
  text.clear();
  if (content.find('\r') == std::string_view::npos) {
    text = content;
    return form;
  }
  text.reserve(content.size());
  std::size_t plain = 0;
  std::size_t carried = 0;
  while (!content.empty()) {
    const std::size_t length = std::min(content.find('\n'), content.size());
    const bool isEnded = length < content.size();
    const bool hasCarriage = isEnded && length > 0 && content[length - 1] == '\r';
    text.append(content.substr(0, hasCarriage ? length - 1 : length));
    if (isEnded) text += '\n';
    if (isEnded) ++(hasCarriage ? carried : plain);
    content.remove_prefix(isEnded ? length + 1 : length);
  }
  form.hasCarriages = carried > plain;
  form.isMixed = carried > 0 && plain > 0;
  return form;
}

std::string putBackForm(const TextForm& form, std::string text) {
  if (!form.hasMark && !form.hasCarriages) return text;
  std::string content(form.hasMark ? byteOrderMark : std::string_view());
  if (!form.hasCarriages) return content + text;
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  content.reserve(content.size() + text.size() + lines);
  for (const char character : text) {
    if (character == '\n') content += '\r';
    content += character;
  }
  return content;
}
