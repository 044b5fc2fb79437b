// Replacing a file's text: it is written beside the file under no name or a temporary one, then
// renamed over it, so that at any moment the file is the complete old one or the complete new one.
#ifndef QORN_BASE_RENAMEOVER_H
#define QORN_BASE_RENAMEOVER_H

#include <string>
#include <string_view>

#include "base/system/paths.h"

enum class Replacement {
  done,
  changed,  // somebody else has written to the file since, or replaced it; it was left alone
  failed,   // as `reason` says; the file is as it was
  hopeless  // failed as all further files will: the disk is full or not writable
};

/** Replaces the file's text, if its state is still `asRead`. Mode, access lists and extended
    attributes are kept, owner and group if the user may set them. A symbolic link is followed. If a
    file has several names, this one gets the new text and the others keep the old. A file that the
    user may not write is left alone, although renaming would need no permission on it. */
[[nodiscard]] Replacement renameOver(const char* path, const FileState& asRead,
                                     std::string_view text, std::string& reason);

#endif
