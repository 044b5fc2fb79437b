// No two words are the same, so the longest word at a position is unique.
#include "config/configreader.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"
#include "tokens/tokencodes.h"

namespace {

/** Orders by first letter, then longer forms first. */
constexpr bool standsBefore(const ConfigForm& left, const ConfigForm& right) {
  if (left.text[0] != right.text[0]) return left.text[0] < right.text[0];
  if (left.text.size() != right.text.size()) return left.text.size() > right.text.size();
  return left.text < right.text;
}

constexpr auto forms = [] {
  std::array table{
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) ConfigForm{form, name, PIECE_KEY},
#define QORN_VALUE(name, form) ConfigForm{form, name, PIECE_WORD},
#include "tokens/configcodes.def"
  };
  std::ranges::sort(table, standsBefore);
  return table;
}();
static_assert(std::ranges::adjacent_find(forms, {}, &ConfigForm::text) == forms.end(),
              "a form stands twice");

constexpr int letterCount = 26;

/** The index of the first form of each letter; after the last letter, the number of forms. */
constexpr auto formStarts = [] {
  std::array<std::size_t, letterCount + 1> starts{};
  for (const ConfigForm& form : forms) ++starts[static_cast<std::size_t>(form.text[0] - 'A') + 1];
  for (std::size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
  return starts;
}();

bool beginsWith(std::string_view text, std::string_view word) {
  return text.size() >= word.size() &&
         std::ranges::equal(text.substr(0, word.size()), word, {}, asciiUpper);
}

/** The longest word that the text begins with, or null. */
const ConfigForm* longestForm(std::string_view text) {
  const int letter = asciiUpper(text.front()) - 'A';
  if (letter < 0 || letter >= letterCount) return nullptr;
  const auto start = static_cast<std::size_t>(letter);
  for (std::size_t i = formStarts[start]; i < formStarts[start + 1]; ++i) {
    if (beginsWith(text, forms[i].text)) return &forms[i];
  }
  return nullptr;
}

}  // namespace

std::span<const ConfigForm> configForms() { return forms; }

std::string_view configName(int code) {
  switch (code) {
#define QORN_CONFIGCODE(name, number) \
  case name:                          \
    return std::string_view(#name).substr(2);
#define QORN_KEY(name, form)
#define QORN_VALUE(name, form)
#include "tokens/configcodes.def"
    default: return {};
  }
}

ConfigPiece ConfigReader::next() {
  const ConfigPiece piece = pieceHere();
  place += piece.text.size();
  return piece;
}

ConfigPiece ConfigReader::pieceHere() const {
  const std::string_view rest = text.substr(place);
  const char first = rest.front();
  if (isAsciiDigit(first)) {
    const auto* end = std::ranges::find_if_not(rest, isAsciiDigit);
    return {PIECE_NUMBER, 0, rest.substr(0, static_cast<std::size_t>(end - rest.begin()))};
  }
  if (first == '"' || first == '\'') return stringHere();
  if (first == '#' && place < lastLine) return {PIECE_COMMENT, 0, rest.substr(0, rest.find('\n'))};
  const ConfigForm* form = longestForm(rest);
  if (form == nullptr) return {PIECE_NONE, 0, rest.substr(0, 1)};
  return {form->kind, form->code, rest.substr(0, form->text.size())};
}

/** A quote without a partner, or with one right after it, is not a text but a dropped character. */
ConfigPiece ConfigReader::stringHere() const {
  const std::size_t partner = text.find(text[place], place + 1);
  if (partner == std::string_view::npos || partner == place + 1) {
    return {PIECE_NONE, 0, text.substr(place, 1)};
  }
  return {PIECE_STRING, 0, text.substr(place, partner + 1 - place)};
}
