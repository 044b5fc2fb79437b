// The ruler that remembers, against a walk that does not, on random lists and moves.
#include "scanner/lineruler.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

constexpr int tabWidth = 4;

class RulerCourse {
 public:
  explicit RulerCourse(unsigned seed) : random(seed) {
    static constexpr struct {
      int typ;
      const char* text;
    } kinds[] = {{T_IDENTIFIER, "name"}, {T_IDENTIFIER, "b"}, {T_STRING, "\"\t\""},
                 {T_WHITESPACE, "  "},   {T_COMMENT, "--c"},  {T_NEWLINE, "\n"}};
    for (int i = 0; i < 60; ++i) {
      const auto& kind = kinds[pick(6)];
      list.addItemLast(new VhdlToken(kind.typ, 1, 0, kind.text));
    }
    list.getFirst();
    for (; list.getAnchor() != nullptr; list.getNext()) nodes.push_back(list.getAnchorNode());
  }

  void run() {
    for (int step = 0; step < 300; ++step) {
      compare();
      const std::size_t choice = pick(10);
      if (choice < 2) {
        place = pick(static_cast<int>(nodes.size()));
      } else if (choice < 4) {
        indentFirst();
      } else if (choice < 5) {
        rewrite(pick(static_cast<int>(nodes.size())));  // perhaps in front of the mark
        ruler.forget();
      } else {
        place = std::min<std::size_t>(place + pick(4), nodes.size() - 1);
        rewrite(place + pick(3));
      }
    }
  }

 private:
  std::size_t pick(int count) { return random() % static_cast<unsigned>(count); }

  VhdlToken& token(const OldListRefItem* node) { return *static_cast<VhdlToken*>(node->getItem()); }

  void compare() {
    int column = 0;
    OldListRefItem* first = nodes[place];
    for (OldListRefItem* node = first->getPrev(); node != nullptr; node = node->getPrev()) {
      const std::string_view text = token(node).viewText(1);
      if (text.starts_with('\n')) break;
      for (const char character : text) column += character == '\t' ? tabWidth : 1;
      first = node;
    }
    while (first != nullptr && token(first).getTyp() == T_WHITESPACE) first = first->getNext();
    const LineRuler::Reading reading = ruler.read(nodes[place], tabWidth);
    ASSERT_EQ(reading.column, column);
    ASSERT_EQ(reading.first, first);
    start = first;
  }

  /** Widens or narrows the blank before the line's first token, and says so. */
  void indentFirst() {
    if (start == nullptr || start->getPrev() == nullptr) return;
    VhdlToken& blank = token(start->getPrev());
    if (blank.getTyp() != T_WHITESPACE) return;
    const int before = blank.textLength(1);
    blank.setFormatBlanks(static_cast<int>(pick(9)));
    ruler.indented(start, blank.textLength(1) - before);
  }

  /** Gives a blank or a line end another text, as the pass does at and behind its place. */
  void rewrite(std::size_t index) {
    if (index >= nodes.size()) return;
    VhdlToken& target = token(nodes[index]);
    if (target.getTyp() == T_WHITESPACE) target.setFormatBlanks(static_cast<int>(pick(4)));
    if (target.getTyp() == T_NEWLINE) target.setFormatText(pick(3) == 0 ? "\n" : "");
  }

  std::mt19937 random;
  OldList list;
  std::vector<OldListRefItem*> nodes;
  std::size_t place = 0;
  OldListRefItem* start = nullptr;  // of the line read last
  LineRuler ruler;
};

TEST(LineRuler, ReadsWhatAWalkReads) {
  for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFatalFailure(); ++seed) {
    SCOPED_TRACE(seed);
    RulerCourse(seed).run();
  }
}

}  // namespace
