#include "fmt/judgement.h"

#include <utility>

#include "fmt/contents.h"
#include "fmt/formattext.h"
#include "fmt/textform.h"
#include "fmt/unifieddiff.h"

namespace {

std::string placed(std::string_view name, unsigned line, std::string_view message) {
  std::string text(name);
  return text.append(":").append(std::to_string(line)).append(": ").append(message);
}

Judgement refuse(std::string_view name, unsigned line, std::string_view message) {
  Judgement judgement;
  judgement.verdict = Judgement::REFUSED;
  judgement.messages.push_back(placed(name, line, message));
  return judgement;
}

std::string leftOutMessage(std::string_view name, const LineRange& range) {
  return placed(name, range.first,
                "not formatted, as lines " + std::to_string(range.first) + " to " +
                    std::to_string(range.last) + " would change together");
}

/** Leaves of the change what touches the lines. */
void limit(std::string_view name, std::string_view text, const LineSet& lines,
           Judgement& judgement) {
  PartialText partial = takeOver(text, judgement.text, judgement.changed, lines);
  for (const LineRange& range : partial.leftOut) {
    judgement.messages.push_back(leftOutMessage(name, range));
  }
  judgement.text = std::move(partial.text);
  judgement.changed = std::move(partial.taken);
}

}  // namespace

Judgement judgeContent(std::string_view name, std::string_view content, const Settings& settings,
                       const LineSet* lines) {
  const Unreadable unreadable = findUnreadable(content);
  if (!unreadable.reason.empty()) return refuse(name, unreadable.line, unreadable.reason);
  std::string text;
  const TextForm form = takeOffForm(content, text);
  SettledText settled = formatUntilSettled(text, settings);
  if (settled.settlement == BURSTING) {
    return refuse(name, 1, "formatting would make the text many times as long; is this VHDL?");
  }
  Judgement judgement;
  judgement.text = std::move(settled.text);
  if (judgement.text != text) {
    Comparison comparison =
        compareTexts(text, judgement.text, settings.blockCommentCharacters.view());
    if (comparison.fault) return refuse(name, comparison.fault->line, comparison.fault->message);
    judgement.changed = std::move(comparison.changed);
    if (lines != nullptr) limit(name, text, *lines, judgement);
  }
  judgement.content = lines == nullptr || !form.isMixed
                          ? putBackForm(form, judgement.text)
                          : spliceContent(content, form, judgement.text, judgement.changed);
  if (judgement.content != content) judgement.verdict = Judgement::CHANGED;
  if (settled.settlement == GROWING) {
    judgement.messages.push_back(
        placed(name, 1, "the layout does not settle; each further run would change it again"));
  }
  return judgement;
}

std::string diffOf(std::string_view name, std::string_view old, const Judgement& judgement) {
  return unifiedDiff(name, old, judgement.content,
                     contentStretches(old, judgement.content, judgement.changed));
}
