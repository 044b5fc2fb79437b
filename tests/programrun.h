// Runs the built program in a folder, by way of a shell.
#ifndef QORN_TESTS_PROGRAMRUN_H
#define QORN_TESTS_PROGRAMRUN_H

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>

#include "tempfolder.h"

// Under this sanitizer, memory cannot be limited, and no library be loaded before its own.
#if defined(__SANITIZE_ADDRESS__)
#define QORN_HAS_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QORN_HAS_ADDRESS_SANITIZER 1
#endif
#endif

struct ProgramRun {
  int status;  // exit status, or -1 if a signal ended the shell
  std::string out;
  std::string err;
};

/** The folder with what runs the programs for Windows, if those are to be tested; else null. */
inline const char* windowsPrograms() { return std::getenv("QORN_WINDOWS_PROGRAMS"); }

/** What a shell does in the folder, where `qorn` is the program and $nobody precedes a command that
    is to run without privileges. QORNRC names no folder unless the commands set it. */
inline ProgramRun shell(const TempFolder& folder, const std::string& commands,
                        std::string_view input = "") {
  const TempFolder streams;
  streams.write("in", input);
  const char* const ofWindows = windowsPrograms();
  const std::string programs =
      ofWindows != nullptr ? ofWindows : std::filesystem::path(QORN_PROGRAM).parent_path().string();
  const std::string nobody =
      geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : "";
  const std::string line = "cd '" + folder.path() + "' && export QORNRC=: PATH='" + programs +
                           "':\"$PATH\" && nobody='" + nobody + "' && { " + commands + "\n} <'" +
                           streams.path("in") + "' >'" + streams.path("out") + "' 2>'" +
                           streams.path("err") + "'";
  const int status = std::system(line.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, streams.read("out"), streams.read("err")};
}

enum System : int { ANY_SYSTEM, POSIX };

struct ShellCase {
  const char* name;
  const char* commands;
  int status;
  const char* out;
  const char* err;
  System system = ANY_SYSTEM;

  bool isSkipped() const { return system == POSIX && windowsPrograms() != nullptr; }
};

/** Every case starts with "use a ;" in a.vhd and a configuration without backups in rc. */
inline void expectRuns(std::initializer_list<ShellCase> cases) {
  for (const ShellCase& row : cases) {
    if (row.isSkipped()) continue;
    SCOPED_TRACE(row.name);
    const TempFolder folder;
    folder.write("a.vhd", "use a ;\n");
    folder.write("rc", "KEEPBACKUPFILE FALSE\n");
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    const ProgramRun run = shell(folder, row.commands);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.out, row.out);
    EXPECT_EQ(run.err, row.err);
    (void)chmod(folder.path().c_str(), 0777);
  }
}

#endif
