// Printing tokens. The two switches of the pragma comments choose between the formatted and the raw
// text of each; runs of blanks may become tabs.
#ifndef QORN_LAYOUT_PRINTER_H
#define QORN_LAYOUT_PRINTER_H

#include <algorithm>
#include <cstring>
#include <iterator>

#include "base/textsink.h"
#include "scanner/settings.h"
#include "tokens/vhdltoken.h"

/** Gathers the text for a sink into large pieces. */
class OutputBuffer {
 public:
  explicit OutputBuffer(TextSink& target) : sink(target) {}
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  /** Writes a text in a case style. Requires: its padding can be read. */
  void write(std::string_view text, int style) {
    if (text.size() > caseBlock) {
      writeLong(text, style);
      return;
    }
    makeRoom(caseBlock);
    convertBlock(end, text.data(), style);
    end += text.size();
  }
  void writeBlanks(int count) {
    if (count > static_cast<int>(caseBlock)) {
      writeRepeated(count, ' ');
      return;
    }
    makeRoom(caseBlock);
    std::memset(end, ' ', caseBlock);
    end += count;
  }
  void writeRepeated(int count, char character);
  void flush();

 private:
  std::size_t room() const { return static_cast<std::size_t>(std::end(buffer) - end); }
  void makeRoom(std::size_t count) {
    if (end > std::end(buffer) - count) [[unlikely]]
      flush();
  }
  void writeLong(std::string_view text, int style);

  TextSink& sink;
  char* end = buffer;  // of the text gathered
  char buffer[65536];
};

/** Prints one list. */
class Printer {
 public:
  Printer(const Settings& chosen, TextSink& sink) : settings(chosen), output(sink) { setStyles(); }

  /** Prints the tokens from one on. */
  void print(const VhdlToken* token);

 private:
  void obey(int pragma);
  void setStyles();
  void printTabified(const VhdlToken& token, int blanks);
  void Tabify(std::string_view text);
  void TabifyWhitespace(int start, int count);
  int tabDistance() const { return std::max(settings.tabSize, 1); }
  /** Does a run of that many blanks from `start` on become tabs? */
  bool reachesTabStop(int start, int count) const;

  const Settings& settings;
  OutputBuffer output;
  int formatting = 1;  // the two switches
  int layout = 1;
  int formatted = 1;               // both
  TokenTable<int> styles{C_ASIS};  // by code, so that a token needs one look-up
  int column = 0;                  // of the output, in bytes, before blanks turn into tabs
};

#endif
