// Whole outputs. Each golden/ROOM/CASE.vhd is formatted by the built program and compared with
// CASE.out, with the configuration CASE.rc and the arguments of CASE.args where they exist; so is
// each further CASE.WAY.rc or CASE.WAY.args of the same source, with CASE.WAY.out. The environment
// variable QORN_UPDATE_GOLDEN rewrites the expected outputs. The library gets the same texts, in
// one process and in any order.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <utility>

#include "config/settings.h"
#include "fmt/formattext.h"
#include "programrun.h"

namespace {

namespace fs = std::filesystem;

const fs::path goldenFolder = QORN_SOURCE_DIR "/tests/golden";

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/** Every case, as its path without an extension. */
std::set<fs::path> findCases() {
  std::set<fs::path> cases;
  for (const auto& entry : fs::recursive_directory_iterator(goldenFolder)) {
    const fs::path extension = entry.path().extension();
    if (extension == ".vhd" || extension == ".rc" || extension == ".args") {
      cases.insert(fs::path(entry.path()).replace_extension());
    }
  }
  return cases;
}

fs::path withExtension(const fs::path& stem, const char* extension) {
  return stem.string() + extension;
}

std::string sourceOf(const fs::path& stem) {
  const fs::path source = withExtension(stem, ".vhd");
  return readFile(fs::exists(source) ? source : fs::path(stem).replace_extension(".vhd"));
}

/** What the program prints of the case; its own output, and nothing else, is expected. */
std::string formatCase(const fs::path& stem) {
  const fs::path configuration = withExtension(stem, ".rc");
  std::string command = "qorn ";
  if (fs::exists(configuration)) command += "-c '" + configuration.string() + "' ";
  command += readFile(withExtension(stem, ".args"));
  const ProgramRun run = shell(TempFolder(), command, sourceOf(stem));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  return run.out;
}

/** The same by the library. */
std::string formatCaseInProcess(const fs::path& stem) {
  const std::string configuration = readFile(withExtension(stem, ".rc"));
  const std::string_view text = configuration;
  Settings settings = makeSettings({&text, 1});
  std::istringstream arguments(readFile(withExtension(stem, ".args")));
  for (std::string argument; arguments >> argument;) {
    if (argument == "-k") settings.keepIndentation = 1;
    if (argument == "-t") arguments >> settings.oldTabsize;
  }
  return formatText(sourceOf(stem), settings);
}

/** The first line in which two texts differ, with visible blanks, or nothing. */
std::string firstDifference(const std::string& expected, const std::string& got) {
  if (expected == got) return {};
  std::istringstream left(expected);
  std::istringstream right(got);
  for (int number = 1;; ++number) {
    std::string wanted;
    std::string found;
    for (auto [stream, line] : {std::pair(&left, &wanted), std::pair(&right, &found)}) {
      const bool isThere = static_cast<bool>(std::getline(*stream, *line));
      std::ranges::replace(*line, ' ', '.');
      *line = isThere ? *line + '$' : "the end";
    }
    if (left && right && wanted == found) continue;
    return "line " + std::to_string(number) + "\n  expected " + wanted + "\n  got      " + found;
  }
}

TEST(Golden, EveryCasePrintsItsOutput) {
  const bool isUpdating = std::getenv("QORN_UPDATE_GOLDEN") != nullptr;
  const std::set<fs::path> cases = findCases();
  ASSERT_FALSE(cases.empty());
  for (const fs::path& stem : cases) {
    SCOPED_TRACE(stem.lexically_relative(goldenFolder).string());
    const std::string output = formatCase(stem);
    const fs::path expected = withExtension(stem, ".out");
    if (isUpdating) {
      std::ofstream(expected, std::ios::binary) << output;
    } else if (!fs::exists(expected)) {
      ADD_FAILURE() << "no expected output";
    } else {
      EXPECT_EQ(firstDifference(readFile(expected), output), "");
    }
  }
}

TEST(Golden, TheLibraryPrintsTheSameWhateverCameBefore) {
  const std::set<fs::path> cases = findCases();
  std::vector<fs::path> order(cases.begin(), cases.end());
  order.insert(order.end(), cases.begin(), cases.end());
  const auto seed = static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed());
  std::ranges::shuffle(order, std::minstd_rand(seed));
  for (const fs::path& stem : order) {
    EXPECT_EQ(firstDifference(readFile(withExtension(stem, ".out")), formatCaseInProcess(stem)), "")
        << stem;
  }
}

// The parentheses of one file count in the next.
TEST(Golden, FilesOfOneRunPrintWhatTheyPrintAlone) {
  const TempFolder folder;
  std::vector<fs::path> stems;
  std::string command = "qorn";
  for (const fs::path& stem : findCases()) {
    const std::string source = readFile(withExtension(stem, ".vhd"));
    const bool isDefault = !fs::exists(withExtension(stem, ".rc")) && !source.empty();
    if (!isDefault || fs::exists(withExtension(stem, ".args"))) continue;
    if (std::ranges::count(source, '(') != std::ranges::count(source, ')')) continue;
    command += " " + folder.write(std::to_string(stems.size()), source);
    stems.push_back(stem);
  }
  EXPECT_EQ(shell(folder, command).status, 0);
  for (std::size_t i = 0; i < stems.size(); ++i) {
    const std::string expected = readFile(withExtension(stems[i], ".out"));
    EXPECT_EQ(firstDifference(expected, folder.read(std::to_string(i))), "") << stems[i];
  }
}

}  // namespace
