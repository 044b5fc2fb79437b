// A plain owning list with a cursor, for the few objects that a run declares once. There is no
// reference counting: an item belongs to the list from addItemLast on.
#ifndef QORN_BASE_LIST_H
#define QORN_BASE_LIST_H

template <typename T>
struct ListRefItem {
  T* item = nullptr;
  ListRefItem* next = nullptr;
};

template <typename T>
class List {
 public:
  List() = default;
  List(const List&) = delete;
  List& operator=(const List&) = delete;

  virtual ~List() {
    while (first != nullptr) {
      ListRefItem<T>* node = first;
      first = node->next;
      delete node->item;
      delete node;
    }
  }

  /** Appends an item from the heap and takes ownership. The anchor stays. */
  void addItemLast(T* item) {
    auto* node = new ListRefItem<T>{item};
    (last == nullptr ? first : last->next) = node;
    last = node;
  }

  /** The first item, or null. Moves the anchor there. */
  T* getFirst() {
    anchor = first;
    return anchor == nullptr ? nullptr : anchor->item;
  }

  /** The item after the anchor, or null at the end or without an anchor. Moves the anchor. */
  T* getNext() {
    if (anchor != nullptr) anchor = anchor->next;
    return anchor == nullptr ? nullptr : anchor->item;
  }

 private:
  ListRefItem<T>* first = nullptr;
  ListRefItem<T>* anchor = nullptr;
  ListRefItem<T>* last = nullptr;
};

#endif
