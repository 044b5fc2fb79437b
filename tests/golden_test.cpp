// Whole outputs. Each golden/ROOM/CASE.vhd is formatted by the built program and compared with
// CASE.out, with the configuration CASE.rc and the arguments of CASE.args where they exist; so is
// each further CASE.WAY.rc or CASE.WAY.args of the same source, with CASE.WAY.out. The environment
// variable QORN_UPDATE_GOLDEN rewrites the expected outputs.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>

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

/** What the program prints of the case; its own output, and nothing else, is expected. */
std::string formatCase(const fs::path& stem) {
  const fs::path configuration = withExtension(stem, ".rc");
  std::string command = "qorn ";
  if (fs::exists(configuration)) command += "-c '" + configuration.string() + "' ";
  command += readFile(withExtension(stem, ".args"));
  fs::path source = withExtension(stem, ".vhd");
  if (!fs::exists(source)) source = fs::path(stem).replace_extension(".vhd");
  const ProgramRun run = shell(TempFolder(), command, readFile(source));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  return run.out;
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

}  // namespace
