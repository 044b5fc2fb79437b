// Standard input and standard error are unnamed files, so that only one pipe has to be drained and
// neither side can wait for the other.
#include "base/system/childprocess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

#include "base/readfile.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): of glibc alone

namespace {

using TemporaryFile = std::unique_ptr<FILE, int (*)(FILE*)>;

TemporaryFile makeTemporary(std::string_view text) {
  TemporaryFile file(std::tmpfile(), &std::fclose);
  if (file == nullptr) return file;
  fcntl(fileno(file.get()), F_SETFD, FD_CLOEXEC);
  const bool isWritten =  // an empty text may have no address
      (text.empty() || std::fwrite(text.data(), 1, text.size(), file.get()) == text.size()) &&
      std::fflush(file.get()) == 0;
  if (!isWritten)
    file.reset();
  else
    std::rewind(file.get());
  return file;
}

/** A pipe that no other child inherits, or -1s. */
std::array<int, 2> makePipe() {
  std::array<int, 2> ends{-1, -1};
#ifdef __linux__
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return {-1, -1};
#else
  if (pipe(ends.data()) != 0) return {-1, -1};
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
#endif
  return ends;
}

/** 0, or an error number. The child gets signal handling as if its parent had never changed it. */
int spawn(const std::vector<std::string>& words, const std::array<int, 3>& streams, pid_t& child) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (int i = 0; i < 3; ++i) {
    posix_spawn_file_actions_adddup2(&actions, streams[static_cast<std::size_t>(i)], i);
  }
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none;
  sigemptyset(&none);
  sigset_t ignored = none;
  sigaddset(&ignored, SIGXFSZ);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &ignored);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  const int error =
      posix_spawnp(&child, arguments[0], &actions, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

int waitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ChildResult runProgram(const std::vector<std::string>& words, std::string_view input) {
  ChildResult result;
  const TemporaryFile source = makeTemporary(input);
  const TemporaryFile complaints = makeTemporary({});
  const std::array<int, 2> ends = makePipe();
  if (source == nullptr || complaints == nullptr || ends[0] < 0) {
    result.trouble = words[0] + ": " + std::strerror(errno);
    return result;
  }
  pid_t child = -1;
  const int error = spawn(words, {fileno(source.get()), ends[1], fileno(complaints.get())}, child);
  close(ends[1]);
  if (error != 0) {
    result.trouble = words[0] + ": " + std::strerror(error);
  } else {
    const std::string reason = readToEnd(ends[0], result.output);
    result.status = waitFor(child);
    lseek(fileno(complaints.get()), 0, SEEK_SET);
    (void)readToEnd(fileno(complaints.get()), result.trouble);
    if (!reason.empty()) result = {-1, {}, words[0] + ": " + reason};
  }
  close(ends[0]);
  return result;
}
