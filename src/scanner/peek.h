// Reads ahead with getNextToken and returns. LineRuler and StopIndex follow the cursor, so the
// former forgets its line and the latter is taken back too. What was read keeps its layout, which
// the second reading gives it again.
#ifndef QORN_SCANNER_PEEK_H
#define QORN_SCANNER_PEEK_H

#include "scanner/vhdlscanner.h"

/** Restores the anchor when its lifetime ends. */
class VhdlScanner::Peek {
 public:
  explicit Peek(VhdlScanner& reader)
      : scanner(reader), guard(reader.tokenList), position(reader.stopIndex.getPosition()) {}
  Peek(const Peek&) = delete;
  Peek& operator=(const Peek&) = delete;
  ~Peek() {
    scanner.ruler.forget();
    scanner.stopIndex.goBackTo(position);
  }

 private:
  VhdlScanner& scanner;
  AnchorGuard<VhdlToken> guard;
  std::size_t position;
};

#endif
