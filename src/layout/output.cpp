// Writing the finished list. For each token the two switches of the pragma comments choose between
// the formatted and the raw text; runs of blanks may become tabs. The old file stays under its
// backup name, and the list is complete before that file is touched.
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/columns.h"
#include "base/shortcopy.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int shortestTabRun = 4;  // fewer blanks are never turned into tabs

/** The text on its way to a stream, gathered into large pieces. Once a write has failed, the
   system's error number is kept and nothing more is written. */
class OutputBuffer {
 public:
  explicit OutputBuffer(FILE* target) : stream(target) {}
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  void write(std::string_view text) {
    if (text.size() > sizeof(buffer) - used) {
      flush();
      if (text.size() > sizeof(buffer)) {
        put(text);
        return;
      }
    }
    if (text.size() <= shortCopyMax) {
      copyShort(buffer + used, text.data(), text.size());
    } else {
      std::memcpy(buffer + used, text.data(), text.size());
    }
    used += text.size();
  }
  void flush() {
    put({buffer, used});
    used = 0;
  }
  int getError() const { return error; }

 private:
  void put(std::string_view text) {
    if (error != 0 || text.empty()) return;
    if (std::fwrite(text.data(), 1, text.size(), stream) < text.size()) error = errno;
  }

  FILE* stream;
  int error = 0;
  std::size_t used = 0;
  char buffer[65536];
};

}  // namespace

void VhdlScanner::Print(FILE* stream) {
  outFile = stream == nullptr ? OpenOutfile() : stdout;
  if (outFile == nullptr) return;
  OutputBuffer output(outFile);
  int formatting = 1;
  int layout = 1;
  long long column = 0;  // of the output, in bytes before blanks turn into tabs
  tokenList.getFirst();
  while (const VhdlToken* token = stepForward()) {
    const int typ = token->getTyp();
    if (isPragma(typ)) {  // is itself printed under its new setting
      if (typ == T_FORMAT_ON || typ == T_FORMAT_OFF) formatting = typ == T_FORMAT_ON ? 1 : 0;
      if (typ == T_INDENT_ON || typ == T_INDENT_OFF) layout = typ == T_INDENT_ON ? 1 : 0;
    }
    const std::string_view text = token->getCaseText(formatting, layout);
    if (typ == T_NEWLINE) {
      if (text.empty()) continue;
      output.write("\n");
      column = 0;
    } else {
      output.write(tabify == 0 ? text : tabified(typ, heldInRange(column), text));
      column += static_cast<long long>(text.size());
    }
  }
  output.flush();
  CloseOutfile(output.getError());
}

FILE* VhdlScanner::OpenOutfile() {
  if (keepBackupFile == 1) {
    DynString backup(fileName);
    backup.cat(backupFileExtension);
    if (std::rename(fileName.get(), backup.get()) != 0) {
      std::perror("Error! qorn");
      return nullptr;
    }
  }
  FILE* file = std::fopen(fileName.get(), "w");
  if (file == nullptr) {
    std::perror("Error! qorn");
    return nullptr;
  }
  std::setvbuf(file, nullptr, _IONBF, 0);  // the text comes in large pieces
  return file;
}

void VhdlScanner::CloseOutfile(int writeError) {
  const int result = outFile == stdout ? std::fflush(outFile) : std::fclose(outFile);
  outFile = nullptr;
  if (writeError != 0) errno = writeError;
  if (writeError != 0 || result != 0) std::perror("Error! qorn");
}

std::string_view VhdlScanner::tabified(int typ, int start, std::string_view text) {
  if (typ == T_WHITESPACE) return TabifyWhitespace(start, text);
  return typ == T_COMMENT ? Tabify(start, text) : text;
}

std::string_view VhdlScanner::Tabify(int start, std::string_view text) {
  DynString result;
  int column = start;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find_first_not_of(' ', at), text.size());
    if (end == text.size()) break;  // blanks at the end are left out
    result.cat(TabifyWhitespace(column, text.substr(at, end - at)));
    const std::size_t next = std::min(text.find(' ', end), text.size());
    result.cat(text.substr(end, next - end));
    column = addColumns(column, static_cast<int>(next - at));
    at = next;
  }
  tabifyBuffer = std::move(result);
  return tabifyBuffer.view();
}

std::string_view VhdlScanner::TabifyWhitespace(int start, std::string_view text) {
  const int count = static_cast<int>(text.size());
  if (count < shortestTabRun) return text;
  const int distance = std::max(tabSize, 1);
  const int toFirstStop = distance - start % distance;
  const int rest = addColumns(start, count) % distance;
  if (count < toFirstStop) return text;
  tabifyBuffer.set(std::string_view());
  tabifyBuffer.catRepeated((count - toFirstStop - rest) / distance + 1, '\t');
  tabifyBuffer.catRepeated(rest, ' ');
  return tabifyBuffer.view();
}
