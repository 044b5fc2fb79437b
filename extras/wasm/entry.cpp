// What the module gives to JavaScript. Texts go in as arguments, one after the other, and come out
// as parts of a result; a call takes all arguments and sets all parts. Want of memory is a trap, or
// a call of proc_exit: the instance is then of no more use, and the caller makes another.
#include <array>
#include <deque>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "config/settings.h"
#include "fmt/formattext.h"

#define QORN_EXPORT(name) extern "C" __attribute__((export_name(#name)))

namespace {

/** Without exceptions, operator new would hand out a null pointer, which is an address here. */
[[maybe_unused]] const auto noHandler = std::set_new_handler([] { __builtin_trap(); });

std::deque<std::string> arguments;

enum Part : int { PART_TEXT, PART_COUNT };
std::array<std::string, PART_COUNT> parts;

std::string takeArgument() {
  if (arguments.empty()) return {};
  std::string text = std::move(arguments.front());
  arguments.pop_front();
  return text;
}

/** The rest of the arguments, as configurations, and what options set. */
Settings takeSettings(int keepIndentation, int tabSize) {
  const std::vector<std::string_view> configurations(arguments.begin(), arguments.end());
  Settings settings = makeSettings(configurations);
  settings.keepIndentation = keepIndentation;
  if (tabSize > 0) settings.oldTabsize = tabSize;
  arguments.clear();
  return settings;
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
  const std::string text = takeArgument();
  parts[PART_TEXT] = formatText(text, takeSettings(keepIndentation, tabSize));
}

// A hint to the system about pages, which has none to choose here.
extern "C" int madvise(void*, std::size_t, int) { return 0; }
