// A growable stack of plain values. Popping an empty one is not an error: it yields a zero value,
// which is why surplus closing words in a source end up at the left margin.
#ifndef QORN_BASE_STACK_H
#define QORN_BASE_STACK_H

#include <algorithm>

template <typename T>
class Stack {
 public:
  Stack() = default;
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;
  virtual ~Stack() { delete[] array; }

  void push(T value) {
    if (depth >= capacity) grow();
    array[depth++] = value;
  }

  /** The value pushed last, or 0 (null) from an empty stack. The storage never shrinks. */
  T pop() { return depth == 0 ? T{} : array[--depth]; }

  /** Frees all entries and the storage. */
  void reset() {
    delete[] array;
    array = nullptr;
    depth = 0;
    capacity = 0;
  }

  int getDepth() const { return depth; }
  int getCapacity() const { return capacity; }

 private:
  static constexpr int firstStep = 16;

  void grow() {
    const int wider = std::max(firstStep, 2 * capacity);
    T* copy = new T[static_cast<unsigned>(wider)];
    std::copy(array, array + depth, copy);
    delete[] array;
    array = copy;
    capacity = wider;
  }

  int depth = 0;     // entries in use
  int capacity = 0;  // entries allocated
  T* array = nullptr;
};

#endif
