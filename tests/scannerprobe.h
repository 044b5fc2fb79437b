// The unit tests' view into the scanner: its settings, its list and its primitives.
#ifndef QORN_TESTS_SCANNERPROBE_H
#define QORN_TESTS_SCANNERPROBE_H

#include "scanner/vhdlscanner.h"

class ScannerProbe : public VhdlScanner {
 public:
  static OldList& configList(VhdlScanner& scanner) { return scanner.configList; }
  static OldList& tokenList(VhdlScanner& scanner) { return scanner.tokenList; }

  struct Number {
    const char* name;
    int VhdlScanner::*member;
  };
  /** What configuration and options set. */
  static constexpr Number numbers[] = {
      {"associationList", &VhdlScanner::associationList},
      {"commentColumn", &VhdlScanner::commentColumn},
      {"commentStartColumn", &VhdlScanner::commentStartColumn},
      {"extendComments", &VhdlScanner::extendComments},
      {"frameBlockComments", &VhdlScanner::frameBlockComments},
      {"identLength", &VhdlScanner::identLength},
      {"indentation", &VhdlScanner::indentation},
      {"interfaceIdentifierList", &VhdlScanner::interfaceIdentifierList},
      {"keepBackupFile", &VhdlScanner::keepBackupFile},
      {"lineWidth", &VhdlScanner::lineWidth},
      {"minimumFieldWidth", &VhdlScanner::minimumFieldWidth},
      {"oldTabsize", &VhdlScanner::oldTabsize},
      {"style", &VhdlScanner::style},
      {"tabSize", &VhdlScanner::tabSize},
      {"tabify", &VhdlScanner::tabify},
  };
  static const char* backupFileExtension(VhdlScanner& scanner) {
    return scanner.backupFileExtension;
  }
  static const char* blockCommentCharacters(VhdlScanner& scanner) {
    return scanner.blockCommentCharacters;
  }
};

#endif
