// Finding the configuration that suits existing sources: the one with which formatting changes the
// fewest of their lines.
#ifndef QORN_FMT_GUESS_H
#define QORN_FMT_GUESS_H

#include <cstddef>
#include <string>
#include <vector>

#include "scanner/settings.h"

/** The files to look at: evenly spread over the list, and no more than fit the time that people
    wait. Indexes, ascending; the same for the same sizes. */
[[nodiscard]] std::vector<std::size_t> drawSample(const std::vector<std::size_t>& sizes);

struct Guess {
  Settings settings;
  std::string text;  // a .qornrc with a remark for each key, and the shares at its end
};

/** Tries the values of each key on the texts, which have plain line ends, until none gets better.
    They are a sample of so many files. Runs in that many threads; the result does
    not depend on their number. */
[[nodiscard]] Guess guessSettings(const std::vector<std::string>& texts, std::size_t fileCount,
                                  unsigned threads);

#endif
