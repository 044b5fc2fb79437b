// The order of the steps matters: at every moment the old text or the new one is complete under
// some name.
#include "base/filereplacement.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/system/run.h"

namespace {

constexpr int mostLeftovers = 1000;  // of earlier runs of the same number

}  // namespace

FileReplacement::FileReplacement(std::string_view name, const FileRead& old,
                                 std::string_view backupExtension)
    : file(name), read(old) {
  if (!backupExtension.empty()) backup = file + std::string(backupExtension);
  beside.reserve(file.size() + temporaryFolder().size() + 64);
  holdSignals();
}

FileReplacement::~FileReplacement() { releaseSignals(); }

Replaced FileReplacement::open() { return backup.empty() ? openInPlace() : openBesideBackup(); }

void FileReplacement::put(std::string_view text) {
  if (error == 0 && writeAll(descriptor, text) != 0) error = errno;
}

Replaced FileReplacement::close() { return backup.empty() ? closeInPlace() : closeBesideBackup(); }

std::string_view FileReplacement::folder() const {
  return std::string_view(file).substr(0, lastPartOf(file));
}

Replaced FileReplacement::giveUp(Replaced result, int failure) {
  why = result == CHANGED ? "changed since it was read" : std::strerror(failure);
  return result;
}

/** Sets `beside` to an unused name in the folder. */
void FileReplacement::nameBeside(std::string_view home, const char* kind) {
  int leftovers = 0;  // of earlier runs with the same number
  do {
    char name[64];
    std::snprintf(name, sizeof(name), ".qorn-%s.%ld", kind, processNumber() + leftovers);
    beside.assign(home).append(name);
  } while (stateOfEntry(beside.c_str()).kind != NO_FILE && ++leftovers < mostLeftovers);
}

// --- With a backup ---

Replaced FileReplacement::openBesideBackup() {
  if (hasSeparator(std::string_view(backup).substr(file.size()))) {
    return giveUp(NOT_OPENED, ENOTDIR);  // a backup is only ever made beside its file
  }
  const FileState now = stateOf(file.c_str());
  if (now.kind == NO_FILE) return giveUp(NOT_OPENED, now.error);
  if (!now.isUnchanged(read.state)) return giveUp(CHANGED, 0);
  if (moveToBackup() != 0) return giveUp(NOT_OPENED, errno);
  if (!stateOf(backup.c_str()).isUnchanged(read.state)) {  // saved again at the last moment?
    (void)moveToFreeName(backup.c_str(), file.c_str());
    return giveUp(CHANGED, 0);
  }
  nameBeside(folder(), "new");
  descriptor = createFile(beside.c_str(), DEFAULT_RIGHTS);
  return descriptor >= 0 ? REPLACED : giveUp(NOT_OPENED, errno);
}

int FileReplacement::moveToBackup() {
  if (!stateOfEntry(backup.c_str()).isSameFile(read.state)) {
    return moveOver(file.c_str(), backup.c_str());
  }
  if (stateOfEntry(file.c_str()).kind == LINK) {  // it would replace the text it points to
    errno = EEXIST;
    return -1;
  }
  return moveOffBackup();
}

/** For two names of one file, where a rename does nothing and succeeds. Other runs may be working
    on the same file, so no step removes a name that could be the last. */
int FileReplacement::moveOffBackup() {
  nameBeside(folder(), "old");
  if (moveToFreeName(file.c_str(), beside.c_str()) != 0) return -1;
  if (moveOver(beside.c_str(), backup.c_str()) != 0) {
    const int failure = errno;
    (void)moveToFreeName(beside.c_str(), file.c_str());
    errno = failure;
    return -1;
  }
  discardFile(beside.c_str());  // still there: this rename did nothing either
  return 0;
}

Replaced FileReplacement::closeBesideBackup() {
  if (closeFile(descriptor) != 0 && error == 0) error = errno;
  const bool isWritten = error == 0;
  if (isWritten && moveToFreeName(beside.c_str(), file.c_str()) == 0) return REPLACED;
  const int failure = isWritten ? errno : error;
  discardFile(beside.c_str());
  if (isWritten && failure == EEXIST) return giveUp(CHANGED, 0);
  const bool isBack = moveToFreeName(backup.c_str(), file.c_str()) == 0;
  (void)giveUp(NOT_WRITTEN, failure);
  if (!isBack) why += "; its text is in " + backup;
  return NOT_WRITTEN;
}

// --- Without ---

Replaced FileReplacement::openInPlace() {
  descriptor = openToOverwrite(file.c_str());
  if (descriptor < 0) return giveUp(NOT_OPENED, errno);
  Replaced result = REPLACED;
  if (!stateOf(descriptor).isUnchanged(read.state)) {
    result = giveUp(CHANGED, 0);
  } else if (keepOldText() != 0) {
    result = giveUp(NOT_WRITTEN, errno);
  }
  if (result != REPLACED) (void)closeFile(descriptor);
  return result;
}

/** Copies the text to `beside`. 0, or -1 if no copy could be made; then nothing of it is left. */
int FileReplacement::keepOldText() {
  nameBeside(folder(), "old");
  int copy = createFile(beside.c_str(), PRIVATE);
  if (copy < 0 && (errno == EACCES || errno == EPERM || errno == EROFS)) {
    nameBeside(temporaryFolder(), "old");
    copy = createFile(beside.c_str(), PRIVATE);
  }
  if (copy < 0) return -1;
  const bool isWritten = writeAll(copy, read.text) == 0;
  const int failure = errno;
  if (closeFile(copy) == 0 && isWritten) return 0;
  if (!isWritten) errno = failure;
  discardFile(beside.c_str());
  return -1;
}

Replaced FileReplacement::closeInPlace() {
  if (error == 0 && endFileHere(descriptor) != 0) error = errno;
  bool isWhole =
      error == 0 || (rewindFile(descriptor) == 0 && writeAll(descriptor, read.text) == 0 &&
                     endFileHere(descriptor) == 0);
  if (closeFile(descriptor) != 0) {
    if (error == 0) error = errno;
    isWhole = false;
  }
  if (isWhole) discardFile(beside.c_str());
  if (error == 0) return REPLACED;
  (void)giveUp(NOT_WRITTEN, error);
  if (!isWhole) why += "; its text is in " + beside;
  return NOT_WRITTEN;
}
