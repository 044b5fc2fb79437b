// Reading ahead with the cursor and going back: what remembers a place is told of both.
#ifndef QORN_SCANNER_PEEK_H
#define QORN_SCANNER_PEEK_H

#include "scanner/vhdlscanner.h"

/** Takes the anchor back where it stood when its life ends. */
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
