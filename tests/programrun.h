// Runs the built program in a folder, as a shell would.
#ifndef QORN_TESTS_PROGRAMRUN_H
#define QORN_TESTS_PROGRAMRUN_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tempfolder.h"

struct ProgramRun {
  int status;  // exit status, or -1 if a signal ended the run
  std::string out;
  std::string err;
};

/** An environment variable; a null value takes it away. */
struct Variable {
  const char* name;
  const char* value;
};

/** Runs qorn with these arguments in the folder. QORNRC names no folder unless it is given. */
inline ProgramRun runProgram(const TempFolder& folder, std::vector<std::string> arguments,
                             std::string_view input = "", std::vector<Variable> variables = {}) {
  const TempFolder streams;
  streams.write("in", input);
  const pid_t child = fork();
  if (child == 0) {
    const bool ready = dup2(open(streams.path("in").c_str(), O_RDONLY), STDIN_FILENO) != -1 &&
                       dup2(creat(streams.path("out").c_str(), 0600), STDOUT_FILENO) != -1 &&
                       dup2(creat(streams.path("err").c_str(), 0600), STDERR_FILENO) != -1 &&
                       chdir(folder.path().c_str()) == 0 && setenv("QORNRC", ":", 1) == 0;
    for (const auto& [name, value] : variables) {
      (void)(value == nullptr ? unsetenv(name) : setenv(name, value, 1));
    }
    std::vector<char*> words{const_cast<char*>("qorn")};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    if (ready) execv(QORN_PROGRAM, words.data());
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, streams.read("out"), streams.read("err")};
}

#endif
