// Letter case is read off the words themselves: if nearly all have one style, that is the style.
// All other keys are tried one by one, each with the others as found so far, until a round finds
// nothing better. One pass a trial is enough to choose by; the shares that people read are those of
// settled results.
#include "fmt/guess.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <utility>

#include "base/threads.h"
#include "config/configreader.h"
#include "config/settings.h"
#include "fmt/comparison.h"
#include "fmt/formattext.h"
#include "fmt/samplestyles.h"
#include "fmt/settingcheck.h"
#include "tokens/vhdllexer.h"
#include "tokens/vhdltoken.h"

namespace {

constexpr std::size_t mostSampleBytes = 1'000'000;
constexpr std::size_t mostSampleFiles = 100;
constexpr int mostRounds = 4;
constexpr long long leastWorth = 2000;  // a key has to save one line of so many

// --- What a trial costs ---

struct Cost {
  std::size_t changed = 0;  // lines of the sources
  std::size_t lines = 0;    // the same, but no fewer than the lines that replace them
};

std::size_t countLines(std::string_view text) {
  const auto ends = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return ends + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

/** The cost of one text. One that could not be formatted at all weighs as if all its lines
    changed, so that a key under which it could is found. */
Cost costOf(const std::string& text, const Settings& settings, bool isSettled) {
  const char* const frames = settings.blockCommentCharacters.get();
  const std::string result =
      isSettled ? formatUntilSettled(text, settings).text : formatText(text, settings);
  const Comparison comparison = compareTexts(text, result, frames);
  if (comparison.fault) return {0, countLines(text)};
  Cost cost;
  for (const Stretch& stretch : comparison.changed) {
    cost.changed += stretch.old.count;
    cost.lines += std::max(stretch.old.count, stretch.fresh.count);
  }
  return cost;
}

/** The costs of each text under each candidate; any number of threads take part. */
struct Trials {
  const std::vector<std::string>& texts;
  const std::vector<Settings>& candidates;
  bool isSettled;
  std::vector<Cost> costs{texts.size() * candidates.size()};
  std::atomic<std::size_t> next = 0;

  static void takePart(void* trials) { static_cast<Trials*>(trials)->takeItems(); }

  void takeItems() {
    const std::size_t count = texts.size();
    for (std::size_t item = next++; item < costs.size(); item = next++) {
      costs[item] = costOf(texts[item % count], candidates[item / count], isSettled);
    }
  }
};

// --- Values to try ---

struct NumberChoice {
  int key;
  std::array<int, 12> values;  // as configured; zeros at the end are none
};

constexpr NumberChoice numberChoices[] = {
    {C_INDENTATION, {4, 2, 3, 8, 1, 5, 6}},
    {C_LINEWIDTH, {80, 100, 120, 132, 160, 200, 250, 90, 110, 72}},
    {C_IDENTLENGTH, {20, 1, 10, 30, 40, 60, 100}},
    {C_COMMENTSTARTCOLUMN, {41, 1, 25, 33, 49, 57, 61, 65, 73, 81, 97}},
    {C_TABSIZE, {4, 8, 2, 3}},
};

void setNumber(Settings& settings, const Setting& row, int value) {
  settings.*row.number = value;
  if (row.twin != nullptr) settings.*row.twin = value;
}

/** The numbers that a key can take, its default first. */
std::vector<int> valuesOf(const Setting& row) {
  const Settings defaults;
  std::vector<int> values{defaults.*row.number};
  if (row.kind == SETTING_BOOLEAN) values = {values[0], 1 - values[0]};
  values.insert(values.end(), row.choices.begin(), row.choices.end());
  for (const NumberChoice& choice : numberChoices) {
    if (choice.key != row.key) continue;
    for (const int value : choice.values) {
      if (value != 0) values.push_back(value + row.added);
    }
  }
  return values;
}

// --- Letter case ---

constexpr std::array styles{C_LOWERCASE, C_UPPERCASE, C_CAPITALIZED, C_CAPITALIZEAFTERUNDERSCORE};
constexpr std::array styleNames{"lower case", "upper case", "capitals at the front",
                                "capitals after each underscore"};
constexpr std::size_t nearlyAll = 99;  // percent

struct CaseCount {
  std::size_t words = 0;
  std::array<std::size_t, styles.size()> ofStyle{};
};

struct CaseGuess {
  int style;
  std::string remark;
};

void countWord(CaseCount& count, std::string_view word) {
  const auto isLetter = [](char letter) { return letter >= 'A' && (letter | 0x20) <= 'z'; };
  if (std::ranges::count_if(word, isLetter) < 2) return;  // tells nothing
  ++count.words;
  std::string converted(word);
  for (std::size_t i = 0; i < styles.size(); ++i) {
    convertCase(converted.data(), word, styles[i]);
    if (converted == word) ++count.ofStyle[i];
  }
}

void countWords(const std::string& text, std::array<CaseCount, caseGroupCount>& counts) {
  SourceText source;
  source.set(text);
  LexState state;
  TokenList tokens;
  yylex(source, state, tokens);
  for (const VhdlToken* token = tokens.getFirst(); token != nullptr; token = tokens.getNext()) {
    const CaseGroup group = caseGroup(token->getTyp());
    if (group != CASE_ASIS) countWord(counts[static_cast<std::size_t>(group)], token->viewText(0));
  }
}

/** "12 %", and a digit after the point where it matters. */
std::string percent(std::size_t part, std::size_t whole) {
  const auto rounded = [&](std::size_t scale) {
    return whole == 0 ? 0 : (scale * part + whole / 2) / whole;
  };
  const std::size_t tenths = rounded(1000);
  if (tenths >= 100 && tenths < 995) return std::to_string(rounded(100)) + " %";
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " %";
}

/** The style of nearly all words, the default one first; else as they are. */
CaseGuess guessCase(const CaseCount& count, int defaultStyle, std::string_view what) {
  std::size_t best = 0;
  for (std::size_t i = 0; i < styles.size(); ++i) {
    const bool isDefault = styles[i] == defaultStyle;
    if (count.ofStyle[i] > count.ofStyle[best] ||
        (count.ofStyle[i] == count.ofStyle[best] && isDefault)) {
      best = i;
    }
  }
  if (count.words == 0) return {defaultStyle, ""};
  const std::size_t most = count.ofStyle[best];
  std::string remark =
      percent(most, count.words) + " of " + std::string(what) + " are in " + styleNames[best];
  const bool isStyle = 100 * most >= nearlyAll * count.words;
  return {isStyle ? styles[best] : static_cast<int>(C_ASIS), std::move(remark)};
}

constexpr struct {
  CaseGroup group;
  const char* what;
} caseGroupNames[] = {{CASE_KEYWORD, "reserved words"},
                      {CASE_IDENTIFIER, "names"},
                      {CASE_ATTRIBUTE, "attributes"},
                      {CASE_NUMBER, "literals with letters"}};

// --- The search ---

class Search {
 public:
  Search(const std::vector<std::string>& sources, unsigned threadCount)
      : texts(sources), threads(std::max(threadCount, 1U)) {
    for (const std::string& text : texts) lines += countLines(text);
  }

  Guess run(std::size_t fileCount);

 private:
  void chooseCases();
  void chooseTabs();
  bool improve(const Setting& row);
  void weighKeys();
  long long worthOf(const Setting& row);
  std::size_t take(std::vector<Settings> candidates);
  /** Of each candidate, over all texts. */
  std::vector<Cost> costs(const std::vector<Settings>& candidates, bool isSettled = false);
  std::string shares();

  const std::vector<std::string>& texts;
  unsigned threads;
  std::size_t lines = 0;
  Settings best;
  std::array<CaseGuess, caseGroupCount> cases{};
  std::vector<SettingOrigin> chosen;  // the keys that differ from their defaults, with remarks
};

void Search::chooseCases() {
  std::array<CaseCount, caseGroupCount> counts{};
  for (const std::string& text : texts) countWords(text, counts);
  for (const auto& [group, what] : caseGroupNames) {
    const auto place = static_cast<std::size_t>(group);
    cases[place] = guessCase(counts[place], best.caseStyles.ofGroup(group), what);
    best.caseStyles.setGroup(group, cases[place].style);
  }
}

std::vector<Cost> Search::costs(const std::vector<Settings>& candidates, bool isSettled) {
  Trials trials{.texts = texts, .candidates = candidates, .isSettled = isSettled};
  runInThreads(threads, Trials::takePart, &trials);
  std::vector<Cost> sums(candidates.size());
  for (std::size_t item = 0; item < trials.costs.size(); ++item) {
    Cost& sum = sums[item / texts.size()];
    sum.changed += trials.costs[item].changed;
    sum.lines += trials.costs[item].lines;
  }
  return sums;
}

/** The candidate of the smallest cost, of equals the first, becomes the best. Its place. */
std::size_t Search::take(std::vector<Settings> candidates) {
  const std::vector<Cost> results = costs(candidates);
  const auto least = std::ranges::min_element(results, {}, &Cost::lines);
  const auto place = static_cast<std::size_t>(least - results.begin());
  best = std::move(candidates[place]);
  return place;
}

/** Steps and tabs depend on each other, and nearly all else on them: they are chosen together. */
void Search::chooseTabs() {
  const bool hasTabs = std::ranges::any_of(
      texts, [](const std::string& text) { return text.find('\t') != std::string::npos; });
  const std::vector<int> steps = valuesOf(settingOf(C_INDENTATION));
  const std::vector<int> sizes = valuesOf(settingOf(C_TABSIZE));
  std::vector<Settings> candidates;
  for (const int tabify : {0, 1}) {
    for (const int size : sizes) {
      for (const int step : steps) {
        Settings candidate = best;
        candidate.indentation = step;
        candidate.tabify = tabify;
        setNumber(candidate, settingOf(C_TABSIZE), size);
        candidates.push_back(std::move(candidate));
        if (!hasTabs && candidates.size() == steps.size()) break;
      }
      if (!hasTabs) break;
    }
    if (!hasTabs) break;
  }
  take(std::move(candidates));
}

/** Tries all values of a key, the one in force first. True if another is better. */
bool Search::improve(const Setting& row) {
  std::vector<Settings> candidates{best};
  for (const int value : valuesOf(row)) {
    if (value == best.*row.number) continue;
    Settings candidate = best;
    setNumber(candidate, row, value);
    candidates.push_back(std::move(candidate));
  }
  return candidates.size() > 1 && take(std::move(candidates)) > 0;
}

/** The lines that would change with the default of a key, beyond those that do anyhow. */
long long Search::worthOf(const Setting& row) {
  Settings other = best;
  setNumber(other, row, Settings().*row.number);
  const std::vector<Cost> results = costs({best, other}, /*isSettled*/ true);
  return static_cast<long long>(results[1].changed) - static_cast<long long>(results[0].changed);
}

/** Puts keys that gain next to nothing back to their defaults, and notes what the others gain. */
void Search::weighKeys() {
  const Settings defaults;
  for (const Setting& row : settingTable()) {
    if (row.kind == SETTING_CASE) {
      const int style = best.caseStyles.ofGroup(row.group);
      if (style == defaults.caseStyles.ofGroup(row.group)) continue;
      chosen.push_back({row.key, cases[static_cast<std::size_t>(row.group)].remark});
    } else if (row.number != nullptr && best.*row.number != defaults.*row.number) {
      const long long worth = worthOf(row);
      if (worth <= static_cast<long long>(lines) / leastWorth) {
        setNumber(best, row, defaults.*row.number);
      } else {
        chosen.push_back({row.key, percent(static_cast<std::size_t>(worth), lines) +
                                       " more of the lines would change with " +
                                       settingValue(row, defaults)});
      }
    }
  }
}

std::string Search::shares() {
  std::vector<Settings> candidates{best, Settings()};
  for (const SampleStyle& style : sampleStyles()) {
    candidates.push_back(makeSettings({&style.configuration, 1}));
  }
  const std::vector<Cost> results = costs(candidates, /*isSettled*/ true);
  const auto shareOf = [&](std::size_t place) { return percent(results[place].changed, lines); };
  std::string text = "# Lines that would change: " + shareOf(0) + " with these settings, " +
                     shareOf(1) + " with the defaults.\n# Sample styles:";
  for (std::size_t i = 0; i < sampleStyles().size(); ++i) {
    text += (i == 0 ? " " : ", ") + std::string(sampleStyles()[i].name) + " " + shareOf(i + 2);
  }
  return text + ".\n";
}

Guess Search::run(std::size_t fileCount) {
  chooseCases();
  chooseTabs();
  for (int round = 0; round < mostRounds; ++round) {
    bool isBetter = false;
    for (const Setting& row : settingTable()) {
      if (row.number != nullptr && improve(row)) isBetter = true;
    }
    if (!isBetter) break;
  }
  weighKeys();
  const std::string sample =
      fileCount == 1 ? "1 file"
                     : std::to_string(texts.size()) + " of " + std::to_string(fileCount) + " files";
  std::string text = "# Guessed by qornfmt from " + sample + ".\n\n" + settingsText(best, chosen);
  text += (chosen.empty() ? "" : "\n") + shares();
  return {best, std::move(text)};
}

}  // namespace

std::vector<std::size_t> drawSample(const std::vector<std::size_t>& sizes) {
  std::size_t total = 0;
  for (const std::size_t size : sizes) total += size;
  const std::size_t bySize = total / mostSampleBytes + 1;
  const std::size_t byCount = sizes.size() / mostSampleFiles + 1;
  const std::size_t step = std::max(bySize, byCount);
  std::vector<std::size_t> places;
  std::size_t bytes = 0;
  for (std::size_t place = step / 2; place < sizes.size(); place += step) {
    if (bytes + sizes[place] > 2 * mostSampleBytes) continue;
    bytes += sizes[place];
    places.push_back(place);
  }
  return places;
}

Guess guessSettings(const std::vector<std::string>& texts, std::size_t fileCount,
                    unsigned threads) {
  return Search(texts, threads).run(fileCount);
}
