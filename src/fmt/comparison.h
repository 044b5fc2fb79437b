// One walk over a text and its layout: the proof that both hold the same tokens, and the stretches
// in which they differ. Both texts can be split wherever they start a line at the same token, so
// that no search for matching lines is needed.
#ifndef QORN_FMT_COMPARISON_H
#define QORN_FMT_COMPARISON_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "fmt/fault.h"

/** Some lines of one text. */
struct Lines {
  unsigned first = 1;     // 1-based
  unsigned count = 0;     // with none, the place before the first
  std::size_t place = 0;  // bytes before them
  std::size_t size = 0;   // bytes, line ends included

  bool operator==(const Lines&) const = default;
};

/** Lines of the old text and the lines that replace them in the new one. The first lines of both
    differ, and so do the last ones; one of both may be empty. Each stretch can be taken over
    alone. */
struct Stretch {
  Lines old;
  Lines fresh;

  bool operator==(const Stretch&) const = default;
};

struct Comparison {
  std::optional<Fault> fault;    // the new text must not replace the old one
  std::vector<Stretch> changed;  // in order; empty on a fault
};

/** Compares a text with its layout. Letter case counts where it does in VHDL: in extended
    identifiers, strings, characters, metavalues and comments. Comments are compared by their words,
    which the frame characters of the settings don't belong to. Linear. */
[[nodiscard]] Comparison compareTexts(std::string_view old, std::string_view fresh,
                                      std::string_view frameCharacters);

#endif
