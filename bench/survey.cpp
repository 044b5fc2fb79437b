// Formats all VHDL under the folders given, in memory, and prints what came of it: whether tokens
// and comments were kept, how many passes it took, and how lines fit their width. The figures that
// the documents quote come from here.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "base/readfile.h"
#include "config/settings.h"
#include "fmt/comparison.h"
#include "fmt/formattext.h"
#include "fmt/reading.h"
#include "fmt/sourcepaths.h"
#include "fmt/textform.h"

namespace {

constexpr std::string_view ways[] = {"", "VHDL 2008 BLOCKHEADER WRAPPED"};

struct Sources {
  std::vector<std::string> names;
  std::vector<std::string> texts;
  std::size_t bytes = 0;
  std::size_t lines = 0;
  std::size_t tokens = 0;
  std::size_t commentWords = 0;
  std::size_t unread = 0;  // files that are no texts
};

struct Outcome {
  double seconds = 0;                    // of one pass over all
  std::array<std::size_t, 4> settled{};  // with the first, the second, the third pass, or later
  std::size_t unsettled = 0;
  std::size_t longBefore = 0;
  std::size_t longAfter = 0;
  std::vector<std::string> refused;
};

std::size_t countLongLines(std::string_view text, std::size_t width) {
  std::size_t count = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    count += end > width ? 1 : 0;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return count;
}

void countPieces(std::string_view text, Sources& sources) {
  Reading reading(text, "-=*");
  for (;;) {
    const Piece& piece = reading.next();
    if (piece.kind == PieceKind::END) return;
    const bool isWord =
        piece.kind == PieceKind::COMMENT_WORD || piece.kind == PieceKind::BLOCK_WORD;
    ++(isWord ? sources.commentWords : sources.tokens);
  }
}

Sources readSources(const std::vector<std::string>& paths) {
  Sources sources;
  for (const std::string& name : findSources(paths, /*isForced*/ false).files) {
    std::string content;
    FileState state;
    std::string text;
    if (!readFile(name.c_str(), content, state).empty() ||
        !findUnreadable(content).reason.empty()) {
      ++sources.unread;
      continue;
    }
    (void)takeOffForm(content, text);
    sources.bytes += text.size();
    sources.lines += static_cast<std::size_t>(std::ranges::count(text, '\n'));
    countPieces(text, sources);
    sources.names.push_back(name);
    sources.texts.push_back(std::move(text));
  }
  return sources;
}

Outcome formatAll(const Sources& sources, const Settings& settings) {
  using Clock = std::chrono::steady_clock;
  Outcome outcome;
  const auto width = static_cast<std::size_t>(std::max(settings.lineWidth, 0));
  const auto start = Clock::now();
  std::size_t printed = 0;
  for (const std::string& text : sources.texts) printed += formatText(text, settings).size();
  outcome.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  if (printed == 0) return outcome;
  for (std::size_t i = 0; i < sources.texts.size(); ++i) {
    const std::string& text = sources.texts[i];
    const SettledText result = formatUntilSettled(text, settings);
    if (result.settlement != SETTLED) {
      ++outcome.unsettled;
    } else {
      const std::size_t passes = static_cast<std::size_t>(std::max(result.passes, 1));
      ++outcome.settled[std::min(passes, outcome.settled.size()) - 1];
    }
    const Comparison comparison =
        compareTexts(text, result.text, settings.blockCommentCharacters.get());
    if (comparison.fault) {
      outcome.refused.push_back(sources.names[i] + ":" + std::to_string(comparison.fault->line) +
                                ": " + comparison.fault->message);
    }
    outcome.longBefore += countLongLines(text, width);
    outcome.longAfter += countLongLines(result.text, width);
  }
  return outcome;
}

double percentOf(std::size_t part, std::size_t whole) {
  return whole == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
}

void print(const Sources& sources, std::string_view way, const Outcome& outcome) {
  const std::size_t files = sources.texts.size();
  std::printf("\nwith %s\n", way.empty() ? "the defaults" : std::string(way).c_str());
  std::printf("  seconds for one pass   %.2f\n", outcome.seconds);
  std::printf("  kept all tokens and comments   %zu of %zu files\n", files - outcome.refused.size(),
              files);
  constexpr const char* names[] = {"first", "second", "third", "a later"};
  for (std::size_t i = 0; i < outcome.settled.size(); ++i) {
    std::printf("  settled with %s pass   %zu (%.2f %%)\n",
                i == 3 ? names[i] : (std::string("the ") + names[i]).c_str(), outcome.settled[i],
                percentOf(outcome.settled[i], files));
  }
  std::printf("  never settled   %zu (%.2f %%)\n", outcome.unsettled,
              percentOf(outcome.unsettled, files));
  std::printf("  lines over the width   %zu before, %zu after\n", outcome.longBefore,
              outcome.longAfter);
  for (const std::string& refused : outcome.refused) std::printf("  refused %s\n", refused.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> folders(argv + 1, argv + argc);
  if (folders.empty()) {
    std::fputs("usage: survey DIR...\n", stderr);
    return 2;
  }
  const Sources sources = readSources(folders);
  std::printf("files %zu, lines %zu, bytes %zu, tokens %zu, words of comments %zu; not text %zu\n",
              sources.texts.size(), sources.lines, sources.bytes, sources.tokens,
              sources.commentWords, sources.unread);
  for (const std::string_view way : ways) {
    print(sources, way, formatAll(sources, makeSettings({&way, 1})));
  }
  return 0;
}
