// The list with its cursor as rows of little programs, and the plain containers beside it.
#include "base/oldlist.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "base/anchorguard.h"
#include "base/list.h"
#include "base/stack.h"

namespace {

std::string deleted;

class Item : public OldListItem {
 public:
  explicit Item(char itemName) : name(itemName) {}
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;
  ~Item() override { deleted += name; }
  const char name;
};

char nameOf(OldListItem* item) { return item == nullptr ? '.' : static_cast<Item*>(item)->name; }

/** The names in order, the anchor's in brackets: "a[b]c". The links backward have to agree. */
std::string shown(OldList& list) {
  const OldListRefItem* anchor = list.getAnchorNode();
  std::string forward;
  std::string backward;
  std::string line;
  const AnchorGuard guard(list);
  for (auto* item = list.getFirst(); item != nullptr; item = list.getNext()) {
    const std::string name(1, nameOf(item));
    line += list.getAnchorNode() == anchor ? "[" + name + "]" : name;
    forward += name;
  }
  for (auto* item = list.getLast(); item != nullptr; item = list.getPrev()) {
    backward.insert(backward.begin(), nameOf(item));
  }
  return forward == backward ? line : forward + " against " + backward;
}

/** Runs a program of steps, a capital letter behind some of them as the item: its result is the
    list, then "-" and the items deleted by then, then "+" and those that outlive the list, with
   their counts. */
std::string run(const std::string& steps) {
  std::map<char, Item*> items;
  std::string result;
  deleted.clear();
  {
    OldList list;
    const auto moved = [&](const OldListItem* item) { EXPECT_EQ(item, list.getAnchor()) << steps; };
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const std::string withItem = "LFAdr";
      Item* item = nullptr;
      const char step = steps[i];
      if (withItem.find(step) != std::string::npos) {
        Item*& known = items[steps[++i]];
        if (known == nullptr) known = new Item(steps[i]);
        item = known;
      }
      switch (step) {
        case 'L': list.addItemLast(item); break;
        case 'F': list.addItemFirst(item); break;
        case 'A': list.addItemAnchor(item); break;
        case 'd': list.deleteItem(item); break;
        case 'r': list.removeItem(item); break;
        case 'x': list.deleteItemAnchor(); break;
        case 'o': list.removeItemAnchor(); break;
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
  }
  std::string alive;
  for (const auto& [name, item] : items) {
    if (deleted.find(name) != std::string::npos) continue;
    alive += name + std::to_string(item->getRefCount());
    delete item;
  }
  return alive.empty() ? result : result + " +" + alive;
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
      {"delete at the anchor", "LaLbLc<nx", "[a]c -b"},
      {"delete the head at the anchor", "LaLb<x", "b -a"},
      {"delete at no anchor", "Lax", "a"},
      {"delete an item", "LaLbLc<nda", "[b]c -a"},
      {"delete the anchor's item", "LaLbLc>dc", "a[b] -c"},
      {"delete what is not there", "La<db", "[a] +b0"},
      {"remove at the anchor", "LaLbLc<no", "[a]c +b1"},
      {"remove the only one", "La<oo", " +a1"},
      {"remove an item", "LaLb>rbrb", "[a] +b1"},
      {"delete all", "LaLb<0Lc", "c -ab"},
      {"two nodes, one item", "LaLbLadadb", "a -b"},
      {"the last node deletes", "LaLbLa<ndada", "[b] -a"},
  };
  for (const auto& row : cases) EXPECT_EQ(run(row.input), row.expected) << row.name;
}

TEST(OldListTest, IsLetGoOfWithoutRecursion) {
  OldList list;
  for (int i = 0; i < 500'000; ++i) list.addItemLast(new OldListItem);
  list.pushAnchor();
  EXPECT_EQ(list.countPushedAnchors(), 1);
  list.deleteAllItems();
  EXPECT_EQ(list.getLast(), nullptr);
}

TEST(OldListTest, ItemsCompareByTheirPlace) {
  const OldListItem items[2];
  EXPECT_EQ(items[0].Compare(&items[1]), 1);
  EXPECT_EQ(items[1].Compare(&items[0]), -1);
  EXPECT_EQ(items[1].Compare(&items[1]), 0);
  OldListItem held;
  held.incRefCount();
  EXPECT_EQ(OldListItem(held).getRefCount(), 0);
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
