// The built program over files: in place, backups, whatever bytes come, and failing writes.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <random>
#include <string>
#include <vector>

#include "programrun.h"
#include "tempfolder.h"

namespace {

TEST(ProgramTest, RewritesAFileAndReplacesItsBackup) {
  const TempFolder folder;
  folder.write("a.vhd", "use a ;\n");
  folder.write("a.vhd.bak", "older and longer than what replaces it\n");
  const ProgramRun run = runProgram(folder, {"a.vhd"}, "use c ;\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  EXPECT_EQ(folder.read("a.vhd"), "USE a;\n");
  EXPECT_EQ(folder.read("a.vhd.bak"), "use a ;\n");
  folder.write("rc", "KEEPBACKUPFILE FALSE IDENTIFIERCASE UPPERCASE\n");
  EXPECT_EQ(runProgram(folder, {"-c", "rc", "a.vhd"}).status, 0);
  EXPECT_EQ(folder.read("a.vhd"), "USE A;\n");
  EXPECT_EQ(folder.read("a.vhd.bak"), "use a ;\n");
  folder.write("rc", "BACKUPFILEEXTENSION \"~\"\n");
  EXPECT_EQ(runProgram(folder, {"-c", "rc", "a.vhd", "a.vhd"}).status, 0);
  EXPECT_EQ(folder.read("a.vhd"), "USE a;\n");
  EXPECT_EQ(folder.read("a.vhd~"), "USE a;\n");
}

TEST(ProgramTest, FindsFilesByTheirExtension) {
  struct Case {
    const char* extension;
    const char* rewritten;
  };
  const Case cases[] = {
      {nullptr, "a.vhdl"}, {".vhd", "a.vhd"}, {"", "(none)"}, {"/../b", "(none)"}};
  for (const Case& row : cases) {
    const TempFolder folder;
    folder.write("a.vhd", "use a ;\n");
    folder.write("a.vhdl", "use a ;\n");
    const ProgramRun run = runProgram(folder, {"a"}, "", {{"VHDLEXT", row.extension}});
    for (const std::string name : {"a.vhd", "a.vhdl"}) {
      const bool isRewritten = name == row.rewritten;
      EXPECT_EQ(folder.read(name), isRewritten ? "USE a;\n" : "use a ;\n") << row.rewritten;
      EXPECT_EQ(folder.read(name + ".bak"), isRewritten ? "use a ;\n" : "(none)") << row.rewritten;
    }
    EXPECT_EQ(run.status, row.rewritten == std::string("(none)") ? 1 : 0);
  }
}

TEST(ProgramTest, TakesWhateverBytesCome) {
  struct Case {
    const char* name;
    std::string input;
    std::string expected;
  };
  const Case cases[] = {
      {"empty", "", ""},
      {"a line end", "\n", "\n"},
      {"no line end at the end", "use a", "USE a"},
      {"carriage returns", "use a ;\r\n--x\r\nuse b\r", "USE a;\n--x\nUSE b"},
      {"bytes beyond ASCII", "--\x80\xff\nuse \xe4 ;\n", "--\x80\xff\nUSE \xe4;\n"},
      {"a long token", "--QORN-OFF\n\"" + std::string(200000, 'x') + "\"\n",
       "--QORN-OFF\n\"" + std::string(200000, 'x') + "\"\n"},
      {"zeros", std::string("use a\0 ;\n\0", 10), "USE a;\n"},
  };
  for (const Case& row : cases) {
    const TempFolder folder;
    folder.write("a.vhd", row.input);
    EXPECT_EQ(runProgram(folder, {}, row.input).out, row.expected) << row.name;
    EXPECT_EQ(runProgram(folder, {"a.vhd"}).status, 0) << row.name;
    EXPECT_EQ(folder.read("a.vhd"), row.expected) << row.name;
    EXPECT_EQ(folder.read("a.vhd.bak"), row.input) << row.name;
  }
}

TEST(ProgramTest, GoesOnBehindAFileThatCannotBeWritten) {
  struct Case {
    const char* name;
    std::vector<std::string> arguments;
    const char* error;
    const char* backup;  // of b.vhd, the next file
  };
  const std::string tooLong(255, 'x');
  const Case cases[] = {
      {"the backup is a folder", {"a.vhd"}, "Error! qorn: Is a directory\n", "use b ;\n"},
      {"the backup's name is too long",
       {tooLong},
       "Error! qorn: File name too long\n",
       "use b ;\n"},
      {"no writing", {"-c", "rc", "/proc/sys/kernel/ostype"}, "Error! qorn: ", "(none)"},
  };
  for (const Case& row : cases) {
    const TempFolder folder;
    folder.write("rc", "KEEPBACKUPFILE FALSE\n");
    folder.write("a.vhd", "use a ;\n");
    folder.write("a.vhd.bak/file", "kept");
    folder.write(tooLong, "use a ;\n");
    folder.write("b.vhd", "use b ;\n");
    std::vector<std::string> arguments = row.arguments;
    arguments.push_back("b.vhd");
    const ProgramRun run = runProgram(folder, arguments);
    EXPECT_EQ(run.status, 0) << row.name;
    EXPECT_EQ(run.out, "") << row.name;
    EXPECT_TRUE(run.err.starts_with(row.error)) << row.name << ": " << run.err;
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << row.name << ": " << run.err;
    EXPECT_EQ(folder.read("a.vhd"), "use a ;\n") << row.name;
    EXPECT_EQ(folder.read("a.vhd.bak/file"), "kept") << row.name;
    EXPECT_EQ(folder.read(tooLong), "use a ;\n") << row.name;
    EXPECT_EQ(folder.read("b.vhd"), "USE b;\n") << row.name;
    EXPECT_EQ(folder.read("b.vhd.bak"), row.backup) << row.name;
  }
}

TEST(ProgramTest, TellsOfAnOutputThatBreaksOff) {
  const TempFolder folder;
  std::string source;
  for (int i = 0; i < 20000; ++i) source += "use a ;\n";
  folder.write("a.vhd", source);
  folder.write("b.vhd", "use b ;\n");
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit little{65536, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);  // which the program inherits
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &little), 0);
  const ProgramRun run = runProgram(folder, {"a.vhd", "b.vhd"});
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(run.err, "Error! qorn: File too large\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(folder.read("a.vhd").size(), 65536U);
  EXPECT_EQ(folder.read("a.vhd.bak"), source);
  EXPECT_EQ(folder.read("b.vhd"), "USE b;\n");
}

// --- A stretch with the formatting off comes back ---

/** Tabs as blanks, for a source without tabs in strings and the like. */
std::string expanded(const std::string& source, std::size_t tabSize) {
  std::string text;
  std::size_t column = 0;
  for (const char character : source) {
    const std::size_t width = character == '\t' ? tabSize - column % tabSize : 1;
    text += character == '\t' ? std::string(width, ' ') : std::string(1, character);
    column = character == '\n' ? 0 : column + width;
  }
  return text;
}

TEST(ProgramTest, KeepsTheExamplesWithFormattingOff) {
  const TempFolder folder;
  for (const auto& entry : std::filesystem::directory_iterator(QORN_SOURCE_DIR "/examples")) {
    if (entry.path().extension() != ".vhd") continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    ASSERT_GT(text.size(), 1000U) << entry.path();
    const std::string source = "--QORN-OFF\n" + text;
    EXPECT_EQ(runProgram(folder, {}, source).out, expanded(source, 4)) << entry.path();
    EXPECT_EQ(runProgram(folder, {"-k", "-t", "8"}, source).out, expanded(source, 8));
  }
}

TEST(ProgramTest, KeepsRubbishWithFormattingOff) {
  const std::vector<std::string> pieces = {
      "entity",     " is ",    "begin ", "end;",   "if ",      "then ",     "process",
      "(",          ")",       "port(",  "map",    "case",     "when ",     "=>",
      "<=",         ":=",      ";\n",    "\n",     "  ",       "--",        "-- = ==",
      "\"",         "'",       "1#",     "record", "generate", "function ", "variable",
      ":",          ",",       "'low ",  "x_1",    "\\",       "\n\n\n",    "with ",
      "select",     "signal ", "type",   "units",  "for ",     "loop ",     "--QORN-INDENT-OFF\n",
      "component ", "assert "};
  const TempFolder folder;
  std::mt19937 random(2);
  for (int round = 0; round < 24; ++round) {
    std::string source = "--QORN-OFF\n";
    for (int i = 0; i < 3000; ++i) {
      const bool isByte = random() % 24 < static_cast<unsigned>(round);
      const char byte = static_cast<char>(random() % 256);
      if (!isByte) source += pieces[random() % pieces.size()];
      if (isByte && std::string("\r\t!").find(byte) == std::string::npos && byte != 0)
        source += byte;
    }
    const ProgramRun run = runProgram(folder, {}, source);
    ASSERT_EQ(run.err, "") << round;
    ASSERT_EQ(run.status, 0) << round;
    ASSERT_TRUE(run.out == source) << round;
  }
}

}  // namespace
