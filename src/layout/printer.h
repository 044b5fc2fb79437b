// Tokens on their way out. The two switches of the pragma comments choose between the formatted and
// the raw text of each; runs of blanks may become tabs.
#ifndef QORN_LAYOUT_PRINTER_H
#define QORN_LAYOUT_PRINTER_H

#include <algorithm>
#include <cstring>

#include "base/textsink.h"
#include "scanner/settings.h"
#include "tokens/vhdltoken.h"

/** The text on its way to a sink, gathered into large pieces. */
class OutputBuffer {
 public:
  explicit OutputBuffer(TextSink& target) : sink(target) {}
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  /** Requires: the padding of the text can be read. A text no longer than that, as most are, is
     copied and converted as one block of that size, whatever its length. */
  void write(CaseText source) {
    if (source.text.size() > caseBlock) {
      writeLong(source);
      return;
    }
    makeRoom(caseBlock);
    convertBlock(buffer + used, source.text.data(), source.style);
    used += source.text.size();
  }
  void writeRepeated(int count, char character) {
    while (count > 0) {
      makeRoom(1);
      const int piece = std::min(count, static_cast<int>(sizeof(buffer) - used));
      std::memset(buffer + used, character, static_cast<std::size_t>(piece));
      used += static_cast<std::size_t>(piece);
      count -= piece;
    }
  }
  void writeLineEnd() {
    makeRoom(1);
    buffer[used++] = '\n';
  }
  void flush() {
    if (used > 0) sink.put({buffer, used});
    used = 0;
  }

 private:
  void makeRoom(std::size_t count) {
    if (used > sizeof(buffer) - count) flush();
  }
  void writeLong(CaseText source) {
    char before = '\0';
    while (!source.text.empty()) {
      makeRoom(1);
      const std::string_view piece = source.text.substr(0, sizeof(buffer) - used);
      convertCase(buffer + used, piece, source.style, before);
      used += piece.size();
      before = piece.back();
      source.text.remove_prefix(piece.size());
    }
  }

  TextSink& sink;
  std::size_t used = 0;
  char buffer[65536];
};

/** Keeps the switches and the column from token to token. */
class Printer {
 public:
  Printer(const Settings& chosen, TextSink& sink) : settings(chosen), output(sink) { setStyles(); }

  void print(const VhdlToken& token);
  /** To be called behind the last token. */
  void flush() { output.flush(); }

 private:
  void obey(int pragma);
  void setStyles();
  void printTabified(int typ, int blanks, CaseText source);
  void Tabify(std::string_view text);
  void TabifyWhitespace(int start, int count);
  /** Is a run of that many blanks from `start` on one that becomes tabs? */
  bool reachesTabStop(int start, int count) const;

  const Settings& settings;
  OutputBuffer output;
  int formatting = 1;  // the two switches
  int layout = 1;
  int formatted = 1;               // both
  TokenTable<int> styles{C_ASIS};  // by code, so that a token needs one look
  int column = 0;                  // of the output, in bytes before blanks turn into tabs
};

#endif
