// What formatting makes of the content of one file, and whether that may be written.
#ifndef QORN_FMT_JUDGEMENT_H
#define QORN_FMT_JUDGEMENT_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/comparison.h"
#include "fmt/lines.h"
#include "scanner/settings.h"

struct Judgement {
  enum Verdict : int {
    SAME,     // nothing to change
    CHANGED,  // `content` and all else below is set
    REFUSED   // no text, or formatting would do harm; the messages say why
  };
  Verdict verdict = SAME;
  std::string content;                // for the file
  std::string text;                   // the same without mark and carriage returns
  std::vector<Stretch> changed;       // between the old text and the new one
  std::vector<std::string> messages;  // "NAME:LINE: ..."
};

/** Formats until nothing changes any more, compares, and with `lines` takes over what touches them.
 */
[[nodiscard]] Judgement judgeContent(std::string_view name, std::string_view content,
                                     const Settings& settings, const LineSet* lines);

/** The unified diff between two contents of a file. */
[[nodiscard]] std::string diffOf(std::string_view name, std::string_view old,
                                 const Judgement& judgement);

#endif
