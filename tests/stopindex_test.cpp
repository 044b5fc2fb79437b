// The index of stops against a walk to the end of the list, from every place of random texts.
#include "scanner/stopindex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

#include "tokendump.h"

namespace {

bool standsAhead(const OldListRefItem* node, int typ, int level) {
  for (node = node->getNext(); node != nullptr; node = node->getNext()) {
    if (tokenAt(node).getTyp() == typ && tokenAt(node).getParenLevel() <= level) return true;
  }
  return false;
}

int countEntries(const OldListRefItem* node, int level, int stop) {
  int count = 1;
  for (node = node->getNext(); node != nullptr; node = node->getNext()) {
    if (tokenAt(node).getParenLevel() > level) continue;
    if (tokenAt(node).getTyp() == stop) return std::min(count, severalEntries);
    if (tokenAt(node).getTyp() == T_COMMA) ++count;
  }
  return 0;
}

TEST(StopIndexTest, AnswersAsAWalkToTheEndWould) {
  constexpr const char* pieces[] = {"(",  "(",    ")",   ")",        ";",      ",",
                                    "a ", "end ", "in ", "linkage ", "signal "};
  constexpr int anyLevel = 1 << 20;
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += pieces[random() % std::size(pieces)];
    OldList list;
    lexInto(list, text);
    list.getFirst();
    StopIndex index;
    index.build(list.getAnchorNode());
    ASSERT_FALSE(index.wordsAreSet());
    for (OldListItem* item = list.getFirst(); item != nullptr; item = list.getNext()) {
      const OldListRefItem* node = list.getAnchorNode();
      index.pass(node);
      const int level = tokenAt(node).getParenLevel();
      ASSERT_EQ(index.hasClose(level), standsAhead(node, T_RPAREN, level)) << text;
      for (const int stop : {T_RPAREN, T_SEMICOLON}) {
        const int entries = countEntries(node, level, stop);
        ASSERT_EQ(index.countEntries(level, stop), entries) << text;
      }
      const bool ends = standsAhead(node, T_END, anyLevel) || standsAhead(node, T_RPAREN, level);
      ASSERT_EQ(index.hasListEnd(level), ends) << text;
      ASSERT_EQ(index.nextSemicolon() != nullptr, standsAhead(node, T_SEMICOLON, anyLevel)) << text;
    }
  }
}

}  // namespace
