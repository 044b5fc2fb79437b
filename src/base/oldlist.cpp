// Insertion and removal of the list with the anchor. No step recurses, however long the list.
#include "base/oldlist.h"

#include <cstdint>
#include <cstdio>
#include <functional>

int OldListItem::Compare(const OldListItem* other) const {
  if (other == this) return 0;
  return std::less<>{}(this, other) ? 1 : -1;
}

void OldListItem::view8() const {
  std::printf("%08llX", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(this)));
}

void OldList::addItemFirst(OldListItem* item) {
  OldListRefItem* node = OldListRefItem::create(item);
  node->setNext(first);
  if (first == nullptr) {
    last = node;
  } else {
    first->setPrev(node);
  }
  first = node;
}

void OldList::addItemAnchor(OldListItem* item) {
  if (anchor == nullptr || anchor == last) {
    addItemLast(item);
    anchor = last;
    return;
  }
  OldListRefItem* node = OldListRefItem::create(item);
  OldListRefItem* behind = anchor->getNext();
  node->setPrev(anchor);
  node->setNext(behind);
  anchor->setNext(node);
  behind->setPrev(node);
  anchor = node;
}

void OldList::deleteAllItems() {
  while (first != nullptr) {
    OldListRefItem* node = first;
    first = node->getNext();
    OldListRefItem::destroy(node);
  }
  anchor = nullptr;
  last = nullptr;
}

void OldList::deleteItem(const OldListItem* item) {
  OldListRefItem* node = findRefItem(item);
  if (node == nullptr) return;
  if (node == anchor) anchor = node->getPrev();
  unlink(node);
  OldListRefItem::destroy(node);
}

void OldList::removeItem(const OldListItem* item) {
  OldListRefItem* node = findRefItem(item);
  if (node == nullptr) return;
  if (node == anchor) anchor = node->getPrev();
  unlink(node);
  OldListRefItem::release(node);
}

void OldList::deleteItemAnchor() {
  if (anchor == nullptr) return;
  OldListRefItem* node = anchor;
  anchor = node->getPrev();
  unlink(node);
  OldListRefItem::destroy(node);
}

void OldList::removeItemAnchor() {
  if (anchor == nullptr) return;
  OldListRefItem* node = anchor;
  anchor = node->getPrev();
  unlink(node);
  if (anchor == nullptr) anchor = first;
  OldListRefItem::release(node);
}

OldListRefItem* OldList::findRefItem(const OldListItem* item) const {
  OldListRefItem* node = first;
  while (node != nullptr && node->getItem() != item) node = node->getNext();
  return node;
}

void OldList::unlink(OldListRefItem* node) {
  OldListRefItem* before = node->getPrev();
  OldListRefItem* behind = node->getNext();
  if (before == nullptr) {
    first = behind;
  } else {
    before->setNext(behind);
  }
  if (behind == nullptr) {
    last = before;
  } else {
    behind->setPrev(before);
  }
}
