// Writing the finished list. For each token the two switches of the pragma comments choose between
// the formatted and the raw text; runs of blanks may become tabs. The old file stays under its
// backup name, and the list is complete before that file is touched.
#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/columns.h"
#include "base/fatal.h"
#include "base/filereplacement.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr int shortestTabRun = 4;  // fewer blanks are never turned into tabs

/** The two switches of the pragma comments, and what they make of a token. */
class Printing {
 public:
  explicit Printing(const CaseStyles& chosen) : caseStyles(chosen) { setStyles(); }

  /** Obeys a pragma comment, which is itself printed under its new setting. */
  void obey(int pragma) {
    if (pragma == T_FORMAT_ON || pragma == T_FORMAT_OFF) formatting = pragma == T_FORMAT_ON ? 1 : 0;
    if (pragma == T_INDENT_ON || pragma == T_INDENT_OFF) layout = pragma == T_INDENT_ON ? 1 : 0;
    formatted = formatting & layout;
    setStyles();
  }
  CaseText textOf(const VhdlToken& token) const {
    return token.getCaseText(formatting, layout, caseStyles);
  }
  /** Writes textOf if it is short. Result and target as of VhdlToken::writeShort. */
  int writeShort(const VhdlToken& token, char* target) const {
    return token.writeShort(target, formatted, styles[token.getTyp()]);
  }

 private:
  void setStyles() {
    for (int typ = 0; typ < tokenCodeCount; ++typ) {
      styles[typ] = formatting == 1 ? caseStyles.of(typ) : static_cast<int>(C_ASIS);
    }
  }

  const CaseStyles& caseStyles;
  int formatting = 1;
  int layout = 1;
  int formatted = 1;
  TokenTable<int> styles{C_ASIS};  // by code, so that a token needs one look
};

/** Writes to the standard output, past its stream: nothing is left to be written when a signal ends
    the run. Once a write has failed, the error is kept and nothing more is written. */
class StandardOutput : public TextSink {
 public:
  void put(std::string_view text) override {
    if (error == 0 && writeAll(standardOutput, text) != 0) error = errno;
  }
  int getError() const { return error; }

 private:
  int error = 0;
};

/** The text on its way to a sink, gathered into large pieces. */
class OutputBuffer {
 public:
  explicit OutputBuffer(TextSink& target) : sink(target) {}
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  void write(CaseText source) {
    char before = '\0';
    while (!source.text.empty()) {
      if (used == sizeof(buffer)) flush();
      const std::string_view piece = source.text.substr(0, sizeof(buffer) - used);
      convertCase(buffer + used, piece, source.style, before);
      used += piece.size();
      before = piece.back();
      source.text.remove_prefix(piece.size());
    }
  }
  /** The text of a token; most are short and need no loop. */
  void write(const VhdlToken& token, const Printing& printing) {
    if (used > sizeof(buffer) - DynString::shortMax - 1) flush();
    const int length = printing.writeShort(token, buffer + used);
    if (length >= 0) {
      used += static_cast<std::size_t>(length);
    } else {
      write(printing.textOf(token));
    }
  }
  void flush() {
    if (used > 0) sink.put({buffer, used});
    used = 0;
  }

 private:
  TextSink& sink;
  std::size_t used = 0;
  char buffer[65536];
};

}  // namespace

void VhdlScanner::Print(FILE* stream) {
  if (settings.tabify != 0) reserveTabifyBuffer();  // from the opening on, nothing takes memory
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
  OutputBuffer output(sink);
  Printing printing(settings.caseStyles);
  long long column = 0;  // of the output, in bytes before blanks turn into tabs
  tokenList.getFirst();
  const OldListRefItem* node = tokenList.getAnchorNode();
  while (node != nullptr && (node = node->getNext()) != nullptr) {
    const VhdlToken& token = tokenAt(node);
    const int typ = token.getTyp();
    if (isPragma(typ)) printing.obey(typ);
    if (settings.tabify == 0) {  // only tabs need the column
      output.write(token, printing);
      continue;
    }
    const CaseText printed = printing.textOf(token);
    output.write({tabified(typ, heldInRange(column), printed.text), printed.style});
    const auto length = static_cast<long long>(printed.text.size());
    column = typ == T_NEWLINE && length > 0 ? 0 : column + length;
  }
  output.flush();
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

std::string_view VhdlScanner::tabified(int typ, int start, std::string_view text) {
  if (typ == T_WHITESPACE) return TabifyWhitespace(start, text);
  return typ == T_COMMENT ? Tabify(start, text) : text;
}

std::string_view VhdlScanner::Tabify(int start, std::string_view text) {
  tabifyBuffer.set(std::string_view());
  int column = start;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find_first_not_of(' ', at), text.size());
    if (end == text.size()) break;  // blanks at the end are left out
    appendTabified(column, static_cast<int>(end - at));
    const std::size_t next = std::min(text.find(' ', end), text.size());
    tabifyBuffer.cat(text.substr(end, next - end));
    column = addColumns(column, static_cast<int>(next - at));
    at = next;
  }
  return tabifyBuffer.view();
}

std::string_view VhdlScanner::TabifyWhitespace(int start, std::string_view text) {
  const int count = static_cast<int>(text.size());
  if (!reachesTabStop(start, count)) return text;  // which may hold form feeds too
  tabifyBuffer.set(std::string_view());
  appendTabified(start, count);
  return tabifyBuffer.view();
}

int VhdlScanner::tabDistance() const { return std::max(settings.tabSize, 1); }

bool VhdlScanner::reachesTabStop(int start, int count) const {
  return count >= shortestTabRun && count >= tabDistance() - start % tabDistance();
}

void VhdlScanner::appendTabified(int start, int count) {
  if (!reachesTabStop(start, count)) {
    tabifyBuffer.catRepeated(count, ' ');
    return;
  }
  const int distance = tabDistance();
  const int toFirstStop = distance - start % distance;
  const int rest = addColumns(start, count) % distance;
  tabifyBuffer.catRepeated((count - toFirstStop - rest) / distance + 1, '\t');
  tabifyBuffer.catRepeated(rest, ' ');
}

void VhdlScanner::reserveTabifyBuffer() {
  int longest = 0;
  tokenList.getFirst();
  while (const VhdlToken* token = stepForward()) {  // a shielded stretch prints the source text
    longest = std::max({longest, token->textLength(0), token->textLength(1)});
  }
  tabifyBuffer.reserve(longest);
}
