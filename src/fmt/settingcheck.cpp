// The same pieces that the settings are made of, grouped into what people take for words: a run
// without blanks and separators. A word that is not a piece from end to end is one that the
// language does not know, whatever it finds in it.
#include "fmt/settingcheck.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "base/ascii.h"
#include "config/configreader.h"
#include "config/settings.h"
#include "fmt/nearestword.h"

namespace {

constexpr std::size_t mostComplaints = 50;  // of a configuration; more are counted
constexpr std::size_t longestShown = 40;    // bytes of a word

struct Place {
  std::size_t file = 0;  // index
  int line = 0;          // from 1

  // clang-tidy 14 takes what the compiler makes of this for a null pointer written as 0.
  auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr)
};

struct Complaint {
  Place place;
  std::string text;
};

/** A key as it stands in a file. */
struct Key {
  const Setting* setting;
  Place place;
  bool isGuessed;          // found in a longer word, about which there is a complaint
  bool hasValue = false;   // of any kind
  bool isExcused = false;  // a word that might have been its value has a complaint
  std::string_view value{};
};

bool isSeparator(char character) {
  return std::string_view(" \t\r\n\v\f=:,;").find(character) != std::string_view::npos;
}

bool isQuote(char character) { return character == '"' || character == '\''; }

bool isLetter(char character) {
  const char letter = asciiUpper(character);
  return letter >= 'A' && letter <= 'Z';
}

/** The text as a message can show it: on one line, not too long. */
std::string shown(std::string_view text) {
  std::string line(text.substr(0, longestShown));
  for (char& letter : line) {
    if (static_cast<unsigned char>(letter) < ' ') letter = '?';
  }
  return text.size() > longestShown ? line + "..." : line;
}

std::string nameOf(const Key& key) { return std::string(configName(key.setting->key)); }

std::string choiceText(int choice) {
  const std::string_view word = configName(choice);
  return word.empty() ? std::to_string(choice) : std::string(word);
}

/** What the values of a key are: "TRUE or FALSE". */
std::string valuesText(const Setting& setting) {
  if (setting.kind == SETTING_STRING) return "a text in quotes";
  if (setting.choices.empty()) {
    return "a number from " + std::to_string(setting.least) + " to " + std::to_string(setting.most);
  }
  std::string line;
  for (std::size_t i = 0; i < setting.choices.size(); ++i) {
    if (i > 0) line += i + 1 == setting.choices.size() ? " or " : ", ";
    line += choiceText(setting.choices[i]);
  }
  return line;
}

bool isChoice(const Setting& setting, int value) {
  return std::ranges::find(setting.choices, value) != setting.choices.end();
}

bool isSensibleNumber(const Setting& setting, std::string_view digits) {
  int number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec != std::errc()) return false;  // too large for an integer
  if (!setting.choices.empty()) return isChoice(setting, number);
  return number >= setting.least && number <= setting.most;
}

bool isSensibleValue(const Setting& setting, const ConfigPiece& piece) {
  switch (setting.kind) {
    case SETTING_INTEGER:
      return piece.kind == PIECE_NUMBER && isSensibleNumber(setting, piece.text);
    case SETTING_STRING: return piece.kind == PIECE_STRING;
    case SETTING_NONE: return true;
    default: return piece.kind == PIECE_WORD && isChoice(setting, piece.code);
  }
}

/** Reads the files of one configuration, in order. */
class Checker {
 public:
  void readFile(std::size_t index, std::string_view text);
  void finish();

  const std::vector<Key>& allKeys() const { return keys; }
  const std::vector<Complaint>& allComplaints() const { return complaints; }

 private:
  void complain(const std::string& text) { complainAt(place, text); }
  void complainAt(Place where, const std::string& text) { complaints.push_back({where, text}); }
  /** The key that takes the next value, or null. */
  Key* waitingKey() { return !keys.empty() && !keys.back().hasValue ? &keys.back() : nullptr; }

  void take(const ConfigPiece& piece);
  void takeDropped(const ConfigPiece& piece);
  bool isKnownWord() const;
  void endWord();
  void takeUnknownWord();
  std::string judgement(std::string_view written, const Setting* waiting) const;
  void takePiece(const ConfigPiece& piece, bool isGuessed);
  void giveValue(const ConfigPiece& piece, bool isGuessed);
  void judgeValue(const ConfigPiece& piece, const Key& key);
  void judgeKey(std::size_t index);

  Place place;
  std::vector<Key> keys;
  std::vector<Complaint> complaints;
  std::vector<ConfigPiece> word;  // the current pieces, without a gap
  std::string readAs;             // what was found in the unknown word in hand
  char dropped = '\0';            // the quote just dropped
  bool isAfterUnknown = false;    // of a word in which nothing was found
  bool isOpenComment = false;     // in a last line that lacks its line feed
};

void Checker::readFile(std::size_t index, std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  place = {index, 1};
  isOpenComment = false;
  isAfterUnknown = false;
  ConfigReader reader(text);
  while (!reader.atEnd()) {
    const ConfigPiece piece = reader.next();
    take(piece);
    place.line += static_cast<int>(std::ranges::count(piece.text, '\n'));
  }
  endWord();
  if (isOpenComment && !readAs.empty()) {
    complain("a comment needs a line end after it; this one is read as " + readAs);
  }
  readAs.clear();
}

void Checker::take(const ConfigPiece& piece) {
  const bool isAfterQuote = dropped != '\0';
  if (piece.kind == PIECE_NONE && !(isAfterQuote && piece.text[0] == dropped)) takeDropped(piece);
  dropped = piece.kind == PIECE_NONE && isQuote(piece.text[0]) ? piece.text[0] : '\0';
  if (piece.kind == PIECE_KEY || piece.kind == PIECE_WORD || piece.kind == PIECE_NUMBER) {
    word.push_back(piece);
  } else if (piece.kind != PIECE_NONE) {
    endWord();
    if (piece.kind == PIECE_STRING) takePiece(piece, isOpenComment);
  }
}

/** A character that no rule takes. */
void Checker::takeDropped(const ConfigPiece& piece) {
  const char character = piece.text[0];
  const bool isComment = character == '#' && !isOpenComment;
  if (!isSeparator(character) && !isQuote(character) && !isComment) {
    word.push_back(piece);
    return;
  }
  endWord();
  if (isComment) isOpenComment = true;
  if (!isQuote(character) || isOpenComment) return;
  complain(shown(piece.text) + ": no quote closes the text, or it is empty");
  if (Key* key = waitingKey(); key != nullptr) key->isExcused = true;
}

/** Is each character part of a key, a value or a number? A lone letter in a longer word is not
    meant as a value. */
bool Checker::isKnownWord() const {
  return std::ranges::none_of(word, [this](const ConfigPiece& piece) {
    const bool isLone = piece.kind == PIECE_WORD && piece.text.size() == 1;
    return piece.kind == PIECE_NONE || (isLone && word.size() > 1);
  });
}

void Checker::endWord() {
  if (word.empty()) return;
  if (isOpenComment) {
    for (const ConfigPiece& piece : word) takePiece(piece, true);
  } else if (isKnownWord()) {
    for (const ConfigPiece& piece : word) takePiece(piece, false);
  } else {
    takeUnknownWord();
  }
  word.clear();
}

void Checker::takeUnknownWord() {
  const char* start = word.front().text.data();
  const char* end = word.back().text.data() + word.back().text.size();
  const std::string_view written(start, static_cast<std::size_t>(end - start));
  Key* waiting = waitingKey();
  const Setting* setting = waiting != nullptr ? waiting->setting : nullptr;
  if (waiting != nullptr) waiting->isExcused = true;
  for (const ConfigPiece& piece : word) takePiece(piece, true);
  const bool isShown = complaints.size() < mostComplaints;  // guesses take time
  std::string text = isShown ? shown(written) + ": " + judgement(written, setting) : "";
  if (!readAs.empty()) text += " (read as " + readAs + ")";
  complain(text);
  isAfterUnknown = readAs.empty();
  readAs.clear();
}

/** What to say of a word that the language does not know. */
std::string Checker::judgement(std::string_view written, const Setting* waiting) const {
  if (written.starts_with("--") || written.starts_with("//")) return "a comment starts with #";
  if (const ConfigForm* meant = nearestWord(written, waiting); meant != nullptr) {
    const std::string_view noun = meant->kind == PIECE_KEY ? "key" : "value";
    const std::string guess = meant->text == readAs ? "" : "; " + std::string(meant->text) + "?";
    return "no such " + std::string(noun) + guess;
  }
  if (isAsciiDigit(written.back())) return "not a whole number";
  if (std::ranges::none_of(written, isLetter)) return "without effect";
  if (waiting == nullptr || waiting->kind == SETTING_NONE) return "no such key";
  return "no such value; " + std::string(configName(waiting->key)) + " takes " +
         valuesText(*waiting);
}

/** Does with a piece what the settings do. A guess adds what has come of it to readAs. */
void Checker::takePiece(const ConfigPiece& piece, bool isGuessed) {
  if (piece.kind == PIECE_NONE) return;
  if (piece.kind == PIECE_KEY) isAfterUnknown = false;
  const bool hasEffect = piece.kind == PIECE_KEY || waitingKey() != nullptr;
  if (piece.kind == PIECE_KEY) {
    keys.push_back({.setting = &settingOf(piece.code), .place = place, .isGuessed = isGuessed});
  } else {
    giveValue(piece, isGuessed);
  }
  if (!isGuessed || !hasEffect) return;
  if (!readAs.empty()) readAs += ' ';
  const std::string_view name = piece.kind == PIECE_NUMBER ? piece.text : configName(piece.code);
  readAs += name.empty() ? shown(piece.text) : std::string(name);
}

void Checker::giveValue(const ConfigPiece& piece, bool isGuessed) {
  const bool isIdle = !keys.empty() && keys.back().setting->kind == SETTING_NONE;
  Key* key = waitingKey();
  if (key != nullptr) {
    key->hasValue = true;
    key->value = piece.text;
    if (!isGuessed && !isIdle) judgeValue(piece, *key);
  } else if (isGuessed || isIdle || isAfterUnknown) {
    return;  // there is a complaint about what stands before the value
  } else if (keys.empty()) {
    complain(shown(piece.text) + ": is before the first key");
  } else {
    complain(shown(piece.text) + ": dropped, " + nameOf(keys.back()) + " has the value " +
             shown(keys.back().value));
  }
}

void Checker::judgeValue(const ConfigPiece& piece, const Key& key) {
  const std::string value = shown(piece.text) + ": ";
  if (key.place.file != place.file)
    complain(value + "belongs to a key of an earlier file, " + nameOf(key));
  if (!isSensibleValue(*key.setting, piece)) {
    complain(value + nameOf(key) + " takes " + valuesText(*key.setting));
  } else if (piece.text.find('\n') != std::string_view::npos) {
    complain(value + "a text over several lines; is a quote missing?");
  }
}

/** Requires: all keys are read. */
void Checker::judgeKey(std::size_t index) {
  const Key& key = keys[index];
  if (key.setting->kind == SETTING_NONE) {
    if (!key.isGuessed) complainAt(key.place, nameOf(key) + ": a key without effect");
    return;
  }
  if (!key.hasValue) {
    if (!key.isExcused) complainAt(key.place, nameOf(key) + ": no value");
    return;
  }
  for (std::size_t i = index + 1; i < keys.size(); ++i) {
    const Key& later = keys[i];
    if (later.place.file != key.place.file) return;  // files may overrule each other
    if (later.setting != key.setting || !later.hasValue) continue;
    complainAt(key.place, nameOf(key) + ": set again in line " + std::to_string(later.place.line));
    return;
  }
}

void Checker::finish() {
  for (std::size_t i = 0; i < keys.size(); ++i) judgeKey(i);
  std::ranges::stable_sort(complaints, {}, &Complaint::place);
}

std::string placeText(std::span<const ConfigText> files, Place place) {
  return files[place.file].name + ":" + std::to_string(place.line);
}

}  // namespace

SettingCheck checkSettings(std::span<const ConfigText> files) {
  Checker checker;
  for (std::size_t i = 0; i < files.size(); ++i) checker.readFile(i, files[i].text);
  checker.finish();
  SettingCheck check;
  for (const Complaint& complaint : checker.allComplaints()) {
    if (check.complaints.size() == mostComplaints) {
      const std::size_t rest = checker.allComplaints().size() - mostComplaints;
      check.complaints.push_back(placeText(files, complaint.place) + ": " + std::to_string(rest) +
                                 " further complaints");
      break;
    }
    check.complaints.push_back(placeText(files, complaint.place) + ": " + complaint.text);
  }
  for (const Setting& setting : settingTable()) {
    if (setting.kind == SETTING_NONE) continue;
    check.origins.push_back({setting.key, ""});
    for (const Key& key : checker.allKeys()) {
      if (key.setting == &setting && key.hasValue) {
        check.origins.back().place = placeText(files, key.place);
      }
    }
  }
  return check;
}
