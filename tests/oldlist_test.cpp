// The list with its cursor as rows of little programs, and the plain containers beside it.
#include "base/oldlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/anchorguard.h"
#include "base/list.h"
#include "base/stack.h"

namespace {

std::string deleted;

class Item : public OldListItem<Item> {
 public:
  explicit Item(char itemName) : name(itemName) {}
  ~Item() { deleted += name; }
  const char name;
};

char nameOf(const Item* item) { return item == nullptr ? '.' : item->name; }

/** The names in order, the anchor's in brackets: "a[b]c". The links backward have to agree. */
std::string shown(OldList<Item>& list) {
  const Item* anchor = list.getAnchor();
  std::string forward;
  std::string backward;
  std::string line;
  const AnchorGuard guard(list);
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    const std::string name(1, nameOf(item));
    line += list.getAnchor() == anchor ? "[" + name + "]" : name;
    forward += name;
  }
  for (auto* item = list.getLast(); item != nullptr; item = list.getPrev()) {
    backward.insert(backward.begin(), nameOf(item));
  }
  return forward == backward ? line : forward + " against " + backward;
}

/** Runs a program of steps, those that insert with the item's name after them. Returns the list,
    and behind "-" the items that it let go of before its end. */
std::string run(const std::string& steps) {
  std::string result;
  deleted.clear();
  OldList<Item> list;
  const auto moved = [&](const Item* item) { EXPECT_EQ(item, list.getAnchor()) << steps; };
  for (std::size_t i = 0; i < steps.size(); ++i) {
    switch (steps[i]) {
      case 'L': list.addItemLast(steps[++i]); break;
      case 'F': list.addItemFirst(steps[++i]); break;
      case 'A': moved(list.addItemAnchor(steps[++i])); break;
      case '0': list.deleteAllItems(); break;
      case '(': list.pushAnchor(); break;
      case ')': list.popAnchor(); break;
      case '<': moved(list.getFirst()); break;
      case '>': moved(list.getLast()); break;
      case 'n': moved(list.getNext()); break;
      case 'p': moved(list.getPrev()); break;
      case '?': result += {nameOf(list.peekPrev()), nameOf(list.peekNext()), ' '}; break;
      default: ADD_FAILURE() << steps; break;
    }
  }
  result += shown(list);
  if (!deleted.empty()) result += " -" + deleted;
  return result;
}

TEST(OldListTest, MovesItsCursorByTheContract) {
  const struct {
    const char* name;
    const char* input;
    const char* expected;
  } cases[] = {
      {"empty", "<>np()?", ".. "},
      {"without an anchor leads nowhere", "LaLbnp?", ".. ab"},
      {"first, last, next, previous", "LaLbLc<np>p?", "ac a[b]c"},
      {"off the end", "LaLb<nnn", "ab"},
      {"no way back from the head", "LaLb<pn", "ab"},
      {"neighbours at the ends", "LaLb<?>?", ".b a. a[b]"},
      {"saved anchors nest", "LaLbLc<(n(>))", "[a]bc"},
      {"no anchor is saved too", "LaLb(<)", "ab"},
      {"a pop too many does no harm", "LaLb<))(n)", "ab"},
      {"last leaves no anchor", "La<nLbn", "ab"},
      {"first", "Fa<FbFc", "cb[a]"},
      {"at the anchor, empty list", "Aa", "[a]"},
      {"at the anchor, in the middle", "LaLb<AcAd?", "cb ac[d]b"},
      {"at the anchor, at the end", "La<AbLc", "a[b]c"},
      {"at no anchor", "LaLbAc", "ab[c]"},
      {"delete all", "LaLb<0Lc", "c -ab"},
  };
  for (const auto& row : cases) EXPECT_EQ(run(row.input), row.expected) << row.name;
}

TEST(ArenaTest, GivesBlocksOfAnySizeAnewAfterEachClear) {
  Arena arena;
  for (int round = 0; round < 3; ++round) {
    std::vector<std::span<unsigned char>> blocks;
    for (std::size_t size = 1; size < 5'000'000; size += size / 3 + 1) {
      auto* block = static_cast<unsigned char*>(arena.take(size));
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(void*), 0u);
      std::fill(block, block + size, static_cast<unsigned char>(size));
      blocks.emplace_back(block, size);
    }
    for (const auto& block : blocks) {  // none lies over another
      EXPECT_EQ(std::ranges::count(block, static_cast<unsigned char>(block.size())),
                static_cast<std::ptrdiff_t>(block.size()));
    }
    arena.clear();
  }
}

TEST(StackTest, GivesBackInReverseAndZeroWhenEmpty) {
  Stack<int> stack;
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(stack.pop(), 0);
    for (int i = 1; i <= 1000; ++i) stack.push(i);
    EXPECT_EQ(stack.getDepth(), 1000);
    EXPECT_GE(stack.getCapacity(), 1000);
    for (int i = 1000; i > 0; --i) ASSERT_EQ(stack.pop(), i);
    stack.push(7);
    stack.reset();
  }
}

TEST(ListTest, OwnsItsItemsAndWalksThem) {
  deleted.clear();
  {
    List<Item> list;
    EXPECT_EQ(list.getFirst(), nullptr);
    for (const char name : {'a', 'b', 'c'}) list.addItemLast(new Item(name));
    EXPECT_EQ(list.getNext(), nullptr);
    EXPECT_EQ(list.getFirst()->name, 'a');
    EXPECT_EQ(list.getNext()->name, 'b');
    EXPECT_EQ(list.getNext()->name, 'c');
    EXPECT_EQ(list.getNext(), nullptr);
    EXPECT_EQ(list.getNext(), nullptr);
  }
  EXPECT_EQ(deleted, "abc");
}

}  // namespace
