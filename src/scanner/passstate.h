// The data of a run, by lifetime. `PassState` is where the formatting pass stands in one file;
// Reset clears it, and each branch of a conditional directive starts from a copy. `RunState`
// survives Reset: source lines are numbered on from file to file, so that a comment on the first
// line of a file may continue a run of comments from the last line of the file before.
#ifndef QORN_SCANNER_PASSSTATE_H
#define QORN_SCANNER_PASSSTATE_H

#include "scanner/indentstack.h"
#include "tokens/vhdllexer.h"

struct PassState {
  int indent = 0;           // columns; of the tokens read from here on
  int statementClosed = 1;  // 1 when no statement is open
  int inBlockHeader = 0;    // 1 until the begin of a block
  int inConfiguration = 0;  // 1 inside a configuration
};

/** What held before an open conditional directive. */
struct Branching {
  IndentStack::Place place;
  PassState state;
};

struct RunState {
  LexState lexState;
  int targetEndLine = 0;     // source line up to which targetLength holds
  int targetLength = 0;      // columns; of the current run of assignments or declarations
  int lastCommentLine = -1;  // source line of the last comment
  int blockShift = 0;        // columns by which the current delimited comment moved to the right
  /** The formatting pass: the column of the current run of comments. */
  int commentColumn = 0;
  /** Wrapping: the column for the next long comment, if there is one above to line up with. Starts
      with commentColumn and is handed back to it for the next file. */
  int reflowColumn = noColumn;
  static constexpr int noColumn = 0;
};

/** The last answer of determineContext. It holds for a later token too, unless one of those between
    them decides: what the cursor has passed does not change. 4,000 assignments without a semicolon
    take 1,900 instructions a byte with it and 16,300 without. */
struct ContextMemory {
  const VhdlToken* at = nullptr;  // the token that was asked about
  int typ = -1;
};

#endif
