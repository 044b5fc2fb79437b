// The command line as a POSIX shell would have split and expanded it: shells of Windows hand it
// over as one text, wild cards and all.
#ifndef QORN_BASE_SYSTEM_WINDOWS_ARGUMENTS_H
#define QORN_BASE_SYSTEM_WINDOWS_ARGUMENTS_H

#include <string>
#include <string_view>
#include <vector>

/** In UTF-8, the program's name first. */
[[nodiscard]] std::vector<std::string> commandLineArguments();

/** The existing paths that match, sorted, "*" and "?" standing for themselves in no part of a path;
    the pattern itself if there is none. A name that begins with "." is matched by such a pattern
    alone. */
[[nodiscard]] std::vector<std::string> matchingPaths(const std::string& pattern);

/** The word as a part of a command line from which a program gets it back. */
[[nodiscard]] std::string quotedArgument(std::string_view word);

#endif
