// Putting a new text in the place of a file: written beside it under no name or a temporary one,
// then renamed over it, so that at any moment the file is the old one or the new one, whole.
#ifndef QORN_BASE_RENAMEOVER_H
#define QORN_BASE_RENAMEOVER_H

#include <string>
#include <string_view>

#include "base/system.h"

enum class Replacement {
  done,
  changed,  // somebody else has written to the file since, or replaced it; it was left alone
  failed,   // as `reason` tells; the file is as it was
  hopeless  // failed as all further files will: the disk is full or may not be written
};

/** Replaces the file's text, if its state is still `asRead`. Mode, access lists and extended
    attributes are kept, owner and group where the user may give them. A symbolic link is followed.
    Of a file with several names this one leads to the new text, the others keep the old. A file
    that the user may not write is left alone, although renaming would take no right to it. */
[[nodiscard]] Replacement renameOver(const char* path, const FileState& asRead,
                                     std::string_view text, std::string& reason);

#endif
