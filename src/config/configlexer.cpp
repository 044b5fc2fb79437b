// Matching: at each place the longest of the rules, and right behind it goes on. No two words are
// the same, so the longest word at a place is the only one. Each stretch is looked at once or
// twice: a quote without a partner is the last of its kind, and only the last line can lack the
// line feed that a comment needs.
#include "config/configlexer.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/ascii.h"
#include "config/configtoken.h"
#include "tokens/tokencodes.h"

namespace {

struct Form {
  std::string_view text;
  int code;
  bool isKey;
};

/** By the first letter, longer forms first. */
constexpr bool standsBefore(const Form& left, const Form& right) {
  if (left.text[0] != right.text[0]) return left.text[0] < right.text[0];
  if (left.text.size() != right.text.size()) return left.text.size() > right.text.size();
  return left.text < right.text;
}

constexpr auto forms = [] {
  std::array table{
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) Form{form, name, true},
#define QORN_VALUE(name, form) Form{form, name, false},
#include "tokens/configcodes.def"
  };
  std::ranges::sort(table, standsBefore);
  return table;
}();
static_assert(std::ranges::adjacent_find(forms, {}, &Form::text) == forms.end(),
              "a form stands twice");

constexpr int letterCount = 26;

/** The place of the first form of each letter; behind the last letter, the number of forms. */
constexpr auto formStarts = [] {
  std::array<std::size_t, letterCount + 1> starts{};
  for (const Form& form : forms) ++starts[static_cast<std::size_t>(form.text[0] - 'A' + 1)];
  for (std::size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
  return starts;
}();

bool beginsWith(std::string_view text, std::string_view word) {
  return text.size() >= word.size() &&
         std::ranges::equal(text.substr(0, word.size()), word, {}, asciiUpper);
}

/** The longest word that the text begins with, or null. */
const Form* longestForm(std::string_view text) {
  const int letter = asciiUpper(text.front()) - 'A';
  if (letter < 0 || letter >= letterCount) return nullptr;
  const auto start = static_cast<std::size_t>(letter);
  for (std::size_t i = formStarts[start]; i < formStarts[start + 1]; ++i) {
    if (beginsWith(text, forms[i].text)) return &forms[i];
  }
  return nullptr;
}

/** Reads one text. Each `take` function takes what stands at a place and returns the place after
    it. */
class ConfigLexer {
 public:
  ConfigLexer(std::string_view source, OldList& list)
      : text(source), lastLine(source.rfind('\n') + 1), xxconflist(list) {}

  void addKeys() {
    std::size_t place = 0;
    while (place < text.size()) place = takeNext(place);
  }

 private:
  /** The key that takes the next value, or null. */
  QornConfigToken* lastKey() { return static_cast<QornConfigToken*>(xxconflist.getLast()); }
  std::size_t takeNext(std::size_t place);
  std::size_t takeNumber(std::size_t place);
  std::size_t takeString(std::size_t place);
  void takeWord(const Form& form);

  std::string_view text;
  std::size_t lastLine;  // where the line without a line feed starts; 0 without a line feed
  OldList& xxconflist;
};

void ConfigLexer::takeWord(const Form& form) {
  if (form.isKey) {
    auto* key = new QornConfigToken;
    key->setTyp(form.code);
    xxconflist.addItemLast(key);
  } else if (QornConfigToken* key = lastKey(); key != nullptr) {
    key->setValue(form.code);
  }
}

std::size_t ConfigLexer::takeNumber(std::size_t place) {
  std::size_t end = place;
  while (end < text.size() && isAsciiDigit(text[end])) ++end;
  if (QornConfigToken* key = lastKey(); key != nullptr) {
    key->setInteger(text.substr(place, end - place));
  }
  return end;
}

std::size_t ConfigLexer::takeString(std::size_t place) {
  const std::size_t start = place + 1;
  const std::size_t partner = text.find(text[place], start);
  if (partner == std::string_view::npos || partner == start) return start;
  if (QornConfigToken* key = lastKey(); key != nullptr) {
    key->setPath(text.substr(start, partner - start));
  }
  return partner + 1;
}

std::size_t ConfigLexer::takeNext(std::size_t place) {
  const char first = text[place];
  if (isAsciiDigit(first)) return takeNumber(place);
  if (first == '"' || first == '\'') return takeString(place);
  if (first == '#' && place < lastLine) return text.find('\n', place);
  const Form* form = longestForm(text.substr(place));
  if (form == nullptr) return place + 1;
  takeWord(*form);
  return place + form->text.size();
}

}  // namespace

void xxlex(std::string_view text, OldList& xxconflist) { ConfigLexer(text, xxconflist).addKeys(); }
