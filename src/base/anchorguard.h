// Looks around a list without moving its cursor: the anchor is saved at birth and restored at every
// way out of the block.
#ifndef QORN_BASE_ANCHORGUARD_H
#define QORN_BASE_ANCHORGUARD_H

#include "base/oldlist.h"

class AnchorGuard {
 public:
  explicit AnchorGuard(OldList& guarded) : list(guarded) { list.pushAnchor(); }
  AnchorGuard(const AnchorGuard&) = delete;
  AnchorGuard& operator=(const AnchorGuard&) = delete;
  ~AnchorGuard() { list.popAnchor(); }

 private:
  OldList& list;
};

#endif
