// The built program: options, messages and statuses.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "driver/version.h"
#include "programrun.h"

namespace {

TEST(ProgramOptionsTest, MessagesEndTheRunBeforeAnyInput) {
  const std::string versionLine = std::string("qorn version: ") + programVersion + "\n";
  const struct {
    const char* arguments;
    int status;
    const char* err;  // its first line
  } cases[] = {
      {"-h a.vhd", 0, "USAGE: qorn [-hvik] [-t <count>] [-c <configfile>] [<file> ...]\n"},
      {"-vh", 0, "USAGE: qorn [-hvik] [-t <count>] [-c <configfile>] [<file> ...]\n"},
      {"-v -t 0 -c missing", 0, versionLine.c_str()},
      {"-hx", 1, "Error! Unknown option -x\nuse qorn -h for help\n"},
      {"a.vhd -y -t", 1,
       "Error! Unknown option -y\nError! option -t missing arg: \nuse qorn -h for help\n"},
      {"-c missing a.vhd", 1, "Error! qorn: missing: No such file or directory\n"},
      {"-c . a.vhd", 2, "Error! qorn: .: Is a directory\n"},
      {"-t 0 a.vhd", 1, "Error! option -t needs a number above 0: 0\nuse qorn -h for help\n"},
      {"-t -4 a.vhd", 1, "Error! option -t needs a number above 0: -4\nuse qorn -h for help\n"},
      {"-t x -c missing", 1, "Error! qorn: missing: No such file or directory\n"},
      {"-t -99999999999", 1,
       "Error! option -t needs a number above 0: -99999999999\nuse qorn -h for help\n"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.arguments);
    const TempFolder folder;
    folder.write("a.vhd", "use a ;\n");
    const ProgramRun run = shell(folder, std::string("qorn ") + row.arguments, "use b ;\n");
    EXPECT_EQ(run.err.substr(0, std::string(row.err).size()), row.err);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(folder.read("a.vhd"), "use a ;\n");
  }
}

TEST(ProgramOptionsTest, OptionsReachTheFormatter) {
  const struct {
    const char* name;
    const char* commands;
    const char* input;
    const char* expected;
  } cases[] = {
      {"-i changes nothing", "qorn -i", "use a ;\n", "USE a;\n"},
      {"empty -c and -t count as none", "qorn -c '' -t ''", "--\tx\n", "--  x\n"},
      {"-t", "qorn -t 8", "--\tx\n", "--      x\n"},
      {"blanks, a sign and a rest", "qorn -t ' +2x'", "--\tx\n", "--  x\n"},
      {"the last -t", "qorn -t 0 -t 3", "--\tx\n", "-- x\n"},
      {"-k", "qorn -k", "        use a;\n", "        USE a;\n"},
      {"-k, for all files", "cat >a; cp a b; qorn -k a b; cat b", "    use a;\n", "    USE a;\n"},
      {"-c", "qorn -c rc", "use a ; --\tx\n", "use a;\t\t--\tx\n"},
      {"-t over -c, for the input", "qorn -c rc -t 1", "--\tx\n", "-- x\n"},
      {"-c over the search", "QORNRC=sub qorn -c rc", "use a;\n", "use a;\n"},
      {"no search but in the folder of the run", "unset QORNRC; qorn", "use a;\n", "USE A;\n"},
      {"the search", windowsPrograms() == nullptr ? "QORNRC=sub:. qorn" : "QORNRC='sub;.' qorn",
       "use a;\n", "Use A;\n"},
  };
  const TempFolder folder;
  folder.write("rc", "KEYWORD LOWER TABSIZE 8 TABIFY TRUE COMMENTSTART 17");
  folder.write(".qornrc", "IDENTIFIER UPPER");
  folder.write("sub/.qornrc", "KEYWORD CAPITALIZED");
  for (const auto& row : cases) {
    const ProgramRun run = shell(folder, row.commands, row.input);
    EXPECT_EQ(run.out, row.expected) << row.name;
    EXPECT_EQ(run.err, "") << row.name;
    EXPECT_EQ(run.status, 0) << row.name;
  }
}

TEST(ProgramOptionsTest, ReportsAFoundConfigurationThatIsNoFile) {
  expectRuns({
      {"a pipe, such as the one that the source comes from",
       "ln -s /dev/stdin .qornrc; cat a.vhd | QORNRC=. timeout 10 qorn", 0, "USE a;\n",
       "Error! qorn: ./.qornrc: Not a regular file\n"},
      {"a folder", "mkdir .qornrc; QORNRC=. qorn <a.vhd", 0, "USE a;\n",
       "Error! qorn: ./.qornrc: Not a regular file\n"},
      {"a link to nothing", "ln -s none .qornrc; QORNRC=. qorn <a.vhd", 0, "USE a;\n",
       "Error! qorn: ./.qornrc: No such file or directory\n", POSIX},
      {"a named one may be a pipe", "echo KEYWORD LOWER | qorn -c /dev/stdin a.vhd; cat a.vhd", 0,
       "use a;\n", "", POSIX},
  });
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
