// Paths and the small string collections.
#include "base/path.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "base/stringarray.h"
#include "base/stringlist.h"
#include "tempfolder.h"

namespace {

TEST(PathTest, CleanupTidiesTheText) {
  const struct {
    const char* input;
    const char* expected;
  } cases[] = {
      {"/./a/.//./b", "/a/b"},
      {"/a/b/c/../../d/../e", "/a/e"},
      {"/a/b/..", "/a"},
      {"/a/b/.", "/a/b"},
      {"/a/b/", "/a/b"},
      {"/tmp_mnt/home/x", "/home/x"},
      {"/tmp_mntx/a", "/tmp_mntx/a"},
      {"/a/.hidden/..b/c..", "/a/.hidden/..b/c.."},
      {"/a//../../b/./c", "/a//../../b/./c"},  // more steps up than levels
      {"a/../b", "a/../b"},
      {"a/..", "a/.."},
      {"/.", ""},
      {"/", ""},
      {"", ""},
  };
  for (const auto& row : cases) {
    Path path(row.input);
    path.cleanup();
    EXPECT_STREQ(path.get(), row.expected) << row.input;
  }
}

TEST(PathTest, ExecutableTellsWhyNot) {
  const TempFolder folder;
  Path plain(folder.write("plain", "").c_str());
  EXPECT_EQ(plain.executable(), -1);
  EXPECT_EQ(plain.getError(), EACCES);
  Path missing(folder.path("missing").c_str());
  EXPECT_EQ(missing.executable(), -1);
  EXPECT_EQ(missing.getError(), ENOENT);
  EXPECT_EQ(Path("/bin/sh").executable(), 0);
}

TEST(PathTest, AddcwdTakesDirectoriesOfAnyLengthAndReportsALostOne) {
  const TempFolder folder;
  const auto old = std::filesystem::current_path();
  for (const std::size_t length : {1U, 64U, 250U}) {
    folder.write(std::string(length, 'd') + "/file", "");
    std::filesystem::current_path(folder.path(std::string(length, 'd')));
    Path path("x/y");
    path.addcwd();
    EXPECT_EQ(path.get(), std::filesystem::current_path().string() + "/x/y");
  }
  std::filesystem::remove_all(folder.path());
  Path path("x");
  testing::internal::CaptureStderr();
  path.addcwd();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error! unable to determine current directory: No such file or directory\n");
  EXPECT_STREQ(path.get(), "x");
  std::filesystem::current_path(old);
}

TEST(StringListTest, SplitAddsThePiecesThatAreNotEmpty) {
  StringList list;
  EXPECT_EQ(list.Split("", ':'), 0);
  EXPECT_EQ(list.Split("::", ':'), 0);
  EXPECT_EQ(list.getFirstString(), nullptr);
  EXPECT_EQ(list.Split("ab::c:", ':'), 2);
  EXPECT_EQ(list.Split(":d e", ':'), 1);
  std::string shown;
  const char* piece = list.getFirstString();
  for (; piece != nullptr; piece = list.getNextString()) shown += std::string("|") + piece;
  EXPECT_EQ(shown, "|ab|c|d e");
}

TEST(StringArrayTest, KeepsCopiesBeyondItsFirstCapacity) {
  StringArray array;
  EXPECT_EQ(array.getFirstString(), nullptr);
  EXPECT_EQ(array.getNextString(), nullptr);
  std::string expected;
  for (const char letter : std::string("abcdefghi")) {
    array.addString(std::string(1, letter).c_str());
    expected += letter;
    std::string shown;
    const char* text = array.getFirstString();
    for (; text != nullptr; text = array.getNextString()) shown += text;
    EXPECT_EQ(shown, expected);
  }
}

}  // namespace
