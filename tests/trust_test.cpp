// Trust in a program that rewrites files in place: whatever goes wrong, and whenever the run is
// ended, the old text is whole under the file's name or its backup's.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "base/exitstatus.h"
#include "programrun.h"

#if defined(__SANITIZE_ADDRESS__)
#define QORN_HAS_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QORN_HAS_ADDRESS_SANITIZER 1
#endif
#endif

namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (; count > 0; --count) result += text;
  return result;
}

TEST(TrustTest, TouchesNothingWhenMemoryRunsOut) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer needs all the memory there is";
#endif
  const TempFolder folder;
  const std::string source = repeated(
      "a_name_of_some_length <= f(b, 16#ff#);  -- a comment that goes on and on --\n", 8000);
  folder.write("a.vhd", source);
  int failures = 0;
  for (int kilobytes = 5000; failures < 40; kilobytes += kilobytes / 8) {
    SCOPED_TRACE(kilobytes);
    const std::string limit = "ulimit -v " + std::to_string(kilobytes);
    const ProgramRun run = shell(folder, "(" + limit + "; exec qorn a.vhd)");
    if (run.status == 0 || run.status == 127) {  // enough, or not enough to start
      EXPECT_EQ(folder.read("a.vhd") == source, run.status == 127);
      if (run.status == 0) break;
      continue;
    }
    ++failures;
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "Error! qorn: not enough memory\n");
    EXPECT_TRUE(folder.read("a.vhd") == source);
    EXPECT_EQ(folder.read("a.vhd.bak"), "(none)");
  }
  EXPECT_GT(failures, 5);
  EXPECT_TRUE(folder.read("a.vhd.bak") == source);
}

// --- Runs that are ended ---

/** Starts the program over these files. */
pid_t start(const TempFolder& folder, const std::vector<std::string>& files) {
  std::vector<char*> words{const_cast<char*>("qorn")};
  for (const std::string& file : files) words.push_back(const_cast<char*>(file.c_str()));
  words.push_back(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  // A search for leaks in a run that a signal ended inside the allocator would wait for ever.
  setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
  if (chdir(folder.path().c_str()) == 0 && setenv("QORNRC", ":", 1) == 0) {
    execv(QORN_PROGRAM, words.data());
  }
  _exit(127);
}

/** Waits for the backup that is made right before a file is written. */
void awaitBackup(const TempFolder& folder, const std::string& file) {
  const auto deadline = steady_clock::now() + std::chrono::minutes(1);
  while (access(folder.path(file + ".bak").c_str(), F_OK) != 0 && steady_clock::now() < deadline) {
    std::this_thread::yield();
  }
}

int waitFor(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(TrustTest, KeepsTheOldTextWhenKilledWhileWriting) {
  const TempFolder folder;
  const std::string source = repeated("use a ; -- comment\n", 10000);
  folder.write("whole.vhd", source);
  waitFor(start(folder, {"whole.vhd"}));
  const std::string formatted = folder.read("whole.vhd");
  int broken = 0;
  for (int round = 0; round < 20; ++round) {
    folder.write("a.vhd", source);
    std::filesystem::remove(folder.path("a.vhd.bak"));
    const pid_t child = start(folder, {"a.vhd"});
    awaitBackup(folder, "a.vhd");
    std::this_thread::sleep_for(microseconds(50 * round));
    kill(child, SIGKILL);
    waitFor(child);
    EXPECT_TRUE(folder.read("a.vhd.bak") == source) << round;
    std::string written = folder.read("a.vhd");
    if (written == "(none)") written.clear();
    EXPECT_TRUE(formatted.starts_with(written)) << round;
    if (written != formatted) ++broken;
  }
  EXPECT_GT(broken, 0);
}

/** Ends one run over many files by a signal after some time; every file is old, or its old text is
    under the backup's name, and but for one such file the new text is whole. */
void expectWholeFiles(const TempFolder& folder, const std::vector<std::string>& files, int signal,
                      microseconds delay) {
  const std::string source = repeated("use a ;\n", 50);
  const std::string formatted = repeated("USE a;\n", 50);
  for (const std::string& file : files) {
    folder.write(file, source);
    std::filesystem::remove(folder.path(file + ".bak"));
  }
  const pid_t child = start(folder, files);
  awaitBackup(folder, files.front());
  std::this_thread::sleep_for(delay);
  kill(child, signal);
  const int status = waitFor(child);
  ASSERT_TRUE(WIFEXITED(status)) << WTERMSIG(status);
  EXPECT_TRUE(WEXITSTATUS(status) == 255 || WEXITSTATUS(status) == 0) << WEXITSTATUS(status);
  int broken = 0;
  for (const std::string& file : files) {
    const std::string text = folder.read(file);
    if (text == source) continue;
    EXPECT_TRUE(folder.read(file + ".bak") == source) << file;
    if (text != formatted) ++broken;
  }
  EXPECT_LE(broken, WEXITSTATUS(status) == 255 ? 1 : 0);
}

TEST(TrustTest, KeepsEveryFileWhenASignalEndsTheRun) {
  const TempFolder folder;
  std::vector<std::string> files;
  for (int i = 0; i < 200; ++i) files.push_back(std::to_string(i) + ".vhd");
  for (const std::string& file : files) folder.write(file, repeated("use a ;\n", 50));
  const auto begin = steady_clock::now();
  waitFor(start(folder, files));
  const auto whole = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
  std::mt19937 random(static_cast<unsigned>(begin.time_since_epoch().count()));
  for (int round = 0; round < 20; ++round) {
    const microseconds delay(static_cast<long>(random()) % (whole.count() + 1));
    SCOPED_TRACE(std::to_string(delay.count()) + " us");
    expectWholeFiles(folder, files, round % 2 == 0 ? SIGINT : SIGTERM, delay);
  }
}

// exit() holds a lock for a moment, where a second exit() from a signal handler would wait for
// ever.
TEST(TrustTest, GoesAtOnceWhenASignalMeetsTheEnd) {
  const auto runThatIsInterruptedWhileItEnds = [] {
    std::atexit([] { std::fputs("entered exit twice", stderr); });
    std::atexit([] { std::raise(SIGTERM); });
    std::signal(SIGTERM, [](int) { endRun(STATUS_INTERRUPTED); });
    endRun(STATUS_OK);
  };
  EXPECT_EXIT(runThatIsInterruptedWhileItEnds(), testing::ExitedWithCode(STATUS_INTERRUPTED), "^$");
}

}  // namespace
