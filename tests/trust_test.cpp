// Trust in a program that rewrites files in place: whatever goes wrong, and whenever the run is
// ended, the old text is whole under the file's name or its backup's.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/exitstatus.h"
#include "base/filereplacement.h"
#include "programrun.h"

namespace {

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

TEST(TrustTest, NeedsMemoryForWhatItPrintsAlone) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer needs all the memory there is";
#endif
  expectRuns({
      {"blanks that another line end makes vanish",
       "yes ': [\nshared constant '\\''left component' | head -1000 >b; echo >>b; ulimit -v 12000; "
       "qorn <b | wc -c",
       0, "17526\n", ""},
      {"a far tab stop", "ulimit -v 12000; printf -- '--\ta' | qorn -t 99999999999 | wc -c", 0,
       "1038\n", ""},
  });
}

// --- Runs that are ended ---

/** Starts the program as a filter over a.vhd. */
pid_t startFilter(const TempFolder& folder, int output) {
  const pid_t child = fork();
  if (child != 0) return child;
  // A search for leaks in a run that a signal ended inside the allocator would wait for ever.
  setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
  setenv("QORNRC", ":", 1);
  dup2(open(folder.path("a.vhd").c_str(), O_RDONLY), STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  execl(QORN_PROGRAM, "qorn", nullptr);
  _exit(127);
}

int waitFor(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

// --- A replacement that does not go its way to the end ---

using Act = void (*)(const TempFolder&);
const Act goOn = [](const TempFolder&) {};
const Act beKilled = [](const TempFolder&) { std::raise(SIGKILL); };
const Act beEnded = [](const TempFolder&) { std::raise(SIGTERM); };
const Act saveInPlace = [](const TempFolder& folder) { folder.write("a.vhd", "newer"); };
const Act saveByRename = [](const TempFolder& folder) {
  folder.write("t", "newer");
  std::filesystem::rename(folder.path("t"), folder.path("a.vhd"));
};
const Act replaceToo = [](const TempFolder& folder) {
  FileReplacement other(folder.path("a.vhd"), {stateOf(folder.path("a.vhd").c_str()), "old"}, "~");
  if (other.open() != REPLACED) std::raise(SIGKILL);
  other.put("other");
  if (other.close() != REPLACED) std::raise(SIGKILL);
};

/** What stands in the folder: each file's name and text; a number in a name is left out. */
std::string shows(const TempFolder& folder) {
  const std::string script = "for f in $(ls -A | sort); do echo $f $(cat $f); done";
  return shell(folder, script + " | sed 's/[.][0-9]* / /' | tr '\n' ';'").out;
}

TEST(TrustTest, ReplacesAFileWholeOrNotAtAll) {
  const struct {
    const char* name;
    const char* backup;
    Act beforeOpening;
    Act amidWriting;
    const char* expected;
  } cases[] = {
      {"a backup", "~", goOn, goOn, "a.vhd new text;a.vhd~ old;"},
      {"none", "", goOn, goOn, "a.vhd new text;"},
      {"killed", "~", goOn, beKilled, ".qorn-new new;a.vhd~ old;"},
      {"killed, no backup", "", goOn, beKilled, ".qorn-old old;a.vhd new;"},
      {"a signal waits", "~", goOn, beEnded, "a.vhd new text;a.vhd~ old;"},
      {"a signal waits, no backup", "", goOn, beEnded, "a.vhd new text;"},
      {"saved after the reading", "~", saveInPlace, goOn, "a.vhd newer;"},
      {"saved by a rename", "~", saveByRename, goOn, "a.vhd newer;"},
      {"saved, no backup", "", saveInPlace, goOn, "a.vhd newer;"},
      {"saved by a rename, no backup", "", saveByRename, goOn, "a.vhd newer;"},
      {"saved amid the writing", "~", goOn, saveInPlace, "a.vhd newer;a.vhd~ old;"},
      {"by another run too", "~", replaceToo, goOn, "a.vhd other;a.vhd~ old;"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    const TempFolder folder;
    const std::string path = folder.write("a.vhd", "old");
    const FileState state = stateOf(path.c_str());
    const pid_t child = fork();
    if (child == 0) {
      row.beforeOpening(folder);
      FileReplacement replacement(path, {state, "old"}, row.backup);
      if (replacement.open() == REPLACED) {
        replacement.put("new");
        row.amidWriting(folder);
        replacement.put(" text");
        (void)replacement.close();
      }
      _exit(0);
    }
    waitFor(child);
    EXPECT_EQ(shows(folder), row.expected);
  }
}

/** The text of a.vhd after a failure that was reported: its own, or that of the backup where no
    file could be made, or that of the place which the message names. */
std::string survivor(const TempFolder& folder, const std::string& message) {
  constexpr std::string_view words = "; its text is in ";
  const std::size_t place = message.find(words);
  if (place != std::string::npos) {
    const std::string name = message.substr(place + words.size());
    return shell(folder, "cat " + name).out;
  }
  const std::string text = folder.read("a.vhd");
  return text == "(none)" ? folder.read("a.vhd.bak") : text;
}

TEST(TrustTest, KeepsTheTextWhateverFails) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer wants to be loaded first";
#endif
  int failures = 0;
  for (const std::string options : {"", "-c rc "}) {
    for (const char* call : {"open", "read", "write", "close", "stat", "fstat", "linkat"}) {
      for (int count = 1; count <= 6; ++count) {
        const TempFolder folder;
        folder.write("a.vhd", "use a ;\n");
        folder.write("rc", "KEEPBACKUPFILE FALSE\n");
        const std::string fault = call + (':' + std::to_string(count)) + ":28";  // ENOSPC
        SCOPED_TRACE(options + fault);
        const ProgramRun run = shell(folder, "QORN_FAIL=" + fault + " LD_PRELOAD='" + QORN_FAILING +
                                                 "' qorn " + options + "a.vhd");
        if (run.err.empty()) {
          EXPECT_EQ(folder.read("a.vhd"), "USE a;\n");
        } else {
          EXPECT_EQ(survivor(folder, run.err), "use a ;\n") << run.err;
          ++failures;
        }
      }
    }
  }
  EXPECT_GT(failures, 10);
}

// Some other process may have made the pipe non-blocking; and nothing is written twice when a
// signal ends the run amid the writing.
TEST(TrustTest, WritesAllThatASlowReaderTakes) {
  const TempFolder folder;
  folder.write("a.vhd", repeated("use a ;\n", 40000));
  const std::string formatted = repeated("USE a;\n", 40000);
  for (const int signal : {0, SIGTERM}) {
    int output[2];
    ASSERT_EQ(pipe(output), 0);
    ASSERT_EQ(fcntl(output[1], F_SETFL, O_NONBLOCK), 0);
    const pid_t child = startFilter(folder, output[1]);
    close(output[1]);
    std::string text;
    char piece[4096];
    for (ssize_t count = 1; count > 0; text.append(piece, static_cast<std::size_t>(count))) {
      if (text.size() == sizeof(piece) && signal != 0) kill(child, signal);
      count = read(output[0], piece, sizeof(piece));
      if (count < 0) count = 0;
    }
    close(output[0]);
    const int status = waitFor(child);
    EXPECT_EQ(WEXITSTATUS(status), signal == 0 ? 0 : 255);
    EXPECT_TRUE(signal == 0 ? text == formatted : formatted.starts_with(text));
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
