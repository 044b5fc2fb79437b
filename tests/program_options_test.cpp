// The built program: options, messages, statuses and the loop over its inputs.
#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "programrun.h"
#include "tempfolder.h"

namespace {

constexpr const char* usageText = R"(USAGE: qorn [-hvik] [-t <count>] [-c <configfile>] [<file> ...]

             -h ................ print this message
             -v ................ print version and exit
             -k ................ keep indentation (to format parts of code)
             -t <count> ........ set input tabsize
             -c <configfile> ... use <configfile> instead of $QORNRC
                                 or ~/.qornrc
             <file> ...  ....... files to format

)";

using Words = std::vector<std::string>;

TEST(ProgramOptionsTest, MessagesEndTheRunBeforeAnyInput) {
  struct Case {
    Words arguments;
    int status;
    std::string err;
  };
  const std::string help = "use qorn -h for help\n";
  const Case cases[] = {
      {{"-h", "x.vhd"}, 0, usageText},
      {{"-vh"}, 0, usageText},
      {{"-h", "-t", "0", "-c", "missing"}, 0, usageText},
      {{"-v", "x.vhd"}, 0, "qorn version: 2.5\n"},
      {{"-v", "-c", "missing"}, 0, "qorn version: 2.5\n"},
      {{"-x", "x.vhd"}, 1, "Error! Unknown option -x\n" + help},
      {{"-hx"}, 1, "Error! Unknown option -x\n" + help},
      {{"x.vhd", "-y", "-t"},
       1,
       "Error! Unknown option -y\nError! option -t missing arg: \n" + help},
      {{"-c", "missing", "x.vhd"}, 1, "Error! qorn: missing: No such file or directory\n"},
      {{"-c", ".", "x.vhd"}, 2, "Error! qorn: .: Is a directory\n"},
      {{"-t", "0", "x.vhd"}, 1, "Error! option -t needs a number above 0: 0\n" + help},
      {{"-t", "-4", "x.vhd"}, 1, "Error! option -t needs a number above 0: -4\n" + help},
      {{"-t", "four", "-c", "missing"},
       1,
       "Error! option -t needs a number above 0: four\n" + help},
      {{"-t", "-99999999999999999999"},
       1,
       "Error! option -t needs a number above 0: -99999999999999999999\n" + help},
  };
  for (const Case& row : cases) {
    const TempFolder folder;
    folder.write("x.vhd", "use a ;\n");
    const ProgramRun run = runProgram(folder, row.arguments, "use b ;\n");
    EXPECT_EQ(run.err, row.err);
    EXPECT_EQ(run.status, row.status) << row.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(folder.read("x.vhd"), "use a ;\n") << row.err;
  }
}

TEST(ProgramOptionsTest, OptionsReachTheFormatter) {
  struct Case {
    const char* name;
    Words arguments;
    std::string input;
    std::string expected;
  };
  const Case cases[] = {
      {"none", {}, "use a ;\n", "USE a;\n"},
      {"-i changes nothing", {"-i"}, "use a ;\n", "USE a;\n"},
      {"empty -c and -t count as none", {"-c", "", "-t", ""}, "--\tx\n", "--  x\n"},
      {"-t", {"-t", "8"}, "--\tx\n", "--      x\n"},
      {"blanks, a sign and a rest", {"-t", " +2x"}, "--\tx\n", "--  x\n"},
      {"the last -t", {"-t", "0", "-t", "3"}, "--\tx\n", "-- x\n"},
      {"configuration", {"-c", "rc"}, "use a ; --\tx\n", "use a;\t\t--\tx\n"},
      {"-t over configuration, for the input", {"-c", "rc", "-t", "1"}, "--\tx\n", "-- x\n"},
      {"-k", {"-k"}, "        use a;\n", "        USE a;\n"},
  };
  for (const Case& row : cases) {
    const TempFolder folder;
    folder.write("rc", "KEYWORD LOWER TABSIZE 8 TABIFY TRUE COMMENTSTART 17");
    const ProgramRun run = runProgram(folder, row.arguments, row.input);
    EXPECT_EQ(run.out, row.expected) << row.name;
    EXPECT_EQ(run.err, "") << row.name;
    EXPECT_EQ(run.status, 0) << row.name;
  }
}

TEST(ProgramOptionsTest, TheSearchReadsTheFoldersOfQornrc) {
  struct Case {
    const char* name;
    const char* searched;
    const char* expected;
  };
  const Case cases[] = {
      {"unset: the folder of the run", nullptr, "use A;\n"},
      {"empty: none", "", "USE a;\n"},
      {"colons: none", "::", "USE a;\n"},
      {"a folder", "sub", "Use a;\n"},
      {"the last wins", "sub:.", "use A;\n"},
      {"keys add up", ".:sub", "Use A;\n"},
  };
  const TempFolder folder;
  folder.write(".qornrc", "KEYWORD LOWER IDENTIFIER UPPER");
  folder.write("sub/.qornrc", "KEYWORD CAPITALIZED");
  for (const Case& row : cases) {
    EXPECT_EQ(runProgram(folder, {}, "use a;\n", {{"QORNRC", row.searched}}).out, row.expected)
        << row.name;
  }
  EXPECT_EQ(runProgram(folder, {"-c", "sub/.qornrc"}, "use a;\n", {{"QORNRC", "."}}).out,
            "Use a;\n");
}

TEST(ProgramOptionsTest, FilesAreRewrittenUpToTheFirstThatFails) {
  const TempFolder folder;
  folder.write("a.vhd", "use a ;\n");
  folder.write("b.vhd", "use b ;\n");
  const ProgramRun run = runProgram(folder, {"a.vhd", "missing", "b.vhd"}, "use c ;\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "Error! unable to open file missing\n       No such file or directory\n");
  EXPECT_EQ(folder.read("a.vhd"), "USE a;\n");
  EXPECT_EQ(folder.read("a.vhd.bak"), "use a ;\n");
  EXPECT_EQ(folder.read("b.vhd"), "use b ;\n");
}

TEST(ProgramOptionsTest, KeepIndentationHoldsForAllFiles) {
  const TempFolder folder;
  folder.write("a.vhd", "   use a ;\n");
  folder.write("b.vhd", "      use b ;\n");
  EXPECT_EQ(runProgram(folder, {"-k", "a.vhd", "b.vhd"}).status, 0);
  EXPECT_EQ(folder.read("a.vhd"), "   USE a;\n");
  EXPECT_EQ(folder.read("b.vhd"), "      USE b;\n");
}

TEST(ProgramOptionsTest, AnUnreadableInputIsFatal) {
  const TempFolder folder;
  const ProgramRun run = runProgram(folder, {"."});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "Error! qorn: .: Is a directory\n");
}

TEST(ProgramOptionsTest, SignalsEndTheRunWithAStatus) {
  for (const int number : {SIGINT, SIGTERM}) {
    int input[2];
    ASSERT_EQ(pipe(input), 0);
    const pid_t child = fork();
    if (child == 0) {
      dup2(input[0], STDIN_FILENO);
      close(input[1]);
      execl(QORN_PROGRAM, "qorn", nullptr);
      _exit(127);
    }
    close(input[0]);
    // More than a pipe holds: once it is written, the program is reading.
    const std::string blanks(200000, ' ');
    ASSERT_EQ(write(input[1], blanks.data(), blanks.size()), 200000);
    kill(child, number);
    int status = 0;
    waitpid(child, &status, 0);
    close(input[1]);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 255);
  }
}

}  // namespace
