// Writing the finished list. The old file is kept under its backup name, and the list is complete
// before that file is touched.
#include <cerrno>
#include <cstring>

#include "base/fatal.h"
#include "base/filereplacement.h"
#include "layout/printer.h"
#include "scanner/vhdlscanner.h"

namespace {

/** Writes to standard output, bypassing its stream: nothing is left to be written when a signal
    ends the run. Once a write has failed, the error is kept and nothing more is written. */
class StandardOutput : public TextSink {
 public:
  void put(std::string_view text) override {
    if (error == 0 && writeAll(standardOutput, text) != 0) error = errno;
  }
  int getError() const { return error; }

 private:
  int error = 0;
};

}  // namespace

void VhdlScanner::Print(FILE* stream) {
  if (stream != nullptr) {
    StandardOutput sink;
    Print(sink);
    if (sink.getError() != 0) reportFault("standard output", std::strerror(sink.getError()));
    return;
  }
  const bool hasBackup = settings.keepBackupFile == 1;
  FileReplacement outFile(fileName.view(), {inputState, sourceText.view()},
                          hasBackup ? settings.backupFileExtension.view() : std::string_view());
  if (OpenOutfile(outFile) != 0) return;
  Print(outFile);
  CloseOutfile(outFile);
}

void VhdlScanner::Print(TextSink& sink) {
  const VhdlToken* sentinel = tokenList.getFirst();
  Printer(settings, sink).print(sentinel == nullptr ? nullptr : sentinel->getNext());
}

int VhdlScanner::OpenOutfile(FileReplacement& outFile) const {
  const Replaced result = outFile.open();
  if (result == NOT_OPENED) {
    reportFault(outFile.reason().c_str());
  } else if (result != REPLACED) {
    reportFault(fileName.get(), outFile.reason().c_str());
  }
  return result == REPLACED ? 0 : -1;
}

void VhdlScanner::CloseOutfile(FileReplacement& outFile) const {
  if (outFile.close() != REPLACED) reportFault(fileName.get(), outFile.reason().c_str());
}
