// What holds for every input: nothing is lost, the list stays whole, and no input is too odd, too
// deep or too long. Inputs are the golden sources, the examples and rubbish.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <vector>

#include "base/ascii.h"
#include "scannerprobe.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view words[] = {
#define QORN_WORD(name, code, word) word,
#define QORN_CODE(name, code, group)
#include "tokens/tokencodes.def"
};

struct Input {
  std::string name;
  std::string text;
};

std::vector<Input> sources() {
  std::vector<Input> inputs;
  for (const char* folder : {"/tests/golden", "/examples"}) {
    for (const auto& entry :
         fs::recursive_directory_iterator(QORN_SOURCE_DIR + std::string(folder))) {
      if (entry.path().extension() != ".vhd") continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      inputs.push_back({entry.path().string(), {std::istreambuf_iterator<char>(stream), {}}});
    }
  }
  return inputs;
}

/** Words, marks, names, comments and line ends in any order. */
std::string soup(unsigned seed) {
  static constexpr std::string_view marks[] = {"(",
                                               ")",
                                               ";",
                                               ",",
                                               ".",
                                               ":",
                                               "=",
                                               "<=",
                                               ":=",
                                               "=>",
                                               "<>",
                                               "|",
                                               "!",
                                               "[",
                                               "]",
                                               "'",
                                               "'event",
                                               "'('",
                                               "1",
                                               "2#1#",
                                               "a",
                                               "b_c",
                                               "\"s\"",
                                               "x\"f\"",
                                               "\\e\\",
                                               "\n",
                                               "\n",
                                               "\n",
                                               "\t",
                                               "$",
                                               "-- c\r",
                                               "--\n",
                                               "-- c\n",
                                               "--qorn-off\n",
                                               "--qorn-on\n",
                                               "--qorn-indent-off\n",
                                               "--qorn-indent-on\n",
                                               "-- a title in a frame --\n",
                                               "------\n"};
  std::mt19937 random(seed);
  std::string text;
  for (auto count = random() % 400; count > 0; --count) {
    const bool isWord = random() % 2 == 0;
    text += isWord ? words[random() % std::size(words)] : marks[random() % std::size(marks)];
    if (random() % 4 != 0) text.append(1 + random() % 2, ' ');
  }
  return text;
}

std::string bytes(unsigned seed) {
  std::mt19937 random(seed);
  std::string text;
  static constexpr std::string_view likely = " ;(\n-'\"ab1:=\t\r";
  for (auto count = random() % 600; count > 0; --count) {
    const bool isLikely = random() % 8 != 0;
    text += isLikely ? likely[random() % likely.size()] : static_cast<char>(random() % 256);
  }
  return text;
}

/** Settings that make the passes go other ways. */
void choose(ScannerProbe& probe, unsigned seed) {
  std::mt19937 random(seed);
  static constexpr int widths[] = {0, 1, 24, 40, 80, 132};
  probe.lineWidth = widths[random() % 6];
  probe.indentation = static_cast<int>(random() % 9);
  probe.style = random() % 2 == 0 ? C_A : C_B;
  probe.commentStartColumn = static_cast<int>(random() % 60) - 1;
  probe.extendComments = static_cast<int>(random() % 2);
  probe.frameBlockComments = static_cast<int>(random() % 2);
  probe.interfaceIdentifierList = random() % 2 == 0 ? C_WRAPPED : C_LIST;
  probe.associationList = random() % 2 == 0 ? C_WRAPPED : C_LIST;
  if (random() % 2 == 0) probe.setKeepIndentation();
}

/** All that is neither blank nor comment, with letters in one case. */
std::string essence(ScannerProbe& probe, int formatted) {
  std::string text;
  const AnchorGuard guard(probe.list());
  for (probe.list().getFirst(); probe.token() != nullptr; probe.list().getNext()) {
    if (isSpacing(probe.token()->getTyp())) continue;
    for (const char letter : probe.token()->getCaseText(formatted, formatted)) {
      if (std::string_view(" \t\n\v\f").find(letter) == std::string_view::npos) {
        text += asciiUpper(letter);
      }
    }
  }
  return text;
}

/** The words of all comments, but for their marks and frames. */
std::string commentWords(ScannerProbe& probe, int formatted) {
  std::string text;
  const AnchorGuard guard(probe.list());
  for (probe.list().getFirst(); probe.token() != nullptr; probe.list().getNext()) {
    if (!isComment(probe.token()->getTyp())) continue;
    for (const char letter : probe.token()->viewText(formatted)) {
      if (std::string_view(" \t\v\f-=*").find(letter) == std::string_view::npos) text += letter;
    }
  }
  return text;
}

/** Links lead from the head to the end and back over the same nodes. */
void expectWholeList(ScannerProbe& probe) {
  EXPECT_EQ(probe.list().countPushedAnchors(), 0);
  std::vector<OldListRefItem*> nodes;
  const OldListRefItem* before = nullptr;
  for (probe.list().getFirst(); probe.token() != nullptr; probe.list().getNext()) {
    nodes.push_back(probe.list().getAnchorNode());
    ASSERT_EQ(nodes.back()->getPrev(), before);
    before = nodes.back();
  }
  probe.list().getLast();
  EXPECT_EQ(probe.list().getAnchorNode(), before);
}

void expectNothingLost(std::string_view text, unsigned seed) {
  ScannerProbe probe;
  if (seed > 0) choose(probe, seed);
  probe.scan(text);
  const std::string source = probe.printed(0);
  const std::string code = essence(probe, 0);
  const std::string comments = commentWords(probe, 1);
  probe.runPasses();
  EXPECT_EQ(probe.printed(0), source);
  EXPECT_EQ(essence(probe, 1), code);
  EXPECT_EQ(commentWords(probe, 1), comments);
  expectWholeList(probe);
}

TEST(Properties, SourceTextsGiveTheInputBack) {
  for (const Input& input : sources()) {
    ScannerProbe probe;
    probe.layOut(input.text);
    std::string expected = input.text;
    std::erase(expected, '\r');
    for (std::size_t tab; (tab = expected.find('\t')) != std::string::npos;) {
      const std::size_t line = expected.rfind('\n', tab) + 1;
      expected.replace(tab, 1, 4 - (tab - line) % 4, ' ');
    }
    std::ranges::replace(expected, '!', '|');
    std::string got = probe.printed(0);
    std::ranges::replace(got, '!', '|');
    EXPECT_EQ(got, expected) << input.name;
  }
}

TEST(Properties, NothingIsLost) {
  for (const Input& input : sources()) {
    for (unsigned seed = 0; seed < 12; ++seed) {
      SCOPED_TRACE(input.name + " with seed " + std::to_string(seed));
      expectNothingLost(input.text, seed);
    }
  }
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("rubbish of seed " + std::to_string(seed));
    expectNothingLost(soup(seed), seed);
    expectNothingLost(bytes(seed), seed);
  }
}

TEST(Properties, TruncatedInputEnds) {
  for (const Input& input : sources()) {
    for (std::size_t length = 0; length < input.text.size(); length += 61) {
      SCOPED_TRACE(input.name + " up to byte " + std::to_string(length));
      expectNothingLost(std::string_view(input.text).substr(0, length), length % 2);
    }
  }
}

TEST(Properties, WordsInAnyPlaceEnd) {
  for (const std::string_view word : words) {
    const std::string one(word);
    for (const std::string& text : {one, one + " " + one, one + "(", one + " a is", "l: " + one,
                                    one + " a : b; end " + one + "; end; ))" + one}) {
      SCOPED_TRACE(text);
      for (unsigned seed = 0; seed < 3; ++seed) expectNothingLost(text, seed);
    }
  }
}

std::string repeated(std::string_view text, int count) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  while (count-- > 0) all += text;
  return all;
}

/** A debug build holds each measure against a walk over the whole line, so that a long line must
    be shorter there. */
constexpr int longLine =
#ifdef NDEBUG
    100000;
#else
    1000;
#endif

TEST(Properties, NoInputIsTooDeepOrTooLong) {
  const struct {
    const char* name;
    std::string text;
    int indentation;
  } cases[] = {
      {"parentheses", repeated("(", longLine) + "a" + repeated(")", longLine), 4},
      {"calls in calls", repeated("f(", longLine) + "a" + repeated(")", longLine) + ";", 4},
      {"surplus parentheses", repeated(")", longLine) + ";", 4},
      {"branches", repeated("if a then ", 100000) + repeated("end if; ", 100000), 0},
      {"surplus ends", repeated("end; ", 100000), 4},
      {"an open list", "entity e is port (" + repeated("a : bit; ", longLine / 10), 4},
      {"a table", "a <= (" + repeated("1, ", longLine) + "1);", 4},
      {"comments", repeated("-- a comment\n", 1000000), 4},
      {"a comment", "-- " + repeated("word ", 2000000), 4},
      {"a comment without a place to split", "--" + repeated("word", 2500000), 4},
      {"comments that are all too long", repeated("-- " + repeated("word ", 30) + "\n", 30000), 4},
      {"blank lines", "a" + repeated("\n", 1000000) + ";", 4},
      {"a run of assignments", repeated("a <= b;\n", 50000), 4},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    ScannerProbe probe;
    probe.indentation = row.indentation;
    probe.scan(row.text);
    const std::string code = essence(probe, 0);
    const std::string comments = commentWords(probe, 0);
    probe.runPasses();
    EXPECT_TRUE(essence(probe, 1) == code);
    EXPECT_TRUE(commentWords(probe, 1) == comments);
    expectWholeList(probe);
  }
}

}  // namespace
