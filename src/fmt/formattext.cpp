// Each pass has a scanner of its own, so that nothing of one text reaches the next. A result often
// needs a second pass: runs of assignments are measured on source lines, and wrapped lines join.
#include "fmt/formattext.h"

#include <utility>

#include "scanner/vhdlscanner.h"

namespace {

/** Collects a text up to a limit. */
class StringSink : public TextSink {
 public:
  explicit StringSink(std::size_t most) : limit(most) {}
  void put(std::string_view piece) override {
    if (isWhole()) text.append(piece);
  }
  bool isWhole() const { return text.size() <= limit; }

  std::string text;

 private:
  std::size_t limit;
};

/** One pass. False if the result is beyond the limit; it then ends somewhere after it. */
bool runPass(std::string_view text, const Settings& settings, std::size_t limit,
             std::string& result) {
  VhdlScanner scanner(settings);
  (void)scanner.format(text);  // only headers to include can fail
  StringSink sink(limit);
  sink.text.reserve(text.size() + text.size() / 8);
  scanner.Print(sink);
  const bool isWhole = sink.isWhole();
  result = std::move(sink.text);
  return isWhole;
}

bool standsBefore(const std::string& left, const std::string& right) {
  return left.size() != right.size() ? left.size() < right.size() : left < right;
}

}  // namespace

std::string formatText(std::string_view text, const Settings& settings) {
  std::string result;
  (void)runPass(text, settings, std::string::npos, result);
  return result;
}

SettledText formatUntilSettled(std::string_view text, const Settings& settings) {
  const std::size_t limit = longestResult(text.size());
  std::string first;
  if (!runPass(text, settings, limit, first)) return {{}, BURSTING, 1};
  if (first == text) return {std::move(first), SETTLED, 0};
  std::string before(text);
  std::string current = first;
  for (int passes = 1; passes < mostPasses; ++passes) {
    std::string next;
    if (!runPass(current, settings, limit, next)) break;
    if (next == current) return {std::move(current), SETTLED, passes};
    if (next == before) {
      return {standsBefore(next, current) ? std::move(next) : std::move(current), SWINGING, passes};
    }
    before = std::move(current);
    current = std::move(next);
  }
  return {std::move(first), GROWING, mostPasses};
}
