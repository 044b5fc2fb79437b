// The option scanner: command lines as rows.
#include "driver/argscan.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tempfolder.h"

namespace {

/** Scans words parted by blanks; '' stands for an empty one. */
int scan(ArgScan& options, const std::string& line, const char* program = "qorn") {
  std::vector<std::string> words{program};
  std::istringstream stream(line);
  for (std::string word; stream >> word;) words.push_back(word == "''" ? "" : word);
  std::vector<const char*> texts;
  for (const std::string& word : words) texts.push_back(word.c_str());
  return options.scan(static_cast<int>(texts.size()), texts.data());
}

/** Flags given, switches with a value and arguments; the complaints if there are any. */
std::string shown(ArgScan& options, int result) {
  EXPECT_EQ(result, options.getErrors()[0] == '\0' ? 0 : -1);
  std::string line;
  for (const char flag : std::string("hvik")) {
    if (options.getFlag(flag) == 1) line += flag;
  }
  for (const char option : std::string("ct")) {
    const std::string value = options.getSwitch(option);
    if (!value.empty()) line += std::string(" ") + option + "=" + value;
  }
  const char* argument = options.getFirstArgument();
  for (; argument != nullptr; argument = options.getNextArgument()) {
    line += std::string(" [") + argument + "]";
  }
  return line + (result == 0 ? "" : "\n") + options.getErrors();
}

TEST(ArgScanTest, TakesTheCommandLineApart) {
  const struct {
    const char* input;
    const char* expected;
  } cases[] = {
      {"", ""},
      {"-ki -k", "ik"},
      {"a -t 8 b", " t=8 [a] [b]"},
      {"-kt 8", "k t=8"},
      {"-t -k", " t=-k"},
      {"-t -", " t=-"},
      {"-t 8 -t 9", " t=9"},
      {"-c '' a", " [a]"},
      {"a '' b -k", "k [a] [] [b]"},
      {"- a -", " [a]"},
      {"-t", "\nError! option -t missing arg: \n"},
      {"-t8", "\nError! option -t missing arg: \nError! Unknown option -8\n"},
      {"-tk", "k\nError! option -t missing arg: \n"},
      {"-tc x", " c=x\nError! option -t missing arg: \n"},
      {"--k a", "k [a]\nError! Unknown option --\n"},
      {"-xkt 8 -y a", "k t=8 [a]\nError! Unknown option -x\nError! Unknown option -y\n"},
  };
  for (const auto& row : cases) {
    ArgScan options;
    options.setOptionalFlags("hvik");
    options.setOptionalSwitch('c', "");
    options.setOptionalSwitch('t', "");
    const int result = scan(options, row.input);
    EXPECT_EQ(shown(options, result), row.expected) << row.input;
  }
}

TEST(ArgScanTest, AsksForWhatIsNotDeclared) {
  ArgScan options;
  options.setOptionalSwitch('d', "default");
  options.setOptionalSwitch('d', "shadowed");
  EXPECT_EQ(scan(options, ""), 0);
  EXPECT_EQ(options.getFlag('x'), 0);
  EXPECT_EQ(options.getSwitch('x'), nullptr);
  EXPECT_STREQ(options.getSwitch('d'), "default");
}

TEST(ArgScanTest, ChecksWhatTheCallerDemands) {
  const struct {
    int count;  // of arguments
    const char* input;
    const char* expected;
  } cases[] = {
      {0, "-m 1 a b c", ""},
      {0, "", "Error! Missing option -m value\n"},
      {0, "-m", "Error! option -m missing arg: value\nError! Missing option -m value\n"},
      {0, "-m 1 -ac", ""},
      {0, "-m 1 -bb", ""},
      {0, "-m 1 -abcd",
       "Error! only one of -a -b may be defined\nError! only one of -c -d may be defined\n"},
      {2, "-m 1 a b", ""},
      {2, "-m 1 a", "Error! 2 argument(s) are expected\n"},
      {2, "-m 1 a b c", "Error! 2 argument(s) are expected\n"},
      {-2, "-m 1 a b", ""},
      {-2, "a b c", "Error! Missing option -m value\nError! maximal 2 argument(s) are allowed\n"},
  };
  for (const auto& row : cases) {
    ArgScan options;
    options.setOptionalFlags("abcd");
    options.setMustSwitch('m', "value");
    options.setExclusive("ab");
    options.setExclusive("cd");
    options.setArgumentCount(row.count);
    EXPECT_EQ(scan(options, row.input), row.expected[0] == '\0' ? 0 : -1);
    EXPECT_STREQ(options.getErrors(), row.expected) << row.count << ": " << row.input;
  }
}

TEST(ArgScanTest, FindsTheProgramsOwnPath) {
  const TempFolder folder;
  folder.write("a/tool", "");
  folder.write("b/tool", "");
  std::filesystem::permissions(folder.path("b/tool"), std::filesystem::perms::owner_all);
  const std::string searched = folder.path("a") + "::" + folder.path("b/.") + ":/nowhere";
  const std::string here = std::filesystem::current_path().string();
  const struct {
    const char* searched;  // null: PATH is not set
    const char* program;
    std::string expected;
    const char* tail;
  } cases[] = {
      {searched.c_str(), "/usr/lib/../bin/x", "/usr/bin/x", "x"},
      {searched.c_str(), "./x/y", here + "/x/y", "y"},
      {searched.c_str(), "tool", folder.path("b/tool"), "tool"},
      {searched.c_str(), "other", "other", "other"},
      {"::", "tool", "", ""},
      {nullptr, "tool", "", ""},
  };
  const std::string old = std::getenv("PATH");
  for (const auto& row : cases) {
    (void)(row.searched == nullptr ? unsetenv("PATH") : setenv("PATH", row.searched, 1));
    ArgScan options;
    EXPECT_EQ(scan(options, "", row.program), 0);
    EXPECT_EQ(options.getCallPath(), row.expected);
    EXPECT_STREQ(options.getProgramName(), row.tail);
  }
  setenv("PATH", old.c_str(), 1);
}

}  // namespace
