// Reads standard input into tokens and writes them out without a pass between: what any formatting
// costs at least. bench/run counts its instructions.
#include "scannerprobe.h"

int main() {
  static ScannerProbe& scanner = *new ScannerProbe;  // goes with the process, as the program's does
  scanner.readInput();
  scanner.startLex();
  scanner.list().addItemFirst(T_NEWLINE, /*level*/ 0);  // is not written
  scanner.Print(stdout);
}
