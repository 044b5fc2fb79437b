// Work on numbered items in several threads, with results that come out in the order of the
// numbers. A thread takes the next item when it is free, so memory is that of the items in
// progress; results that wait for an earlier one are bounded too.
#ifndef QORN_FMT_INORDER_H
#define QORN_FMT_INORDER_H

#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <utility>

#include "base/threads.h"

/** `work(i)` gives a Result, in any thread; `deliver(result)` takes it, one at a time and in order,
    and returns false to have no further work begun. Work in progress is still delivered. Result has
    `weight()`, the bytes that it holds. */
template <class Result, class Work, class Deliver>
class InOrder {
 public:
  InOrder(std::size_t itemCount, Work& itemWork, Deliver& itemDeliver)
      : count(itemCount), work(itemWork), deliver(itemDeliver) {}

  /** Runs in the calling thread and as many others as `threads` adds to it, at most. */
  void run(unsigned threads) { runInThreads(threads, takePart, this); }

 private:
  static constexpr std::size_t mostHeld = std::size_t{8} << 20;  // bytes

  static void takePart(void* self) { static_cast<InOrder*>(self)->takeItems(); }

  void takeItems() {
    for (;;) {
      const std::size_t item = next();
      if (item == count) return;
      hand(item, work(item));
    }
  }

  std::size_t next() {
    const std::lock_guard lock(mutex);
    return isEnding || taken == count ? count : taken++;
  }

  void hand(std::size_t item, Result result) {
    std::unique_lock lock(mutex);
    const std::size_t weight = result.weight();
    hasRoom.wait(lock, [&] { return item == delivered || held + weight <= mostHeld; });
    waiting.emplace(item, std::move(result));
    held += weight;
    while (!waiting.empty() && waiting.begin()->first == delivered) {
      Result first = std::move(waiting.begin()->second);
      waiting.erase(waiting.begin());
      held -= first.weight();
      if (!deliver(std::move(first))) isEnding = true;
      ++delivered;
    }
    hasRoom.notify_all();
  }

  const std::size_t count;
  Work& work;
  Deliver& deliver;
  std::mutex mutex;
  std::condition_variable hasRoom;
  std::map<std::size_t, Result> waiting;
  std::size_t taken = 0;
  std::size_t delivered = 0;
  std::size_t held = 0;  // bytes
  bool isEnding = false;
};

#endif
