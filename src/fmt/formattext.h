// Text to text: what the filter makes of a text, without a process, a file or a stream.
#ifndef QORN_FMT_FORMATTEXT_H
#define QORN_FMT_FORMATTEXT_H

#include <string>
#include <string_view>

#include "scanner/settings.h"

/** The text as a process of its own prints it under these settings, whatever was formatted before.
    Several threads may call this at the same time. Exhausted memory is fatal. */
[[nodiscard]] std::string formatText(std::string_view text, const Settings& settings);

/** What repeated formatting comes to. */
enum Settlement : int {
  SETTLED,   // another pass changes nothing
  SWINGING,  // two texts turn into each other; the smaller of them, of equals the lesser, is taken
  GROWING,   // no end within mostPasses; the first result is taken
  BURSTING,  // the first result is beyond longestResult; no text is taken
};

constexpr int mostPasses = 12;

/** No source comes near this. Indents of foreign texts can grow with the fourth power of the text,
    and comments are drawn out to any width. */
[[nodiscard]] constexpr std::size_t longestResult(std::size_t textSize) {
  return (std::size_t{1} << 20) + 64 * textSize;
}

struct SettledText {
  std::string text;
  Settlement settlement = SETTLED;
  int passes = 0;  // that changed the text
};

/** Formats until another pass changes nothing. What comes out for a text that swings or settles
    comes out for that result again. */
[[nodiscard]] SettledText formatUntilSettled(std::string_view text, const Settings& settings);

#endif
