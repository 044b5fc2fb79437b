// The doubly linked list that everything works on, with its cursor, the anchor.
//
// The contract of the cursor:
// - A list has one current position, the anchor: an item or null. It starts as null.
// - getFirst, getLast, getNext and getPrev move it and return the item that it ends on. A step off
//   either end leaves it null, and from null getNext and getPrev lead nowhere.
// - setAnchor puts it on any item, or on none.
// - pushAnchor and popAnchor save and restore it, null included, nested to any depth, last in,
//   first out. A pop without a push leaves null.
// - addItemAnchor leaves it on the new item; the other insertions leave it where it was.
//
// The links are in the items, and the items in storage of the list: a step costs one instruction,
// and a list is freed as a whole.
#ifndef QORN_BASE_OLDLIST_H
#define QORN_BASE_OLDLIST_H

#include <new>
#include <type_traits>
#include <utility>

#include "base/arena.h"
#include "base/stack.h"

template <typename Item>
class OldList;

/** Base class of the items of an OldList. An item is in the list that made it, for its whole life,
    or in none. */
template <typename Item>
class OldListItem {
 public:
  OldListItem() = default;
  OldListItem(const OldListItem&) = delete;
  OldListItem& operator=(const OldListItem&) = delete;

  Item* getNext() const { return next; }
  Item* getPrev() const { return prev; }

 private:
  friend class OldList<Item>;

  Item* next = nullptr;
  Item* prev = nullptr;
};

template <typename Item>
class OldList {
 public:
  OldList() = default;
  OldList(const OldList&) = delete;
  OldList& operator=(const OldList&) = delete;
  ~OldList() { deleteAllItems(); }

  // --- Cursor ---

  Item* getFirst() { return anchor = first; }
  Item* getLast() { return anchor = last; }
  Item* getNext() { return anchor = peekNext(); }
  Item* getPrev() { return anchor = peekPrev(); }
  Item* getAnchor() const { return anchor; }
  /** Puts the anchor on an item of this list, or on none. */
  void setAnchor(Item* item) { anchor = item; }
  void pushAnchor() { anchorStack.push(anchor); }
  void popAnchor() { anchor = anchorStack.pop(); }
  /** Anchors saved and not yet restored. */
  int countPushedAnchors() const { return anchorStack.getDepth(); }
  /** The items beside the anchor, or null; the anchor stays. */
  Item* peekNext() const { return anchor == nullptr ? nullptr : anchor->next; }
  Item* peekPrev() const { return anchor == nullptr ? nullptr : anchor->prev; }

  // --- Insertion: makes an item, which the list owns, from the arguments. Returns the item ---

  template <typename... Arguments>
  Item* addItemLast(Arguments&&... arguments) {
    return insert(last, nullptr, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  Item* addItemBefore(Item& place, Arguments&&... arguments) {
    return insert(place.prev, &place, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  Item* addItemAfter(Item& place, Arguments&&... arguments) {
    return insert(&place, place.next, std::forward<Arguments>(arguments)...);
  }
  template <typename... Arguments>
  Item* addItemFirst(Arguments&&... arguments) {
    return insert(nullptr, first, std::forward<Arguments>(arguments)...);
  }
  /** Directly after the anchor; at the end without an anchor. */
  template <typename... Arguments>
  Item* addItemAnchor(Arguments&&... arguments) {
    Item* before = anchor == nullptr ? last : anchor;
    return anchor = insert(before, peekNext(), std::forward<Arguments>(arguments)...);
  }

  /** Leaves an empty list without an anchor. */
  void deleteAllItems() {
    if constexpr (!std::is_trivially_destructible_v<Item>) {
      for (Item* item = first; item != nullptr;) std::exchange(item, item->next)->~Item();
    }
    first = last = anchor = nullptr;
    arena.clear();
  }
  /** Storage that lives as long as the items now in the list. */
  Arena& getArena() { return arena; }

 private:
  template <typename... Arguments>
  Item* insert(Item* before, Item* after, Arguments&&... arguments) {
    Item* item = ::new (arena.take(sizeof(Item))) Item(std::forward<Arguments>(arguments)...);
    item->prev = before;
    item->next = after;
    (before == nullptr ? first : before->next) = item;
    (after == nullptr ? last : after->prev) = item;
    return item;
  }

  Item* first = nullptr;
  Item* anchor = nullptr;
  Item* last = nullptr;
  Stack<Item*> anchorStack;
  Arena arena;
};

#endif
