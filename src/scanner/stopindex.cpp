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
  return typ == T_SEMICOLON || typ == T_END || typ == T_RPAREN || modeWidths[typ] > 0 ||
         classWidths[typ] > 0;
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
    if (isStop(token.getTyp())) stops.push_back({node, token.getParenLevel(), 0, 0, 0, 0, 0, 0});
  }
  const auto none = static_cast<std::uint32_t>(stops.size());
  stops.push_back({nullptr, 0, none, none, none, none, 0, 0});
  linkStops();
}

void StopIndex::linkStops() {
  for (auto i = static_cast<std::uint32_t>(stops.size() - 1); i-- > 0;) {
    Stop& stop = stops[i];
    const Stop& behind = stops[i + 1];
    const int typ = typAt(stop.node);
    stop.semicolon = typ == T_SEMICOLON ? i : behind.semicolon;
    stop.end = typ == T_END ? i : behind.end;
    stop.close = typ == T_RPAREN ? i : behind.close;
    stop.lowerClose = behind.close;
    while (stops[stop.lowerClose].node != nullptr && stops[stop.lowerClose].level >= stop.level) {
      stop.lowerClose = stops[stop.lowerClose].lowerClose;
    }
    stop.modeWidth = std::max(modeWidths[typ], behind.modeWidth);
    stop.classWidth = std::max(classWidths[typ], behind.classWidth);
  }
}

void StopIndex::clear() {
  stops.clear();
  next = 0;
  longWalks = 0;
  setModeWidth = -1;
  setClassWidth = -1;
}

OldListRefItem* StopIndex::nextSemicolon() const { return stops[stops[next].semicolon].node; }

bool StopIndex::hasListEnd(int level) const {
  return stops[stops[next].end].node != nullptr || hasClose(level);
}

bool StopIndex::hasClose(int level) const {
  std::size_t place = stops[next].close;
  while (stops[place].node != nullptr && stops[place].level > level) {
    place = stops[place].lowerClose;
  }
  return stops[place].node != nullptr;
}

bool StopIndex::wordsAreSet() {
  const Stop& stop = stops[next];
  const bool same = stop.modeWidth == setModeWidth && stop.classWidth == setClassWidth;
  setModeWidth = stop.modeWidth;
  setClassWidth = stop.classWidth;
  return same;
}
