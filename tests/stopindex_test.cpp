// The index of stops against plain walks, from every place of random texts.
#include "scanner/stopindex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tokendump.h"

namespace {

constexpr int longestName = 6;

int countEntries(const VhdlToken* node, int level, int stop) {
  int count = 1;
  for (node = node->getNext(); node != nullptr; node = node->getNext()) {
    if (node->getParenLevel() > level) continue;
    if (typAt(node) == stop) return std::min(count, severalEntries);
    if (typAt(node) == T_COMMA) ++count;
  }
  return 0;
}

/** The tokens of the list ahead; a null at the end if it stays open. */
std::vector<const VhdlToken*> listAhead(const VhdlToken* node, int level) {
  std::vector<const VhdlToken*> tokens;
  for (node = node->getNext(); node != nullptr; node = node->getNext()) {
    const bool closes = typAt(node) == T_RPAREN && node->getParenLevel() <= level;
    if (closes || typAt(node) == T_END) return tokens;
    tokens.push_back(node);
  }
  tokens.push_back(nullptr);
  return tokens;
}

int measureNames(const std::vector<const VhdlToken*>& tokens, int classColumn) {
  int length = 0;
  int longest = 0;
  for (const VhdlToken* node : tokens) {
    const int typ = typAt(node);
    if (typ == T_COLON || typ == T_COMMA || typ == T_EQUAL || typ == T_SEMICOLON) {
      if (typ != T_SEMICOLON && length <= longestName) longest = std::max(longest, length);
      length = 0;
    } else if (!isSpacing(typ) && typ != T_RPAREN) {
      length += isClassWord(typ) ? classColumn : node->textLength(1);
    }
  }
  return longest;
}

/** The index and the plain walks beside it on their way through a list. */
class Comparison {
 public:
  explicit Comparison(const std::string& text) {
    lexInto(list, text);
    list.getFirst();
    index.reset(longestName);
    index.build(list.getAnchor());
  }

  void compareAt(const VhdlToken* node, bool measures) {
    index.pass(node);
    const int level = node->getParenLevel();
    const VhdlToken* semicolon = node->getNext();
    while (semicolon != nullptr && typAt(semicolon) != T_SEMICOLON)
      semicolon = semicolon->getNext();
    ASSERT_EQ(index.nextSemicolon(), semicolon);
    for (const int stop : {T_RPAREN, T_SEMICOLON}) {
      ASSERT_EQ(index.countEntries(level, stop), countEntries(node, level, stop));
    }
    auto tokens = listAhead(node, level);
    const bool isOpen = !tokens.empty() && tokens.back() == nullptr;
    ASSERT_EQ(index.hasListEnd(level), !isOpen);
    if (isOpen) tokens.pop_back();
    for (const WordKind kind : {MODE_WORD, CLASS_WORD}) {
      int widest = 0;
      for (const auto* token : tokens) widest = std::max(widest, wordWidth(kind, typAt(token)));
      ASSERT_EQ(index.widestWord(level, kind), widest);
      if (measures) compareWords(tokens, level, kind, widest);
      if (!isOpen && kind == CLASS_WORD) {
        ASSERT_EQ(index.longestName(node, level, widest), measureNames(tokens, widest));
      }
    }
  }

  TokenList list;

 private:
  /** What is not to be set must have been set for a word of the same width. */
  void compareWords(const std::vector<const VhdlToken*>& tokens, int level, WordKind kind,
                    int widest) {
    for (const VhdlToken* word : index.wordsToSet(level, kind)) setFor[word] = widest;
    for (const VhdlToken* token : tokens) {
      if (wordWidth(kind, typAt(token)) > 0) {
        ASSERT_EQ(setFor[token], widest);
      }
    }
  }

  StopIndex index;
  std::map<const VhdlToken*, int> setFor;
};

TEST(StopIndexTest, AnswersAsAWalkWould) {
  constexpr const char* pieces[] = {
      "(",   "(", "(", ")",   ")",   ")",        ";",       ",",         "a ", "b",      "end ",
      "in ", ":", "=", "out", " in", "linkage ", "signal ", " variable", " ",  "record "};
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = 0; i < 60; ++i) text += pieces[random() % std::size(pieces)];
    SCOPED_TRACE(text);
    Comparison comparison(text);
    for (comparison.list.getFirst(); comparison.list.getAnchor() != nullptr;
         comparison.list.getNext()) {
      const VhdlToken* node = comparison.list.getAnchor();
      const bool opensList = typAt(node) == T_LPAREN || typAt(node) == T_RECORD;
      comparison.compareAt(node, opensList && random() % 2 == 0);
      if (HasFatalFailure()) return;
    }
  }
}

// Twenty measures over one long stretch are more than a sound source makes.
TEST(StopIndexTest, IsBuiltForLongWalksOverOneStretch) {
  TokenList list;
  lexInto(list, "a b c d");
  list.getFirst();
  const VhdlToken* cursor = list.getAnchor();
  list.getLast();
  const VhdlToken* end = list.getAnchor();
  StopIndex index;
  for (int walk = 0; walk < 20; ++walk) {
    index.countSteps(cursor, end, 10000);
    index.pass(end);  // which ends the stretch
    index.countSteps(cursor, end, 10);
    EXPECT_FALSE(index.isBuilt());
  }
  for (int walk = 0; walk < 20; ++walk) index.countSteps(cursor, end, 10000);
  EXPECT_TRUE(index.isBuilt());
}

}  // namespace
