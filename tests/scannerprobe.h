// The unit tests' view into the scanner: its settings, its list and its primitives.
#ifndef QORN_TESTS_SCANNERPROBE_H
#define QORN_TESTS_SCANNERPROBE_H

#include "scanner/vhdlscanner.h"

class ScannerProbe : public VhdlScanner {
 public:
  static OldList& configList(VhdlScanner& scanner) { return scanner.configList; }
  static OldList& tokenList(VhdlScanner& scanner) { return scanner.tokenList; }
};

#endif
