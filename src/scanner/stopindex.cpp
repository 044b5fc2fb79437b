// Building the index: one walk forward to collect the stops, one backward to link them.
#include "scanner/stopindex.h"

#include <algorithm>

namespace {

constexpr int longWalk = 4096;    // tokens
constexpr int longWalksMax = 16;  // that many long walks are cheaper than the index

constexpr auto modeWidths = [] {
  TokenTable<std::int16_t> widths(0);
  // clang-format off
  widths[T_IN]      = 3;
  widths[T_OUT]     = 4;
  widths[T_INOUT]   = 6;
  widths[T_BUFFER]  = 7;
  widths[T_LINKAGE] = 8;
  // clang-format on
  return widths;
}();

constexpr auto classWidths = [] {
  TokenTable<std::int16_t> widths(0);
  // clang-format off
  widths[T_FILE]     = 5;
  widths[T_ALIAS]    = 6;
  widths[T_GROUP]    = 6;
  widths[T_SIGNAL]   = 7;
  widths[T_CONSTANT] = 9;
  widths[T_VARIABLE] = 9;
  // clang-format on
  return widths;
}();

bool isStop(int typ) {
  return typ == T_SEMICOLON || typ == T_COMMA || typ == T_END || typ == T_LPAREN ||
         typ == T_RPAREN || modeWidths[typ] > 0 || classWidths[typ] > 0;
}

}  // namespace

int modeWidth(int typ) { return modeWidths[typ]; }

int classWidth(int typ) { return classWidths[typ]; }

void StopIndex::countSteps(const OldListRefItem* cursor, int steps) {
  if (steps > longWalk && ++longWalks > longWalksMax) build(cursor);
}

void StopIndex::build(const OldListRefItem* cursor) {
  clear();
  for (OldListRefItem* node = cursor->getNext(); node != nullptr; node = node->getNext()) {
    const VhdlToken& token = tokenAt(node);
    if (isStop(token.getTyp())) stops.push_back({node, token.getParenLevel()});
  }
  const auto none = static_cast<std::uint32_t>(stops.size());
  stops.push_back({nullptr, 0, none});
  linkStops();
  countListEntries();
}

void StopIndex::linkStops() {
  for (auto i = static_cast<std::uint32_t>(stops.size() - 1); i-- > 0;) {
    Stop& stop = stops[i];
    const Stop& behind = stops[i + 1];
    const int typ = typAt(stop.node);
    stop.semicolon = typ == T_SEMICOLON ? i : behind.semicolon;
    const int semicolonLevel = typ == T_SEMICOLON ? stop.level : INT_MAX;
    stop.lowestSemicolon = std::min(semicolonLevel, behind.lowestSemicolon);
    stop.lowestClose = std::min(typ == T_RPAREN ? stop.level : INT_MAX, behind.lowestClose);
    stop.hasEnd = typ == T_END || behind.hasEnd;
    stop.modeWidth = std::max(modeWidths[typ], behind.modeWidth);
    stop.classWidth = std::max(classWidths[typ], behind.classWidth);
  }
}

void StopIndex::countListEntries() {
  std::vector<int> closed;  // the entries of the lists that are open, seen from behind
  for (auto stop = stops.rbegin() + 1; stop != stops.rend(); ++stop) {
    const int typ = typAt(stop->node);
    if (typ == T_RPAREN) {
      closed.push_back(1);
    } else if (typ == T_COMMA && !closed.empty()) {
      closed.back() = severalEntries;
    } else if (typ == T_LPAREN && !closed.empty()) {
      stop->entries = closed.back();
      closed.pop_back();
    }
  }
}

int StopIndex::countEntries(int level, int stop) const {
  const int lowest = stop == T_RPAREN ? stops[next].lowestClose : stops[next].lowestSemicolon;
  if (lowest > level) return 0;
  const bool isBehindParen = next > 0 && typAt(stops[next - 1].node) == T_LPAREN;
  if (stop == T_RPAREN && isBehindParen && stops[next - 1].level == level) {
    return stops[next - 1].entries;
  }
  for (auto place = stops.begin() + static_cast<std::ptrdiff_t>(next);; ++place) {
    if (place->level > level) continue;
    if (typAt(place->node) == stop) return 1;
    if (typAt(place->node) == T_COMMA) return severalEntries;
  }
}

void StopIndex::clear() {
  stops.clear();
  next = 0;
  longWalks = 0;
  setModeWidth = -1;
  setClassWidth = -1;
}

bool StopIndex::wordsAreSet() {
  const Stop& stop = stops[next];
  const bool same = stop.modeWidth == setModeWidth && stop.classWidth == setClassWidth;
  setModeWidth = stop.modeWidth;
  setClassWidth = stop.classWidth;
  return same;
}
