// What configuration and options choose. A separate object, so that one process can format under
// several.
#ifndef QORN_SCANNER_SETTINGS_H
#define QORN_SCANNER_SETTINGS_H

#include "base/dynstring.h"
#include "tokens/casestyles.h"
#include "tokens/tokencodes.h"

/** Starts with the defaults. No value is range-checked. */
struct Settings {
  static constexpr int minimumFieldWidth = 15;  // columns; the minimum width of a trailing comment

  CaseStyles caseStyles;
  int oldTabsize = 4;                       // columns; tab distance of the input
  int tabSize = 4;                          // columns; tab distance of the output
  int indentation = 4;                      // columns
  int identLength = 20;                     // characters
  int lineWidth = 80;                       // count of columns
  int commentStartColumn = 40;              // column
  int tabify = 0;                           // any other value: blanks become tabs
  int interfaceIdentifierList = C_WRAPPED;  // all codes but C_WRAPPED act alike
  int associationList = C_WRAPPED;          // all codes but C_WRAPPED act alike
  int blockHeader = C_LIST;                 // all codes but C_WRAPPED act alike
  int vhdl = 1993;                          // edition of the language
  int extendComments = 1;
  int frameBlockComments = 0;
  int keepBackupFile = 1;
  int style = C_A;  // all codes but C_A act as C_B
  int keepIndentation = 0;
  DynString blockCommentCharacters{"-=*"};
  DynString backupFileExtension{".bak"};
};

#endif
