// Index of the tokens at which look-aheads stop, built only for sources that would make them
// quadratic.
//
// In a well-formed source a look-ahead for the end of a list or statement soon stops, and its
// stretch is then read. In a source that leaves ten thousand lists open it would run to the end of
// the file ten thousand times, and nearly as far where ten thousand lists are nested in a way that
// ends their reading early. So the first look-ahead that finds no stop, or several long ones over
// the same stretch, build this index of all stops ahead of the cursor; from then on a look-ahead is
// a search in it. 1,500 procedure heads left open take 660 instructions a byte with it and 18,800
// without, and twice as many heads twice that.
//
// Invariant, once built: `next` is the first stop ahead of the cursor, which reports every token
// that it passes. Only blanks and line ends ahead of the cursor ever change, and they are no stops.
#ifndef QORN_SCANNER_STOPINDEX_H
#define QORN_SCANNER_STOPINDEX_H

#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/segmenttree.h"
#include "scanner/lookahead.h"
#include "tokens/vhdltoken.h"

class StopIndex {
 public:
  /** Clears the index. Only names up to that length will count in longestName. */
  void reset(int longestName);
  bool isBuilt() const { return !stops.empty(); }
  /** Is it built, and with names up to that length? */
  bool knowsNames(int longestName) const { return isBuilt() && longestName == longestCounted; }
  /** Indexes everything after the node that the cursor is on. */
  void build(const VhdlToken* cursor);
  /** To be called with each walk. One that found no end builds the index, and so do several long
      ones over one stretch. */
  void record(const VhdlToken* cursor, const Measure& walk);
  /** To be called with every token that the cursor passes, blanks, line ends and comments aside. */
  void pass(const VhdlToken* node) {
    if (node == awaited) awaitNext();
  }
  /** Saves the position before a Peek. */
  [[nodiscard]] std::size_t getPosition() const { return next; }
  void goBackTo(std::size_t position);

  // --- Once built: the answers that the walks of lookahead.h would give from `cursor` on. A debug
  // --- build compares them, unless the walk would be long. Requires: the cursor is on that node.

  /** The next semicolon ahead, or null. */
  [[nodiscard]] VhdlToken* nextSemicolon(const VhdlToken* cursor) const;
  /** The entries up to the next `stop`, a semicolon or a closing parenthesis, separated by commas;
     0 if it never comes. */
  [[nodiscard]] int countEntries(const VhdlToken* cursor, int level, int stop) const;

  // The list ahead of the cursor; if it is left open, everything ahead.

  [[nodiscard]] bool hasListEnd(const VhdlToken* cursor, int level) const {
    return listEnd(cursor, level) < stops.size() - 1;
  }
  /** The largest width that a word claims, 0 without one. */
  [[nodiscard]] int widestWord(const VhdlToken* cursor, int level, WordKind kind) const;
  /** The words of a kind, whose blanks the caller must set for the widest of them; none if an
      earlier call has already had them set that way. */
  [[nodiscard]] std::vector<VhdlToken*> wordsToSet(const VhdlToken* cursor, int level,
                                                   WordKind kind);
  /** The longest name. Requires: the list has an end, and `classColumn` is the largest width that a
      class word in it claims. */
  [[nodiscard]] int longestName(const VhdlToken* cursor, int level, int classColumn) const;

 private:
  static constexpr std::array<int, 4> classColumns{5, 6, 7, 9};  // which a list can have

  struct Stop {
    VhdlToken* node;
    // Running totals of the names and parts of names before it: columns without class words, number
    // of class words.
    long long columns;
    int classWords;
  };
  /** What a stretch contains. */
  struct Summary {
    int lowestSemicolon = INT_MAX;  // level
    int lowestComma = INT_MAX;      // level
    int lowestClose = INT_MAX;      // level
    bool hasEnd = false;
    bool hasNameEnd = false;
    std::array<std::int16_t, 2> widest{};            // word, by kind
    std::array<int, classColumns.size()> longest{};  // name, by the columns of class words
    void include(const Summary& other);
  };
  struct SetStretch {
    std::size_t end;  // the stop that ends the list
    int width;        // of the widest word
  };

  void awaitNext();
  Summary summarize(const Stop& stop, const Stop& nameStart) const;
  /** The length of a name between two stops; 0 if it is too long to count. */
  int nameLength(long long columns, const Stop& from, const Stop& to, int classColumn) const;
  std::size_t listEnd(const VhdlToken* cursor, int level) const;
  int searchLongestName(const VhdlToken* cursor, std::size_t end, int classColumn) const;

  std::vector<Stop> stops;         // in the order of the list, ending with an entry without a node
  SegmentTree<Summary> summaries;  // of the stops except the last entry
  std::size_t next = 0;
  const VhdlToken* awaited = nullptr;  // the next stop, or the end of a long look-ahead
  int overlaps = 0;                    // further long look-aheads before `awaited` was passed
  int longestCounted = 0;              // longer names don't count
  std::array<std::vector<SetStretch>, 2> setStretches;  // by kind, each inside the one before
};

#endif
