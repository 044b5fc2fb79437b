// Building the index, and the searches in it.
#include "scanner/stopindex.h"

#include <algorithm>
#include <cassert>

#include "base/columns.h"

namespace {

constexpr int longWalk = 512;     // tokens
constexpr int longWalksMax = 16;  // up to this many over one stretch are cheaper than the index

constexpr auto wordWidths = [] {
  TokenTable<std::array<std::int16_t, 2>> widths({0, 0});
  // clang-format off
  widths[T_IN]      [MODE_WORD] = 3;
  widths[T_OUT]     [MODE_WORD] = 4;
  widths[T_INOUT]   [MODE_WORD] = 6;
  widths[T_BUFFER]  [MODE_WORD] = 7;
  widths[T_LINKAGE] [MODE_WORD] = 8;
  widths[T_FILE]    [CLASS_WORD] = 5;
  widths[T_ALIAS]   [CLASS_WORD] = 6;
  widths[T_GROUP]   [CLASS_WORD] = 6;
  widths[T_SIGNAL]  [CLASS_WORD] = 7;
  widths[T_CONSTANT][CLASS_WORD] = 9;
  widths[T_VARIABLE][CLASS_WORD] = 9;
  // clang-format on
  return widths;
}();

constexpr auto nameRoles = [] {
  TokenTable<NameRole> roles(NAME_PART);
  for (int typ = 0; typ < tokenCodeCount; ++typ) {
    if (isClassWord(typ)) roles[typ] = NAME_CLASS;
    if (isSpacing(typ)) roles[typ] = NAME_NOTHING;
  }
  for (const int typ : {T_COLON, T_COMMA, T_EQUAL}) roles[typ] = NAME_END;
  for (const int typ : {T_INTERFACE_SUBPROGRAM, T_INTERFACE_PACKAGE}) roles[typ] = NAME_NONE;
  roles[T_SEMICOLON] = NAME_DROPPED;
  roles[T_RPAREN] = NAME_NOTHING;
  return roles;
}();

bool endsName(int typ) { return nameRole(typ) == NAME_END || nameRole(typ) == NAME_DROPPED; }

/** The tokens at which look-aheads end or which they collect, and those that begin lists, so that a
    stop is passed between any two of these look-aheads. */
bool isStop(int typ) {
  return endsName(typ) || typ == T_END || typ == T_RPAREN || typ == T_LPAREN || typ == T_RECORD ||
         wordWidths[typ][MODE_WORD] > 0 || wordWidths[typ][CLASS_WORD] > 0;
}

}  // namespace

NameRole nameRole(int typ) { return nameRoles[typ]; }

int wordWidth(WordKind kind, int typ) { return wordWidths[typ][kind]; }

NameWalk walkOverInterfaceNames(const VhdlToken* cursor, int level, int classColumn, int limit) {
  NameWalk walk;
  int length = 0;
  for (const auto* node = cursor->getNext(); node != nullptr; node = node->getNext()) {
    const VhdlToken& token = *node;
    if (endsList(token, level)) {
      walk.end = node;
      return walk;
    }
    ++walk.steps;
    switch (nameRole(token.getTyp())) {
      case NAME_PART: length = addColumns(length, token.textLength(1)); break;
      case NAME_CLASS: length = addColumns(length, classColumn); break;
      case NAME_NONE: length = INT_MAX; break;
      case NAME_END:
        if (length > walk.longest && length <= limit) walk.longest = length;
        length = 0;
        break;
      case NAME_DROPPED: length = 0; break;
      case NAME_NOTHING: break;
    }
  }
  return walk;
}

// --- Building ---

void StopIndex::Summary::include(const Summary& other) {
  const auto larger = [](auto& mine, const auto& theirs) {
    for (std::size_t i = 0; i < mine.size(); ++i) mine[i] = std::max(mine[i], theirs[i]);
  };
  lowestSemicolon = std::min(lowestSemicolon, other.lowestSemicolon);
  lowestComma = std::min(lowestComma, other.lowestComma);
  lowestClose = std::min(lowestClose, other.lowestClose);
  hasEnd = hasEnd || other.hasEnd;
  hasNameEnd = hasNameEnd || other.hasNameEnd;
  larger(widest, other.widest);
  larger(longest, other.longest);
}

void StopIndex::reset(int longestName) {
  stops.clear();
  summaries.clear();
  for (auto& stretches : setStretches) stretches.clear();
  next = 0;
  awaited = nullptr;
  overlaps = 0;
  longestCounted = longestName;
}

void StopIndex::countSteps(const VhdlToken* cursor, const VhdlToken* end, int steps) {
  if (steps <= longWalk) return;
  if (awaited == nullptr) {
    awaited = end;
    overlaps = 0;
  } else if (++overlaps > longWalksMax) {
    build(cursor);
  }
}

void StopIndex::build(const VhdlToken* cursor) {
  reset(longestCounted);
  Stop place{nullptr, 0, 0};
  Stop nameStart = place;
  for (VhdlToken* node = cursor->getNext(); node != nullptr; node = node->getNext()) {
    const int typ = typAt(node);
    if (isSpacing(typ)) continue;
    if (isStop(typ)) {
      place.node = node;
      stops.push_back(place);
      summaries.add(summarize(place, nameStart));
    }
    switch (nameRole(typ)) {
      case NAME_END:
      case NAME_DROPPED: nameStart = place; break;
      case NAME_CLASS: ++place.classWords; break;
      case NAME_NONE: place.columns += INT_MAX; break;
      case NAME_PART: place.columns += node->textLength(1); break;
      case NAME_NOTHING: break;
    }
  }
  place.node = nullptr;
  stops.push_back(place);
  awaited = stops.front().node;
}

StopIndex::Summary StopIndex::summarize(const Stop& stop, const Stop& nameStart) const {
  const int typ = typAt(stop.node);
  const int level = stop.node->getParenLevel();
  Summary summary;
  if (typ == T_SEMICOLON) summary.lowestSemicolon = level;
  if (typ == T_COMMA) summary.lowestComma = level;
  if (typ == T_RPAREN) summary.lowestClose = level;
  summary.hasEnd = typ == T_END;
  summary.widest = wordWidths[typ];
  summary.hasNameEnd = endsName(typ);
  if (nameRole(typ) == NAME_END) {
    for (std::size_t i = 0; i < classColumns.size(); ++i) {
      summary.longest[i] = nameLength(0, nameStart, stop, classColumns[i]);
    }
  }
  return summary;
}

int StopIndex::nameLength(long long columns, const Stop& from, const Stop& to,
                          int classColumn) const {
  columns += to.columns - from.columns;
  columns += static_cast<long long>(classColumn) * (to.classWords - from.classWords);
  const int length = heldInRange(columns);
  return length <= longestCounted ? length : 0;
}

// --- Following the cursor ---

void StopIndex::goOn() {
  if (isBuilt()) ++next;
  awaited = isBuilt() ? stops[next].node : nullptr;
}

void StopIndex::goBackTo(std::size_t place) {
  next = place;
  if (isBuilt()) awaited = stops[next].node;
}

// --- Searches ---

VhdlToken* StopIndex::nextSemicolon() const {
  const auto isSemicolon = [](const Summary& summary) { return summary.lowestSemicolon < INT_MAX; };
  return stops[summaries.findFirst(next, isSemicolon)].node;
}

int StopIndex::countEntries(int level, int stop) const {
  const std::size_t end = summaries.findFirst(next, [level, stop](const Summary& summary) {
    return (stop == T_RPAREN ? summary.lowestClose : summary.lowestSemicolon) <= level;
  });
  if (end == summaries.size()) return 0;
  return summaries.collect(next, end).lowestComma <= level ? severalEntries : 1;
}

std::size_t StopIndex::listEnd(int level) const {
  return summaries.findFirst(next, [level](const Summary& summary) {
    return summary.hasEnd || summary.lowestClose <= level;
  });
}

int StopIndex::widestWord(int level, WordKind kind) const {
  return summaries.collect(next, listEnd(level)).widest[kind];
}

std::vector<VhdlToken*> StopIndex::wordsToSet(int level, WordKind kind) {
  const std::size_t end = listEnd(level);
  const int width = widestWord(level, kind);
  auto& stretches = setStretches[kind];
  while (!stretches.empty() && stretches.back().end <= next) stretches.pop_back();
  std::vector<VhdlToken*> words;
  if (!stretches.empty() && stretches.back().width == width && stretches.back().end >= end) {
    return words;
  }
  const auto hasWord = [kind](const Summary& summary) { return summary.widest[kind] > 0; };
  stretches.push_back({end, width});
  for (std::size_t place = summaries.findFirst(next, hasWord); place < end;
       place = summaries.findFirst(place + 1, hasWord)) {
    words.push_back(stops[place].node);
  }
  return words;
}

int StopIndex::longestName(const VhdlToken* cursor, int level, int classColumn) const {
  const int longest = searchLongestName(cursor, level, classColumn);
  assert(longest == walkOverInterfaceNames(cursor, level, classColumn, longestCounted).longest);
  return longest;
}

int StopIndex::searchLongestName(const VhdlToken* cursor, int level, int classColumn) const {
  const std::size_t end = listEnd(level);
  const std::size_t first =
      summaries.findFirst(next, [](const Summary& summary) { return summary.hasNameEnd; });
  if (first >= end) return 0;
  long long columns = 0;  // before the next stop
  for (const auto* node = cursor->getNext(); node != stops[next].node; node = node->getNext()) {
    if (!isSpacing(typAt(node))) columns += node->textLength(1);
  }
  const bool counts = nameRole(typAt(stops[first].node)) == NAME_END;
  const int firstName = counts ? nameLength(columns, stops[next], stops[first], classColumn) : 0;
  const auto width = std::ranges::find(classColumns, classColumn);  // any without class words
  const auto kind = static_cast<std::size_t>(width - classColumns.begin()) % classColumns.size();
  return std::max(firstName, summaries.collect(first + 1, end).longest[kind]);
}
