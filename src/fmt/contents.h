// From texts with plain line ends back to the contents of files, line by line: a line of the one is
// a line of the other, whatever ends it.
#ifndef QORN_FMT_CONTENTS_H
#define QORN_FMT_CONTENTS_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/comparison.h"
#include "fmt/textform.h"

/** The content of a file with lines of it replaced, all others as they are to the byte. `taken`
    gives the numbers of the old lines, and where the new ones are in `fresh`. */
[[nodiscard]] std::string spliceContent(std::string_view content, const TextForm& form,
                                        std::string_view fresh, const std::vector<Stretch>& taken);

/** The stretches in which two contents differ, line ends and marks included, from those in which
    their texts do. */
[[nodiscard]] std::vector<Stretch> contentStretches(std::string_view old, std::string_view fresh,
                                                    const std::vector<Stretch>& ofTexts);

#endif
