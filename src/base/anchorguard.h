// Saves the anchor of a list and restores it at the end of the scope.
#ifndef QORN_BASE_ANCHORGUARD_H
#define QORN_BASE_ANCHORGUARD_H

#include "base/oldlist.h"

template <typename Item>
class AnchorGuard {
 public:
  explicit AnchorGuard(OldList<Item>& guarded) : list(guarded) { list.pushAnchor(); }
  AnchorGuard(const AnchorGuard&) = delete;
  AnchorGuard& operator=(const AnchorGuard&) = delete;
  ~AnchorGuard() { list.popAnchor(); }

 private:
  OldList<Item>& list;
};

#endif
