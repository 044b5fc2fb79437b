// Reads ahead with getNextToken and returns. LineRuler and StopIndex remember the cursor's
// position, so both are reset.
#ifndef QORN_SCANNER_PEEK_H
#define QORN_SCANNER_PEEK_H

#include "scanner/vhdlscanner.h"

/** Restores the anchor when its lifetime ends. */
class VhdlScanner::Peek {
 public:
  explicit Peek(VhdlScanner& reader)
      : scanner(reader), guard(reader.tokenList), place(reader.stopIndex.getPlace()) {}
  Peek(const Peek&) = delete;
  Peek& operator=(const Peek&) = delete;
  ~Peek() {
    scanner.ruler.forget();
    scanner.stopIndex.goBackTo(place);
  }

 private:
  VhdlScanner& scanner;
  AnchorGuard<VhdlToken> guard;
  std::size_t place;
};

#endif
