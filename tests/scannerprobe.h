// The tests' and the benchmark's view into the scanner: its list, and the reading without passes.
#ifndef QORN_TESTS_SCANNERPROBE_H
#define QORN_TESTS_SCANNERPROBE_H

#include "scanner/vhdlscanner.h"

class ScannerProbe : public VhdlScanner {
 public:
  static TokenList& tokenList(VhdlScanner& scanner) { return scanner.tokenList; }
  TokenList& list() { return tokenList(*this); }
  using VhdlScanner::readInput;
  using VhdlScanner::startLex;
};

#endif
