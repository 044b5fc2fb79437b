// The doubly linked list that everything works on, and its cursor, the anchor.
//
// The contract of the cursor:
// - A list has one current position, the anchor: a node or null. It starts as null.
// - getFirst, getLast, getNext and getPrev move it and return the item that it ends on. Walking off
//   either end leaves it null, and from null getNext and getPrev lead nowhere: only getFirst,
//   getLast and popAnchor bring it back.
// - pushAnchor and popAnchor save and restore it, null included, nested to any depth, last in,
//   first out. A pop without a push leaves null.
// - addItemAnchor leaves it on the new node; the other insertions leave it where it was.
#ifndef QORN_BASE_OLDLIST_H
#define QORN_BASE_OLDLIST_H

#include "base/pool.h"
#include "base/stack.h"

class OldListItem;

/** One place in a list. The last node that holds an item deletes it. Nodes come from `create` and
   go by `destroy` or `release`. */
class OldListRefItem {
 public:
  OldListRefItem(const OldListRefItem&) = delete;
  OldListRefItem& operator=(const OldListRefItem&) = delete;

  /** A node that holds the item and stands in no list yet. */
  static inline OldListRefItem* create(OldListItem* held);
  /** Ends the node, and the item if no other node holds it. */
  static inline void destroy(OldListRefItem* node);
  /** Ends the node alone: the item lives on, and counts the node still. */
  static inline void release(OldListRefItem* node);

  OldListItem* getItem() const { return item; }
  OldListRefItem* getNext() const { return next; }
  OldListRefItem* getPrev() const { return prev; }
  void setNext(OldListRefItem* node) { next = node; }
  void setPrev(OldListRefItem* node) { prev = node; }

 private:
  friend class OldListItem;

  OldListRefItem() {}
  explicit OldListRefItem(OldListItem* held) : item(held), next(nullptr), prev(nullptr) {}
  inline bool isInItem() const;

  OldListItem* item;
  OldListRefItem* next;
  OldListRefItem* prev;
};

/** Base of everything that stands in an OldList. Counts the nodes that hold it, and has room for
   the first of them, since most items stand in one list only. */
class OldListItem {
 public:
  OldListItem() = default;
  OldListItem(const OldListItem&) {}  // a copy stands in no list yet
  OldListItem& operator=(const OldListItem&) = delete;
  virtual ~OldListItem() = default;

  /** 1 if other lies at a higher address, 0 if it is this item, -1 if lower. */
  virtual int Compare(const OldListItem* other) const;
  /** Prints the item's address, for debugging. */
  virtual void view8() const;

  void incRefCount() { ++refCount; }
  void decRefCount() { --refCount; }
  int getRefCount() const { return refCount; }

 private:
  friend class OldListRefItem;

  OldListRefItem firstNode;  // in use from the first insertion on
  int refCount = 0;
};

bool OldListRefItem::isInItem() const { return this == &item->firstNode; }

OldListRefItem* OldListRefItem::create(OldListItem* held) {
  void* place = &held->firstNode;
  if (held->getRefCount() > 0) [[unlikely]]
    place = Pool<sizeof(OldListRefItem)>::take();
  held->incRefCount();
  return ::new (place) OldListRefItem(held);
}

void OldListRefItem::destroy(OldListRefItem* node) {
  OldListItem* held = node->item;
  if (!node->isInItem()) [[unlikely]]
    Pool<sizeof(OldListRefItem)>::give(node);
  held->decRefCount();
  if (held->getRefCount() < 1) delete held;
}

void OldListRefItem::release(OldListRefItem* node) {
  if (!node->isInItem()) Pool<sizeof(OldListRefItem)>::give(node);
}

class OldList {
 public:
  OldList() = default;
  OldList(const OldList&) = delete;
  OldList& operator=(const OldList&) = delete;
  virtual ~OldList() { deleteAllItems(); }

  // --- Cursor ---

  OldListItem* getFirst() { return moveTo(first); }
  OldListItem* getLast() { return moveTo(last); }
  OldListItem* getNext() { return moveTo(anchor == nullptr ? nullptr : anchor->getNext()); }
  OldListItem* getPrev() { return moveTo(anchor == nullptr ? nullptr : anchor->getPrev()); }
  OldListItem* getAnchor() const { return itemOf(anchor); }
  void pushAnchor() { anchorStack.push(anchor); }
  void popAnchor() { anchor = anchorStack.pop(); }
  /** Anchors saved and not restored. */
  int countPushedAnchors() const { return anchorStack.getDepth(); }
  /** The items beside the anchor, or null; the anchor stays. */
  OldListItem* peekNext() const { return itemOf(anchor == nullptr ? nullptr : anchor->getNext()); }
  OldListItem* peekPrev() const { return itemOf(anchor == nullptr ? nullptr : anchor->getPrev()); }
  /** The anchor's node, null without an anchor: a place to compare with or to come back to. */
  OldListRefItem* getAnchorNode() const { return anchor; }
  /** Puts the anchor on a node of this list, or on none. */
  void setAnchorNode(OldListRefItem* node) { anchor = node; }

  // --- Insertion: the list takes the item over ---

  void addItemLast(OldListItem* item);
  void addItemFirst(OldListItem* item);
  /** Directly behind the anchor; at the end without an anchor. */
  void addItemAnchor(OldListItem* item);

  // --- Removal: delete frees the item, remove spares it ---

  /** Leaves an empty list without an anchor. */
  void deleteAllItems();
  /** The first node that holds the item, if any. An anchor on it moves to the node before. */
  void deleteItem(const OldListItem* item);
  void removeItem(const OldListItem* item);
  /** The anchor's node; the anchor moves to the node before it, null at the head. */
  void deleteItemAnchor();
  /** As deleteItemAnchor, but from the head the anchor moves to the new head. */
  void removeItemAnchor();

 private:
  static OldListItem* itemOf(const OldListRefItem* node) {
    return node == nullptr ? nullptr : node->getItem();
  }
  OldListItem* moveTo(OldListRefItem* node) {
    anchor = node;
    return itemOf(node);
  }
  OldListRefItem* findRefItem(const OldListItem* item) const;
  void unlink(OldListRefItem* node);

  OldListRefItem* first = nullptr;
  OldListRefItem* anchor = nullptr;
  OldListRefItem* last = nullptr;
  Stack<OldListRefItem*> anchorStack;
};

inline void OldList::addItemLast(OldListItem* item) {
  OldListRefItem* node = OldListRefItem::create(item);
  node->setPrev(last);
  if (last == nullptr) {
    first = node;
  } else {
    last->setNext(node);
  }
  last = node;
}

#endif
