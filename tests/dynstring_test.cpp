// The string against a model: whatever form it takes, it reads as the plain text would.
#include "base/dynstring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <utility>

namespace {

struct Pair {
  DynString string;
  std::string model;
};

bool agrees(const DynString& string, const std::string& model) {
  return string.view() == model && string.length() == static_cast<int>(model.size()) &&
         string.get()[model.size()] == '\0';
}

/** One operation on `one`, with a length around the borders between the forms. */
void change(int operation, int size, unsigned where, Pair& one) {
  const auto count = static_cast<std::size_t>(size);
  const std::size_t length = one.model.size();
  const std::size_t from = where % (length + 1);
  const std::size_t rest = std::min(count, length - from);
  const std::string fresh(count, static_cast<char>('a' + where % 26));
  switch (operation) {
    case 0:
      one.string.set(fresh);
      one.model = fresh;
      return;
    case 1:  // from itself
      one.string.set(one.string.view().substr(from, rest));
      one.model = one.model.substr(from, rest);
      return;
    case 2:
      one.string.cat(fresh);
      one.model += fresh;
      return;
    case 3:  // its own text
      one.string.cat(one.string.view().substr(from, rest));
      one.model += one.model.substr(from, rest);
      return;
    case 4:
      one.string.catRepeated(size, '\xe4');
      one.model.append(count, '\xe4');
      return;
    case 5:
      one.string.setBlanks(size);
      one.model.assign(count, ' ');
      return;
    case 6:
      one.string.truncate(static_cast<int>(from));
      one.model.resize(from);
      return;
    case 7:
      one.string.dropFront(static_cast<int>(from));
      one.model.erase(0, from);
      return;
    case 8:
      if (length == 0) return;
      one.string.edit()[from % length] = '#';
      one.model[from % length] = '#';
      return;
    case 9:
      one.string.transform([](char letter) { return letter == 'a' ? 'A' : letter; });
      for (char& letter : one.model) letter = letter == 'a' ? 'A' : letter;
      return;
    default:
      one.string.catl(static_cast<long>(where) * -7);
      one.model += std::to_string(static_cast<long>(where) * -7);
  }
}

void assign(int operation, Pair& one, Pair& other) {
  switch (operation) {
    case 11:
      one.string = other.string;
      one.model = other.model;
      return;
    case 12:
      one.string = std::move(other.string);
      one.model = std::exchange(other.model, "");
      return;
    case 13:
      one.string = DynString(other.string);
      one.model = other.model;
      return;
    default: {
      DynString& itself = one.string;
      one.string = itself;
      one.string = std::move(itself);
    }
  }
}

TEST(DynStringTest, ReadsAsThePlainTextInEveryForm) {
  constexpr int sizes[] = {0, 1, 7, 14, 15, 16, 17, 40, 255, 256, 257, 600};
  std::mt19937 random(1);
  Pair pairs[2];
  for (int i = 0; i < 40000; ++i) {
    const auto operation = static_cast<int>(random() % 15);
    const int size = sizes[random() % std::size(sizes)];
    Pair& one = pairs[random() % 2];
    Pair& other = &one == pairs ? pairs[1] : pairs[0];
    if (operation <= 10) {
      change(operation, size, static_cast<unsigned>(random() % 10000), one);
    } else {
      assign(operation, one, other);
    }
    for (Pair& pair : pairs) {
      ASSERT_TRUE(agrees(pair.string, pair.model)) << "operation " << operation << ", " << size;
      if (pair.model.size() > 2000) change(0, 0, 0, pair);
    }
  }
}

TEST(DynStringTest, IsUnsetWithoutACharacter) {
  DynString string;
  for (int i = 0; i < 6; ++i) {
    string.set("something longer than the object itself");
    if (i == 0) string.set("");
    if (i == 1) string.set(static_cast<const char*>(nullptr));
    if (i == 2) string.setBlanks(-1);
    if (i == 3) string.truncate(0);
    if (i == 4) string.dropFront(string.length());
    if (i == 5) (void)DynString(std::move(string));
    string.cat("");
    string.cat(static_cast<const char*>(nullptr));
    string.cat('\0');
    string.catRepeated(0, 'x');
    string.catRepeated(-3, 'x');
    EXPECT_TRUE(agrees(string, "")) << i;
  }
  string.cat('x');
  EXPECT_TRUE(agrees(string, "x"));
}

TEST(DynStringTest, LosesItsFrontBeyondTheLargestOffset) {
  constexpr std::size_t size = 20'000'000;
  std::string model(size, ' ');
  for (std::size_t i = 0; i < size; i += 4096) model[i] = static_cast<char>('a' + i / 4096 % 26);
  DynString string(model);
  std::size_t dropped = 0;
  for (const int count : {1, 0xFFFFFE, 1, 1'000'000}) {
    string.dropFront(count);
    dropped += static_cast<std::size_t>(count);
    ASSERT_TRUE(agrees(string, model.substr(dropped))) << dropped;
  }
  string.cat("tail");
  EXPECT_TRUE(agrees(string, model.substr(dropped) + "tail"));
}

TEST(DynStringTest, LeavesTheSharedBlanksAlone) {
  DynString first;
  DynString second;
  first.setBlanks(100);
  second.setBlanks(256);
  *first.edit() = 'x';
  second.cat('y');
  second.transform([](char letter) { return letter == ' ' ? 'z' : letter; });
  DynString third;
  third.setBlanks(256);
  EXPECT_TRUE(agrees(first, "x" + std::string(99, ' ')));
  EXPECT_TRUE(agrees(second, std::string(256, 'z') + "y"));
  EXPECT_TRUE(agrees(third, std::string(256, ' ')));
}

}  // namespace
