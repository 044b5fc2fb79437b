// The road of one input: opening it, the passes in their order, and making ready for the next one.
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "scanner/vhdlscanner.h"
#include "tokens/tabs.h"
#include "tokens/vhdllexer.h"

VhdlScanner::VhdlScanner() = default;

VhdlScanner::~VhdlScanner() { closeInputFile(); }

int VhdlScanner::setInputFile(const char* path) {
  if (path == nullptr) {
    yyin = stdin;
    yyname = "standard input";
    return 0;
  }
  const char* extension = std::getenv("VHDLEXT");
  DynString opened(path);
  inFile = std::fopen(path, "r");
  if (inFile == nullptr) {
    opened.cat(extension == nullptr ? ".vhdl" : extension);
    inFile = std::fopen(opened.get(), "r");
  }
  if (inFile == nullptr) {
    std::fprintf(stderr, "Error! unable to open file %s\n       %s\n", path, std::strerror(errno));
    return -1;
  }
  fileName = std::move(opened);
  yyin = inFile;
  yyname = fileName.get();
  return 0;
}

void VhdlScanner::startLex() {
  yytoklist = &tokenList;
  yylex();
  closeInputFile();
}

void VhdlScanner::closeInputFile() {
  if (inFile == nullptr) return;
  std::fclose(inFile);
  inFile = nullptr;
}

int VhdlScanner::IncludeHeaders() { return 0; }

void VhdlScanner::addSentinel() {
  auto* sentinel = new VhdlToken(T_NEWLINE, 0, 0, "\n");
  sentinel->setFormatText("\n");
  tokenList.addItemFirst(sentinel);
}

int VhdlScanner::format() {
  YYsetInTabSize(oldTabsize);
  startLex();
  if (includeOption == 1 && IncludeHeaders() != 0) return -1;
  stopIndex.reset(longestInterfaceName());
  if (keepIndentation == 1) KeepIndentation();
  Format();
  LineBreak();
  return 0;
}

void VhdlScanner::Reset() {
  tokenList.deleteAllItems();
  indentStack.reset();
  ruler.reset();
  contextMark = nullptr;
  runEnds = TokenTable<const OldListRefItem*>(nullptr);
  indent = 0;
  statementClosed = 1;
  inBlockHeader = 0;
  inConfiguration = 0;
}
