// Changed stretches shown as a unified diff, for people and for `patch -p1`.
#ifndef QORN_FMT_UNIFIEDDIFF_H
#define QORN_FMT_UNIFIEDDIFF_H

#include <string>
#include <string_view>
#include <vector>

#include "fmt/comparison.h"

/** The diff with three lines of context, from a/NAME to b/NAME; names that need it are quoted as
    git does. Empty without stretches. The stretches are those of both texts, in order. */
[[nodiscard]] std::string unifiedDiff(std::string_view name, std::string_view old,
                                      std::string_view fresh, const std::vector<Stretch>& changed);

#endif
