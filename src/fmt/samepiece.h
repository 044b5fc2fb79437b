// When two pieces mean the same: letter case counts where it does in VHDL, blanks where they are
// read as pieces.
#ifndef QORN_FMT_SAMEPIECE_H
#define QORN_FMT_SAMEPIECE_H

#include "fmt/reading.h"

/** Whether the formatter may replace the old piece by the new one. */
[[nodiscard]] bool isSamePiece(const Piece& old, const Piece& fresh);

/** Whether the texts are the same but for the case of ASCII letters. */
[[nodiscard]] bool isFoldedSame(std::string_view one, std::string_view other);

#endif
