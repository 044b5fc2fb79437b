// Which configuration applies to which file.
#include "fmt/settingsource.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tempfolder.h"

namespace {

namespace fs = std::filesystem;

class SettingSourceTest : public testing::Test {
 protected:
  SettingSourceTest() : start(fs::current_path()) {
    unsetenv("QORNRC");
    setenv("HOME", folder.path("home").c_str(), 1);
    fs::current_path(folder.path());
  }
  ~SettingSourceTest() override { fs::current_path(start); }

  /** A configuration that can be told by the line width. */
  void put(const std::string& place, int width) {
    folder.write(place + "/.qornrc", "LINEWIDTH " + std::to_string(width) + "\n");
  }

  TempFolder folder;
  fs::path start;
};

/** The line width for a file, or what the trouble is. */
std::string widthFor(SettingSource& source, const std::string& file) {
  const Configuration& configuration = source.ofFile(file);
  if (!configuration.trouble.empty()) return configuration.trouble;
  return std::to_string(configuration.settings.lineWidth);
}

TEST_F(SettingSourceTest, TheNearestConfigurationWins) {
  put("home", 30);
  put("home/lib", 40);
  put("home/tree/src", 50);
  put("out", 60);
  folder.write("home/tree/.git/HEAD", "");
  folder.write("home/linked/.git", "gitdir: elsewhere");
  folder.write("home/tree/src/deep/a.vhd", "");
  fs::create_directories(folder.path("home/odd/.qornrc"));
  fs::create_directories(folder.path("out/far/home"));
  fs::create_symlink("../tree/src/deep/a.vhd", folder.path("home/lib/link.vhd"));
  fs::create_symlink("tree/src/deep", folder.path("home/folder"));
  fs::create_directories(folder.path("home/lost"));
  fs::create_symlink("nowhere", folder.path("home/lost/.qornrc"));
  const struct {
    const char* file;
    std::string expected;
  } cases[] = {
      {"home/a.vhd", "30"},
      {"home/lib/a.vhd", "40"},
      {"home/lib/no/such/folder/a.vhd", "40"},
      {"./home/lib/../lib//a.vhd", "40"},
      {"home/tree/src/deep/a.vhd", "50"},
      {"home/tree/top.vhd", "80"},  // the root of a work tree ends the search
      {"home/linked/a.vhd", "80"},
      {"home/lib/link.vhd", "50"},  // a link counts as the file that it leads to
      {"home/folder/b.vhd", "50"},
      {"home/odd/a.vhd", "30"},  // a folder is no configuration
      {"out/far/home/a.vhd", "60"},
      {"home/lost/a.vhd", "home/lost/.qornrc: No such file or directory"},
  };
  SettingSource source("");
  for (const auto& row : cases) EXPECT_EQ(widthFor(source, row.file), row.expected) << row.file;
  EXPECT_EQ(&source.ofFile("home/lib/a.vhd"), &source.ofFolder("home/lib")) << "read once";
  fs::current_path(folder.path("home/tree/src/deep"));
  EXPECT_EQ(widthFor(source, ""), "50") << "no name: the current folder";
  setenv("HOME", folder.path("out/far").c_str(), 1);
  SettingSource ofAnother("");
  EXPECT_EQ(widthFor(ofAnother, folder.path("out/far/home/a.vhd")), "80") << "home ends the search";
}

TEST_F(SettingSourceTest, NamedOnesComeFirst) {
  put(".", 30);
  put("a", 40);
  put("b", 50);
  folder.write("rc", "LINEWIDTH 60 INDENTATION");
  const struct {
    const char* searched;
    const char* named;
    const char* expected;
  } cases[] = {
      {nullptr, "", "30"},
      {"", "", "80"},
      {"::", "", "80"},
      {"a:none::b:", "", "50"},
      {"b:a", "", "40"},
      {"a", "rc", "60"},
      {nullptr, "/dev/null", "80"},
      {"a", "none.rc", "none.rc: No such file or directory"},
  };
  for (const auto& row : cases) {
    unsetenv("QORNRC");
    if (row.searched != nullptr) setenv("QORNRC", row.searched, 1);
    SettingSource source(row.named);
    EXPECT_EQ(widthFor(source, "x/a.vhd"), row.expected) << row.named;
  }
}

TEST_F(SettingSourceTest, ComplaintsCoverAllThatWasRead) {
  folder.write("b/.qornrc", "FOO 1\n");
  folder.write("a/.qornrc", "LINEWIDTH\n");
  folder.write("c/.qornrc", "BAR 1\n");
  SettingSource source("");
  (void)source.ofFile("b/x.vhd");
  (void)source.ofFile("a/x.vhd");
  (void)source.ofFile("a/y.vhd");
  EXPECT_EQ(source.complaints(), (std::vector<std::string>{"a/.qornrc:1: LINEWIDTH: no value",
                                                           "b/.qornrc:1: FOO: no such key"}));
  const SettingsReport report = reportSettings(source.ofFolder("b"));
  EXPECT_TRUE(report.text.starts_with("KEYWORDCASE"));
  EXPECT_EQ(report.complaints.size(), 1U);
}

}  // namespace
