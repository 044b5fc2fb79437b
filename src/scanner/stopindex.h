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

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tokens/vhdltoken.h"

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

  /** The next semicolon ahead, or null. */
  [[nodiscard]] OldListRefItem* nextSemicolon() const;
  /** Does `end`, or a closing parenthesis of at most that level, stand ahead? */
  [[nodiscard]] bool hasListEnd(int level) const;
  /** Does a closing parenthesis of at most that level stand ahead? */
  [[nodiscard]] bool hasClose(int level) const;
  /** Are the widest mode word and the widest class word ahead still those of the last call? The
     first call after build says no. */
  [[nodiscard]] bool wordsAreSet();

 private:
  struct Stop {
    OldListRefItem* node;
    int level;                // of parentheses
    std::uint32_t semicolon;  // the first at or behind this stop, as are the next two
    std::uint32_t end;
    std::uint32_t close;
    std::uint32_t lowerClose;  // the next closing parenthesis of a lower level
    std::int16_t modeWidth;    // the widest at or behind this stop
    std::int16_t classWidth;
  };
  void linkStops();

  std::vector<Stop> stops;  // in the order of the list, closed by an entry without a node
  std::size_t next = 0;
  int longWalks = 0;
  int setModeWidth = -1;
  int setClassWidth = -1;
};

/** Columns that a mode word or a class word claims in a list, itself and one blank; 0 for others.
 */
[[nodiscard]] int modeWidth(int typ);
[[nodiscard]] int classWidth(int typ);

#endif
