// Trust in a program that rewrites files: whatever fails, and whenever the run is ended, a file
// holds its old text or its new one, whole, and nothing else is left in its folder.
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <string_view>

#include "programrun.h"

namespace {

constexpr std::string_view oldText = "use a ;\n";
constexpr std::string_view newText = "USE a;\n";

/** Runs the program over a.vhd with the N-th call of this name failing, and gives its status; 0 as
    well where it makes fewer. */
int runFailing(const std::string& call, int count, const std::string& how) {
  const TempFolder folder;
  folder.write("a.vhd", oldText);
  const std::string fault = call + ":" + std::to_string(count) + ":" + how;
  SCOPED_TRACE(fault);
  const ProgramRun run = shell(folder, "QORN_FAIL=" + fault + " LD_PRELOAD='" + QORN_FAILING +
                                           "' qornfmt a.vhd; status=$?; ls -A; exit $status");
  const std::string text = folder.read("a.vhd");
  EXPECT_TRUE(text == oldText || text == newText) << text;
  EXPECT_TRUE(run.out == "a.vhd\n" || how == "KILL") << run.out;
  EXPECT_EQ(text, run.status == 2 ? oldText : run.status == 0 ? newText : text);
  EXPECT_EQ(run.err.starts_with("a.vhd: "), run.status == 2) << run.err;
  return run.status;
}

TEST(QornfmtTrustTest, KeepsTheTextWhateverFails) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer wants to be loaded first";
#endif
  int failures = 0;
  for (const char* call : {"open", "read", "write", "close", "fstat", "stat", "fchown", "fchmod",
                           "rename", "faccessat", "linkat", "realpath"}) {
    for (const char* how : {"28", "KILL", "TERM"}) {  // ENOSPC
      for (int count = 1; count <= 4; ++count) {
        if (runFailing(call, count, how) == 2) ++failures;
      }
    }
  }
  EXPECT_GT(failures, 10);
}

TEST(QornfmtTrustTest, LeavesAloneWhatSomebodyElseHasSaved) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer wants to be loaded first";
#endif
  const TempFolder folder;
  folder.write("a.vhd", oldText);
  const ProgramRun run = shell(folder, std::string("QORN_FAIL=fchmod:1:SAVE LD_PRELOAD='") +
                                           QORN_FAILING + "' qornfmt a.vhd; echo $?; ls -A");
  EXPECT_EQ(run.out, "2\na.vhd\n");
  EXPECT_EQ(run.err, "a.vhd: not written: changed by another program since it was read\n");
  EXPECT_EQ(folder.read("a.vhd"), "use");
}

TEST(QornfmtTrustTest, TouchesNothingWhenMemoryRunsOut) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer needs all the memory there is";
#endif
  const TempFolder folder;
  std::string source;
  for (int i = 0; i < 20000; ++i)
    source += "a_name_of_some_length <= f(b, 16#ff#);  -- a comment\n";
  int failures = 0;
  for (int kilobytes = 20000; failures < 40; kilobytes += kilobytes / 8) {
    SCOPED_TRACE(kilobytes);
    for (const char* name : {"a.vhd", "b.vhd"}) folder.write(name, source);
    const ProgramRun run = shell(folder, "ulimit -v " + std::to_string(kilobytes) +
                                             "; qornfmt -q -j 2 a.vhd b.vhd; s=$?; ls -A; exit $s");
    EXPECT_EQ(run.out, "a.vhd\nb.vhd\n");
    if (run.status == 0) break;
    ++failures;
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "qornfmt: not enough memory\n");
    for (const char* name : {"a.vhd", "b.vhd"}) {
      const std::string text = folder.read(name);
      EXPECT_TRUE(text == source || text.size() > source.size() / 2) << name;
    }
  }
  EXPECT_GT(failures, 3);
}

// Two threads are at work, so that the other one is anywhere.
TEST(QornfmtTrustTest, EndsWholeByASignal) {
#ifdef QORN_HAS_ADDRESS_SANITIZER
  GTEST_SKIP() << "the sanitizer wants to be loaded first";
#endif
  const TempFolder folder;
  for (const char* fault : {"rename:1:TERM", "rename:40:TERM", "open:200:TERM", "fstat:100:TERM"}) {
    SCOPED_TRACE(fault);
    for (int i = 0; i < 300; ++i) folder.write("f" + std::to_string(i) + ".vhd", oldText);
    const ProgramRun run = shell(
        folder, std::string("QORN_FAIL=") + fault + " LD_PRELOAD='" + QORN_FAILING +
                    "' qornfmt -q -j 2 .; s=$?; ls -A | grep -c -v '^f[0-9]*[.]vhd$'; exit $s");
    EXPECT_EQ(run.out, "0\n");
    EXPECT_EQ(run.status, 128 + SIGTERM);
    for (int i = 0; i < 300; ++i) {
      const std::string text = folder.read("f" + std::to_string(i) + ".vhd");
      EXPECT_TRUE(text == oldText || text == newText) << text;
    }
  }
}

}  // namespace
