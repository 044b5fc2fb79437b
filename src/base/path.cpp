// Making a path absolute and tidying it.
#include "base/path.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "base/system/files.h"

namespace {

/** Removes `count` characters at each occurrence of `pattern`, until there is none. What remains
    there begins with the "/" that closed the pattern, so no earlier position can start to match. */
void takeOut(std::string& text, const char* pattern, std::size_t count) {
  std::size_t place = 0;
  while ((place = text.find(pattern, place)) != std::string::npos) text.erase(place, count);
}

/** Removes each "/.." in the middle, with the step before it. False if there is none. */
bool resolveParents(std::string& text) {
  std::size_t place = 0;
  while ((place = text.find("/../", place)) != std::string::npos) {
    if (place == 0) return false;
    const std::size_t before = text.rfind('/', place - 1);
    if (before == std::string::npos) return false;
    text.erase(before, place + 3 - before);
    place = before;
  }
  return true;
}

/** Removes a "/.." at the end, with the step before it. False if there is none. */
bool resolveLastParent(std::string& text) {
  if (!text.ends_with("/..")) return true;
  text.resize(text.size() - 3);
  const std::size_t before = text.rfind('/');
  if (before == std::string::npos) return false;
  text.resize(before);
  return true;
}

}  // namespace

void Path::addcwd() {
  if (isAbsolute(view())) return;
  std::string absolute = workingFolder();
  if (absolute.empty()) {
    std::fprintf(stderr, "Error! unable to determine current directory: %s\n",
                 std::strerror(errno));
    return;
  }
  absolute += '/';
  absolute += view();
  set(absolute);
}

void Path::cleanup() {
  std::string text(view());
  takeOut(text, "/./", 2);
  takeOut(text, "//", 1);
  if (!resolveParents(text)) return;
  if (text.starts_with("/tmp_mnt/")) text.erase(0, 8);
  if (text.ends_with("/.")) text.resize(text.size() - 2);
  if (text.ends_with('/')) text.pop_back();
  if (!resolveLastParent(text)) return;
  set(text);
}

int Path::executable() {
  if (checkExecutable(get()) == 0) return 0;
  error = errno;
  return -1;
}

const char* Path::tail() const {
  const char* slash = std::strrchr(get(), '/');
  return slash == nullptr ? get() : slash + 1;
}
