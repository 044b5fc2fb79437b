// Where the look-aheads of odd sources stop.
//
// A look-ahead for the end of a list or of a statement stops before long in any sound source. In
// one that leaves ten thousand lists open it would run to the end of the file ten thousand times.
// So the first look-ahead that finds no stop, or a number of them that go far, build this index of
// all stops ahead of the cursor, and from then on the question whether one will come costs nothing.
//
// Invariant, once built: `next` is the first stop ahead of the cursor, which reports every stop
// that it passes.
#ifndef QORN_SCANNER_STOPINDEX_H
#define QORN_SCANNER_STOPINDEX_H

#include <climits>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "tokens/vhdltoken.h"

constexpr int severalEntries = 2;  // more are never counted

class StopIndex {
 public:
  bool isBuilt() const { return !stops.empty(); }
  /** Indexes all that stands behind the node that the cursor is on. */
  void build(const OldListRefItem* cursor);
  /** Takes note of a look-ahead over that many tokens; several long ones build the index. */
  void countSteps(const OldListRefItem* cursor, int steps);
  void clear();
  /** To be called with every node that the cursor passes. */
  void pass(const OldListRefItem* node) {
    if (isBuilt() && stops[next].node == node) ++next;
  }
  /** A place to come back to, where the cursor is only sent ahead. */
  [[nodiscard]] std::size_t getPlace() const { return next; }
  void goBackTo(std::size_t place) { next = place; }

  /** The next semicolon ahead, or null. */
  [[nodiscard]] OldListRefItem* nextSemicolon() const { return stops[stops[next].semicolon].node; }
  /** Does `end`, or a closing parenthesis of at most that level, stand ahead? */
  [[nodiscard]] bool hasListEnd(int level) const { return stops[next].hasEnd || hasClose(level); }
  /** Does a closing parenthesis of at most that level stand ahead? */
  [[nodiscard]] bool hasClose(int level) const { return stops[next].lowestClose <= level; }
  /** The entries up to the next `stop`, a semicolon or a closing parenthesis, each on at most that
      level and parted by commas; no more than severalEntries are counted. 0 if it never comes. */
  [[nodiscard]] int countEntries(int level, int stop) const;
  /** Are the widest mode word and the widest class word ahead still those of the last call? The
     first call after build says no. */
  [[nodiscard]] bool wordsAreSet();

 private:
  struct Stop {
    OldListRefItem* node;
    int level = 0;  // of parentheses
    // Of the stops from this one on:
    std::uint32_t semicolon = 0;    // the first one
    int lowestSemicolon = INT_MAX;  // level
    int lowestClose = INT_MAX;      // level
    bool hasEnd = false;
    std::int16_t modeWidth = 0;  // the widest
    std::int16_t classWidth = 0;
    // Of an opening parenthesis: as countEntries behind it.
    int entries = 0;
  };
  void linkStops();
  void countListEntries();

  std::vector<Stop> stops;  // in the order of the list, closed by an entry without a node
  std::size_t next = 0;
  int longWalks = 0;
  int setModeWidth = -1;
  int setClassWidth = -1;
};

/** Columns that a mode or class word claims in a list, itself and one blank; 0 for others. */
[[nodiscard]] int modeWidth(int typ);
[[nodiscard]] int classWidth(int typ);

#endif
