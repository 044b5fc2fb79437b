// Paths and the small string collections.
#include "base/path.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "base/stringarray.h"
#include "base/stringlist.h"
#include "tempfolder.h"

namespace {

TEST(PathTest, CleanupTidiesTheText) {
  struct Case {
    const char* input;
    const char* expected;
  };
  const Case cases[] = {
      {"/a/./b", "/a/b"},
      {"/a/././b", "/a/b"},
      {"/a//b", "/a/b"},
      {"///a////b", "/a/b"},
      {"/a/.//./b", "/a/b"},
      {"/a/b/../c", "/a/c"},
      {"/a/b/../../c", "/c"},
      {"/a/b/c/../../d/../e", "/a/e"},
      {"/a/b/..", "/a"},
      {"/a/b/../..", ""},
      {"/a/b/.", "/a/b"},
      {"/a/b/", "/a/b"},
      {"/tmp_mnt/home/x", "/home/x"},
      {"/tmp_mntx/a", "/tmp_mntx/a"},
      {"/a/.hidden/..b/c..", "/a/.hidden/..b/c.."},
      {"/../a", "/../a"},
      {"/a//../../b/./c", "/a//../../b/./c"},  // more steps up than levels
      {"a/../b", "a/../b"},
      {"a/..", "a/.."},
      {"..", ".."},
      {".", "."},
      {"/.", ""},
      {"/", ""},
      {"", ""},
  };
  for (const Case& row : cases) {
    Path path(row.input);
    path.cleanup();
    EXPECT_STREQ(path.get(), row.expected) << row.input;
  }
}

TEST(PathTest, TailStandsBehindTheLastSlash) {
  EXPECT_STREQ(Path("/usr/bin/qorn").tail(), "qorn");
  EXPECT_STREQ(Path("qorn").tail(), "qorn");
  EXPECT_STREQ(Path("bin/").tail(), "");
  EXPECT_STREQ(Path("").tail(), "");
}

TEST(PathTest, ExecutableTellsWhyNot) {
  const TempFolder folder;
  Path plain(folder.write("plain", "").c_str());
  EXPECT_EQ(plain.executable(), -1);
  EXPECT_EQ(plain.getError(), EACCES);
  Path missing(folder.path("missing").c_str());
  EXPECT_EQ(missing.executable(), -1);
  EXPECT_EQ(missing.getError(), ENOENT);
  Path shell("/bin/sh");
  EXPECT_EQ(shell.executable(), 0);
}

/** Comes back to the working directory of before. */
class Elsewhere {
 public:
  explicit Elsewhere(const std::string& folder) : old(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~Elsewhere() { std::filesystem::current_path(old); }

 private:
  std::filesystem::path old;
};

TEST(PathTest, AddcwdTakesDirectoriesOfAnyLength) {
  const TempFolder folder;
  for (const std::size_t length : {1U, 40U, 63U, 64U, 65U, 128U, 250U}) {
    const std::string name(length, 'd');
    folder.write(name + "/file", "");
    const Elsewhere elsewhere(folder.path(name));
    Path path("x/y");
    path.addcwd();
    EXPECT_EQ(path.get(), std::filesystem::current_path().string() + "/x/y");
  }
  Path absolute("/x");
  absolute.addcwd();
  EXPECT_STREQ(absolute.get(), "/x");
}

TEST(PathTest, AddcwdReportsALostDirectory) {
  const TempFolder folder;
  folder.write("gone/file", "");
  const Elsewhere elsewhere(folder.path("gone"));
  std::filesystem::remove_all(folder.path("gone"));
  Path path("x");
  testing::internal::CaptureStderr();
  path.addcwd();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error! unable to determine current directory: No such file or directory\n");
  EXPECT_STREQ(path.get(), "x");
}

TEST(StringListTest, SplitDropsEmptyPieces) {
  struct Case {
    const char* input;
    const char* expected;  // the number of pieces, and each behind a blank
  };
  const Case cases[] = {
      {"", "0"},          {":", "0"},        {":::", "0"},         {"a", "1 a"},
      {"a::b:", "2 a b"}, {":a:b", "2 a b"}, {"a b:c", "2 a b c"}, {"ab:cd:e", "3 ab cd e"},
  };
  for (const Case& row : cases) {
    StringList list;
    std::string shown = std::to_string(list.Split(row.input, ':'));
    const char* piece = list.getFirstString();
    for (; piece != nullptr; piece = list.getNextString()) shown += std::string(" ") + piece;
    EXPECT_EQ(shown, row.expected) << row.input;
  }
}

TEST(StringListTest, SplitAddsToTheList) {
  StringList list;
  EXPECT_EQ(list.Split("a", ':'), 1);
  EXPECT_EQ(list.Split("b:c", ':'), 2);
  EXPECT_STREQ(list.getFirstString(), "a");
  EXPECT_STREQ(list.getNextString(), "b");
}

TEST(StringArrayTest, KeepsCopiesBeyondItsFirstCapacity) {
  StringArray array;
  EXPECT_EQ(array.getFirstString(), nullptr);
  EXPECT_EQ(array.getNextString(), nullptr);
  for (int i = 0; i < 9; ++i) array.addString(std::to_string(i).c_str());
  std::string shown;
  const char* text = array.getFirstString();
  for (; text != nullptr; text = array.getNextString()) shown += text;
  EXPECT_EQ(shown, "012345678");
  EXPECT_EQ(array.getNextString(), nullptr);
  EXPECT_STREQ(array.getFirstString(), "0");
}

}  // namespace
