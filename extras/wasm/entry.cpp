// What the module gives to JavaScript. Texts go in as arguments, one after the other, and come out
// as parts of a result; a call takes all arguments and sets all parts. Want of memory is a trap, or
// a call of proc_exit: the instance is then of no more use, and the caller makes another.
#include <array>
#include <cstdlib>
#include <deque>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "config/settings.h"
#include "fmt/formattext.h"
#include "fmt/guess.h"
#include "fmt/judgement.h"
#include "fmt/textform.h"
#include "keys.h"

#define QORN_EXPORT(name) extern "C" __attribute__((export_name(#name)))

namespace {

/** Without exceptions, operator new would hand out a null pointer, which is an address here. */
[[maybe_unused]] const auto noHandler = std::set_new_handler([] { __builtin_trap(); });

std::deque<std::string> arguments;

enum Part : int { PART_TEXT, PART_COMPLAINTS, PART_CHANGES, PART_DIFF, PART_COUNT };
std::array<std::string, PART_COUNT> parts;

std::string takeArgument() {
  if (arguments.empty()) return {};
  std::string text = std::move(arguments.front());
  arguments.pop_front();
  return text;
}

/** The rest of the arguments: the name and the text of each configuration. */
std::vector<ConfigText> takeConfigurations() {
  std::vector<ConfigText> files;
  while (!arguments.empty()) {
    std::string name = takeArgument();
    files.push_back({std::move(name), takeArgument()});
  }
  return files;
}

Settings settingsOf(const std::vector<ConfigText>& files, int keepIndentation, int tabSize) {
  const std::vector<std::string_view> texts = textsOf(files);
  Settings settings = makeSettings(texts);
  settings.keepIndentation = keepIndentation;
  if (tabSize > 0) settings.oldTabsize = tabSize;
  return settings;
}

/** "A:B" a line; what is none is told. */
LineSet readLines(std::string_view text) {
  LineSet lines;
  while (!text.empty()) {
    const std::string_view range = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(range.size() + 1, text.size()));
    if (!lines.addParsed(range)) {
      parts[PART_COMPLAINTS] += "lines want FIRST:LAST, counted from 1: ";
      parts[PART_COMPLAINTS].append(range).append("\n");
    }
  }
  return lines;
}

void addLines(std::string& text, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) text.append(line).append("\n");
}

/** A line for each stretch: first and count of the old lines, then of the new ones. */
std::string changesText(const std::vector<Stretch>& changed) {
  std::string text;
  for (const Stretch& stretch : changed) {
    for (const unsigned number :
         {stretch.old.first, stretch.old.count, stretch.fresh.first, stretch.fresh.count}) {
      text += std::to_string(number) + ' ';
    }
    text.back() = '\n';
  }
  return text;
}

}  // namespace

/** Room for the next argument, of that many bytes. */
QORN_EXPORT(argument) char* argument(std::size_t size) {
  return arguments.emplace_back(size, '\0').data();
}

QORN_EXPORT(partCount) int partCount() { return PART_COUNT; }

QORN_EXPORT(part) const char* part(int index) { return parts[static_cast<unsigned>(index)].data(); }

QORN_EXPORT(partSize) std::size_t partSize(int index) {
  return parts[static_cast<unsigned>(index)].size();
}

/** One pass over a text, as the program qorn makes it. Arguments: the text, configurations. */
QORN_EXPORT(pass) void pass(int keepIndentation, int tabSize) {
  parts = {};
  const std::string text = takeArgument();
  parts[PART_TEXT] = formatText(text, settingsOf(takeConfigurations(), keepIndentation, tabSize));
}

/** Formats as the program qornfmt does; the result is a verdict. Arguments: the name of the text,
    the text, its lines to format or an empty text for all, configurations. */
QORN_EXPORT(format) int format(int keepIndentation, int tabSize) {
  parts = {};
  const std::string name = takeArgument();
  const std::string text = takeArgument();
  const std::string asked = takeArgument();
  const LineSet lines = readLines(asked);
  const std::vector<ConfigText> files = takeConfigurations();
  addLines(parts[PART_COMPLAINTS], checkSettings(files).complaints);
  const Settings settings = settingsOf(files, keepIndentation, tabSize);
  const Judgement judgement = judgeContent(name, text, settings, asked.empty() ? nullptr : &lines);
  addLines(parts[PART_COMPLAINTS], judgement.messages);
  if (judgement.verdict == Judgement::CHANGED) {
    parts[PART_TEXT] = judgement.content;
    parts[PART_CHANGES] = changesText(judgement.changed);
    parts[PART_DIFF] = diffOf(name, text, judgement);
  }
  return judgement.verdict;
}

/** Which of many files to guess from. Arguments: their sizes, one a line. Gives places, one a line,
    counted from 0. */
QORN_EXPORT(sample) void sample() {
  parts = {};
  const std::string text = takeArgument();
  std::vector<std::size_t> sizes;
  for (const char* next = text.c_str(); *next != '\0';) {
    char* end = nullptr;
    sizes.push_back(std::strtoul(next, &end, 10));
    next = end + (*end == '\0' ? 0 : 1);
  }
  for (const std::size_t place : drawSample(sizes)) {
    parts[PART_TEXT].append(std::to_string(place)).append("\n");
  }
}

/** A configuration that suits texts as they are, a sample of so many files; an empty text if none
   of them can be read. Arguments: the texts. */
QORN_EXPORT(guess) void guess(std::size_t fileCount) {
  parts = {};
  std::vector<std::string> texts;
  while (!arguments.empty()) {
    const std::string content = takeArgument();
    if (findUnreadable(content).reason.empty()) (void)takeOffForm(content, texts.emplace_back());
  }
  if (!texts.empty()) parts[PART_TEXT] = guessSettings(texts, fileCount, /*threads*/ 1).text;
}

/** The table of keys with the values that configurations give them, as JSON; what is wrong with
    the configurations; and a configuration that gives the same. Arguments: configurations. */
QORN_EXPORT(keys) void keys() {
  parts = {};
  const std::vector<ConfigText> files = takeConfigurations();
  addLines(parts[PART_COMPLAINTS], checkSettings(files).complaints);
  parts[PART_TEXT] = keysAsJson(files);
}

// A hint to the system about pages, which has none to choose here.
extern "C" int madvise(void*, std::size_t, int) { return 0; }
