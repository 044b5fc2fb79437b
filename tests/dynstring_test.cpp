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

/** What an operation is given; a length is around the borders between the string's forms. */
struct Given {
  int size;
  std::string fresh;  // of that size
  std::size_t from;   // a place in the text
  std::size_t rest;   // bytes behind it, at most size
  Pair& other;
};

using Str = DynString;
using Text = std::string;

constexpr struct {
  void (*change)(Str& string, const Given& given);
  void (*mirror)(Text& model, const Given& given);
} operations[] = {
    {[](Str& s, const Given& g) { s.set(g.fresh); }, [](Text& m, const Given& g) { m = g.fresh; }},
    {[](Str& s, const Given& g) { s.set(s.view().substr(g.from, g.rest)); },
     [](Text& m, const Given& g) { m = m.substr(g.from, g.rest); }},
    {[](Str& s, const Given& g) { s.cat(g.fresh); }, [](Text& m, const Given& g) { m += g.fresh; }},
    {[](Str& s, const Given& g) { s.cat(s.view().substr(g.from, g.rest)); },
     [](Text& m, const Given& g) { m += m.substr(g.from, g.rest); }},
    {[](Str& s, const Given& g) { s.catRepeated(g.size, '\xe4'); },
     [](Text& m, const Given& g) { m.append(g.fresh.size(), '\xe4'); }},
    {[](Str& s, const Given& g) { s.setBlanks(g.size); },
     [](Text& m, const Given& g) { m.assign(g.fresh.size(), ' '); }},
    {[](Str& s, const Given& g) { s.truncate(static_cast<int>(g.from)); },
     [](Text& m, const Given& g) { m.resize(g.from); }},
    {[](Str& s, const Given& g) { s.dropFront(static_cast<int>(g.from)); },
     [](Text& m, const Given& g) { m.erase(0, g.from); }},
    {[](Str& s, const Given& g) {
       if (g.rest > 0) s.edit()[g.from] = '#';
     },
     [](Text& m, const Given& g) {
       if (g.rest > 0) m[g.from] = '#';
     }},
    {[](Str& s, const Given&) { s.transform([](char c) { return c == 'a' ? 'A' : c; }); },
     [](Text& m, const Given&) { std::ranges::replace(m, 'a', 'A'); }},
    {[](Str& s, const Given& g) { s.catl(g.size * -12345L); },
     [](Text& m, const Given& g) { m += std::to_string(g.size * -12345L); }},
    {[](Str& s, const Given& g) { s = g.other.string; },
     [](Text& m, const Given& g) { m = g.other.model; }},
    {[](Str& s, const Given& g) { s = std::move(g.other.string); },
     [](Text& m, const Given& g) { m = std::exchange(g.other.model, ""); }},
    {[](Str& s, const Given& g) { s = DynString(g.other.string); },
     [](Text& m, const Given& g) { m = g.other.model; }},
    {[](Str& s, const Given&) {
       Str& same = s;  // under another name, so that no compiler takes it for a slip
       s = same, s = std::move(same);
     },
     [](Text&, const Given&) {}},
};

TEST(DynStringTest, ReadsAsThePlainTextInEveryForm) {
  constexpr int sizes[] = {0, 1, 7, 14, 15, 16, 17, 40, 255, 256, 257, 600};
  std::mt19937 random(1);
  Pair pairs[2];
  for (int i = 0; i < 40000; ++i) {
    const std::size_t operation = random() % std::size(operations);
    const int size = sizes[random() % std::size(sizes)];
    Pair& one = pairs[random() % 2];
    const std::size_t length = one.model.size();
    const std::size_t from = random() % (length + 1);
    const auto count = static_cast<std::size_t>(size);
    const Given given{size, std::string(count, static_cast<char>('a' + random() % 26)), from,
                      std::min(count, length - from), &one == pairs ? pairs[1] : pairs[0]};
    operations[operation].change(one.string, given);
    operations[operation].mirror(one.model, given);
    for (const Pair& pair : pairs) {
      ASSERT_TRUE(agrees(pair.string, pair.model)) << "operation " << operation << ", " << size;
    }
    if (one.model.size() > 2000) one = Pair();
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
