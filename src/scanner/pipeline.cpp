// The pipeline for one input: opening it, the passes in order, and the reset for the next one.
#include <cerrno>
#include <cstring>

#include "base/system/files.h"
#include "base/system/run.h"
#include "scanner/vhdlscanner.h"
#include "tokens/vhdllexer.h"

VhdlScanner::VhdlScanner(const Settings& chosen) : settings(chosen) {
  run.commentColumn = chosen.commentStartColumn;
}

VhdlScanner::~VhdlScanner() { closeInputFile(); }

int VhdlScanner::setInputFile(const char* path) {
  if (path == nullptr) return 0;
  const std::string extension = environmentValue("VHDLEXT").value_or(".vhdl");
  DynString opened(path);
  const char* reason = openInputFile(path);
  if (reason != nullptr && !isSpecialFile(path)) {
    opened.cat(extension);
    reason = openInputFile(opened.get());
  }
  if (reason != nullptr) {
    std::fprintf(stderr, "Error! unable to open file %s\n       %s\n", path, reason);
    return -1;
  }
  fileName = std::move(opened);
  return 0;
}

const char* VhdlScanner::openInputFile(const char* path) {
  if (isSpecialFile(path)) return "Not a regular file";  // and a pipe would block the run
  inFile = openStream(path);
  if (inFile == nullptr) return std::strerror(errno);
  inputState = stateOf(inFile);  // a change from here on will be detected
  return nullptr;
}

void VhdlScanner::readInput() {
  if (inFile == nullptr) {
    sourceText.read(stdin, "standard input");
    return;
  }
  sourceText.read(inFile, fileName.get());
  closeInputFile();
}

void VhdlScanner::closeInputFile() {
  if (inFile == nullptr) return;
  std::fclose(inFile);
  inFile = nullptr;
}

void VhdlScanner::startLex() {
  run.lexState.edition = settings.vhdl;
  run.lexState.tabs.YYsetInTabSize(settings.oldTabsize);
  yylex(sourceText, run.lexState, tokenList);
}

int VhdlScanner::IncludeHeaders() { return 0; }

// A printed line end at the head of the list, so that every backward walk finds one. It is neither
// measured nor written.
void VhdlScanner::addSentinel() {
  tokenList.addItemFirst(T_NEWLINE, 0, 0, "\n")->setFormatText("\n");
}

int VhdlScanner::format() {
  readInput();
  return formatSource();
}

int VhdlScanner::format(std::string_view text) {
  sourceText.set(text);
  return formatSource();
}

int VhdlScanner::formatSource() {
  startLex();
  if (includeOption == 1 && IncludeHeaders() != 0) return -1;
  stopIndex.reset(longestInterfaceName());
  if (settings.keepIndentation == 1) KeepIndentation();
  Format();
  LineBreak();
  return 0;
}

void VhdlScanner::Reset() {
  tokenList.deleteAllItems();
  state = {};
  indentStack.reset();
  branches.clear();
  ruler.reset();
  context = {};
  runEnds = TokenTable<const VhdlToken*>(nullptr);
}
