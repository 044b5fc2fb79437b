// Building the index, and the searches in it.
#include "scanner/stopindex.h"

#include <algorithm>
#include <cassert>

#include "base/columns.h"

namespace {

constexpr int longWalk = 512;     // tokens
constexpr int longWalksMax = 16;  // up to this many over one stretch are cheaper than the index
constexpr int checkedWalk = 256;  // tokens; as far as a debug build checks answers

bool endsName(int typ) { return nameRole(typ) == NAME_END || nameRole(typ) == NAME_DROPPED; }

/** The tokens at which look-aheads end or which they collect, and those that begin lists, so that a
    stop is passed between any two of these look-aheads. */
bool isStop(int typ) {
  return endsName(typ) || typ == T_END || typ == T_RPAREN || typ == T_LPAREN || typ == T_RECORD ||
         wordWidth(MODE_WORD, typ) > 0 || wordWidth(CLASS_WORD, typ) > 0;
}

/** Is the token, or the end of the file for null, too far ahead of the cursor for a walk to check
   an answer? The index is there for sources in which all such walks together would take too long.
 */
[[maybe_unused]] bool isFar(const VhdlToken* cursor, const VhdlToken* token) {
  const VhdlToken* node = cursor->getNext();
  for (int steps = 0; steps < checkedWalk; ++steps, node = node->getNext()) {
    if (node == token || node == nullptr) return false;
  }
  return true;
}

}  // namespace

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

void StopIndex::record(const VhdlToken* cursor, const Measure& walk) {
  if (walk.end == nullptr) {
    build(cursor);
  } else if (walk.steps <= longWalk) {
    return;
  } else if (awaited == nullptr) {
    awaited = walk.end;
    overlaps = 0;
  } else if (++overlaps > longWalksMax) {
    build(cursor);
  }
}

// The lengths of names are differences of running totals, whatever the columns of class words.
void StopIndex::build(const VhdlToken* cursor) {
  reset(longestCounted);
  Stop here{nullptr, 0, 0};
  Stop nameStart = here;
  for (VhdlToken* node = cursor->getNext(); node != nullptr; node = node->getNext()) {
    const int typ = typAt(node);
    if (isSpacing(typ)) continue;
    if (isStop(typ)) {
      here.node = node;
      stops.push_back(here);
      summaries.add(summarize(here, nameStart));
    }
    switch (nameRole(typ)) {
      case NAME_END:
      case NAME_DROPPED: nameStart = here; break;
      case NAME_CLASS: ++here.classWords; break;
      case NAME_NONE: here.columns += INT_MAX; break;
      case NAME_PART: here.columns += node->textLength(1); break;
      case NAME_NOTHING: break;
    }
  }
  here.node = nullptr;
  stops.push_back(here);
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
  for (const WordKind kind : {MODE_WORD, CLASS_WORD}) {
    summary.widest[kind] = static_cast<std::int16_t>(wordWidth(kind, typ));
  }
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
  const int length = saturated(columns);
  return length <= longestCounted ? length : 0;
}

// --- Following the cursor ---

void StopIndex::awaitNext() {
  if (isBuilt()) ++next;
  awaited = isBuilt() ? stops[next].node : nullptr;
}

void StopIndex::goBackTo(std::size_t position) {
  next = position;
  if (isBuilt()) awaited = stops[next].node;
}

// --- Searches ---

VhdlToken* StopIndex::nextSemicolon([[maybe_unused]] const VhdlToken* cursor) const {
  const auto isSemicolon = [](const Summary& summary) { return summary.lowestSemicolon < INT_MAX; };
  VhdlToken* found = stops[summaries.findFirst(next, isSemicolon)].node;
  assert(isFar(cursor, found) || found == findSemicolon(cursor->getNext()).end);
  return found;
}

int StopIndex::countEntries([[maybe_unused]] const VhdlToken* cursor, int level, int stop) const {
  const std::size_t end = summaries.findFirst(next, [level, stop](const Summary& summary) {
    return (stop == T_RPAREN ? summary.lowestClose : summary.lowestSemicolon) <= level;
  });
  int count = 0;
  if (end < summaries.size()) {
    count = summaries.query(next, end).lowestComma <= level ? severalEntries : 1;
  }
  assert(isFar(cursor, stops[end].node) ||
         count == ::countEntries(cursor->getNext(), level, T_COMMA, stop).value);
  return count;
}

std::size_t StopIndex::listEnd([[maybe_unused]] const VhdlToken* cursor, int level) const {
  const std::size_t end = summaries.findFirst(next, [level](const Summary& summary) {
    return summary.hasEnd || summary.lowestClose <= level;
  });
  assert(isFar(cursor, stops[end].node) ||
         stops[end].node == findListEnd(cursor->getNext(), level));
  return end;
}

int StopIndex::widestWord(const VhdlToken* cursor, int level, WordKind kind) const {
  const std::size_t end = listEnd(cursor, level);
  const int widest = summaries.query(next, end).widest[kind];
  assert(isFar(cursor, stops[end].node) || widest == measureWords(cursor->getNext(), level, kind));
  return widest;
}

// A list inside one that was set for the same width has been set along with it. Such lists are
// nested, so a stack of their ends tells.
std::vector<VhdlToken*> StopIndex::wordsToSet(const VhdlToken* cursor, int level, WordKind kind) {
  const std::size_t end = listEnd(cursor, level);
  const int width = widestWord(cursor, level, kind);
  auto& stretches = setStretches[kind];
  while (!stretches.empty() && stretches.back().end <= next) stretches.pop_back();
  std::vector<VhdlToken*> words;
  if (!stretches.empty() && stretches.back().width == width && stretches.back().end >= end) {
    return words;
  }
  const auto hasWord = [kind](const Summary& summary) { return summary.widest[kind] > 0; };
  stretches.push_back({end, width});
  for (std::size_t index = summaries.findFirst(next, hasWord); index < end;
       index = summaries.findFirst(index + 1, hasWord)) {
    words.push_back(stops[index].node);
  }
  return words;
}

int StopIndex::longestName(const VhdlToken* cursor, int level, int classColumn) const {
  const std::size_t end = listEnd(cursor, level);
  const int longest = searchLongestName(cursor, end, classColumn);
  assert(isFar(cursor, stops[end].node) ||
         longest == measureNames(cursor->getNext(), level, classColumn, longestCounted).value);
  return longest;
}

// The first name may have begun before the cursor, so its length in the tree is of no use: it is
// measured from the cursor on. All further names of the list lie between two stops.
int StopIndex::searchLongestName(const VhdlToken* cursor, std::size_t end, int classColumn) const {
  const std::size_t first =
      summaries.findFirst(next, [](const Summary& summary) { return summary.hasNameEnd; });
  if (first >= end) return 0;
  long long columns = 0;  // before the next stop
  for (const auto* node = cursor->getNext(); node != stops[next].node; node = node->getNext()) {
    if (!isSpacing(typAt(node))) columns += node->textLength(1);
  }
  const bool counts = nameRole(typAt(stops[first].node)) == NAME_END;
  const int firstName = counts ? nameLength(columns, stops[next], stops[first], classColumn) : 0;
  // Without class words every total is the same.
  const auto* width = std::ranges::find(classColumns, classColumn);
  const auto kind = width == classColumns.end() ? 0 : width - classColumns.begin();
  const Summary others = summaries.query(first + 1, end);
  return std::max(firstName, others.longest[static_cast<std::size_t>(kind)]);
}
