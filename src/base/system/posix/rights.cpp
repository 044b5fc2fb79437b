// Mode, owner and group; access lists and extended attributes by the calls of each system.
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/system/files.h"

#if defined(__APPLE__)
#include <copyfile.h>
#include <fcntl.h>
#elif defined(__linux__)
#include <sys/xattr.h>
#endif

namespace {

#if defined(__linux__)
/** One that may not be set is left out. */
void copyAttributes(const char* path, int descriptor) {
  const ssize_t size = listxattr(path, nullptr, 0);
  if (size <= 0) return;
  std::string names(static_cast<std::size_t>(size), '\0');
  if (listxattr(path, names.data(), names.size()) != size) return;
  std::vector<char> value;
  for (const char* name = names.data(); name < names.data() + size; name += strlen(name) + 1) {
    const ssize_t length = getxattr(path, name, nullptr, 0);
    if (length < 0) continue;
    value.resize(static_cast<std::size_t>(length));
    if (getxattr(path, name, value.data(), value.size()) != length) continue;
    if (fsetxattr(descriptor, name, value.data(), value.size(), 0) != 0) continue;
  }
}
#elif defined(__APPLE__)
void copyAttributes(const char* path, int descriptor) {
  const int source = open(path, O_RDONLY | O_CLOEXEC);
  if (source < 0) return;
  fcopyfile(source, descriptor, nullptr, COPYFILE_ACL | COPYFILE_XATTR);
  close(source);
}
#else
void copyAttributes(const char*, int) {}
#endif

}  // namespace

int takeRights(int descriptor, const char* path) {
  struct stat wanted {};
  struct stat given {};
  if (stat(path, &wanted) != 0 || fstat(descriptor, &given) != 0) return -1;
  mode_t mode = wanted.st_mode & 07777;
  const bool isSame = wanted.st_uid == given.st_uid && wanted.st_gid == given.st_gid;
  if (!isSame && fchown(descriptor, wanted.st_uid, wanted.st_gid) != 0) {
    mode &= 01777;  // permissions given to one owner are not another's
    if (fchown(descriptor, static_cast<uid_t>(-1), wanted.st_gid) != 0) {
      mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3;
    }
  }
  copyAttributes(path, descriptor);
  return fchmod(descriptor, mode);
}
