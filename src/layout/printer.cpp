// What is printed for a token. Up to here a run of blanks is a number.
#include "layout/printer.h"

#include "base/columns.h"

namespace {

constexpr int shortestTabRun = 4;  // fewer blanks are never turned into tabs

}  // namespace

void OutputBuffer::writeRepeated(int count, char character) {
  while (count > 0) {
    makeRoom(1);
    const int piece = std::min(count, static_cast<int>(room()));
    std::memset(end, character, static_cast<std::size_t>(piece));
    end += piece;
    count -= piece;
  }
}

void OutputBuffer::writeLong(std::string_view text, int style) {
  char before = '\0';
  while (!text.empty()) {
    makeRoom(1);
    const std::string_view piece = text.substr(0, room());
    convertCase(end, piece, style, before);
    end += piece.size();
    before = piece.back();
    text.remove_prefix(piece.size());
  }
}

void OutputBuffer::flush() {
  if (end > buffer) sink.put({buffer, static_cast<std::size_t>(end - buffer)});
  end = buffer;
}

// The switches are copied, for no compiler keeps members in registers while characters are written;
// they change at pragmas alone, which are never of blanks. Only tabs need the column.
void Printer::print(const VhdlToken* token) {
  const bool hasTabs = settings.tabify != 0;
  int shown = formatted;
  for (; token != nullptr; token = token->getNext()) {
    const int blanks = token->countBlanks(shown);
    if (blanks >= 0 && !hasTabs) {
      output.writeBlanks(blanks);
      continue;
    }
    const int typ = token->getTyp();
    if (isPragma(typ)) {
      obey(typ);
      shown = formatted;
    }
    if (hasTabs) {
      printTabified(*token, blanks);
    } else {
      output.write(token->viewText(shown), styles[typ]);
    }
  }
  output.flush();
}

/** A pragma comment is itself printed under its new setting. */
void Printer::obey(int pragma) {
  if (pragma == T_FORMAT_ON || pragma == T_FORMAT_OFF) formatting = pragma == T_FORMAT_ON ? 1 : 0;
  if (pragma == T_INDENT_ON || pragma == T_INDENT_OFF) layout = pragma == T_INDENT_ON ? 1 : 0;
  formatted = formatting & layout;
  setStyles();
}

void Printer::setStyles() {
  for (int typ = 0; typ < tokenCodeCount; ++typ) {
    styles[typ] = formatting == 1 ? settings.caseStyles.of(typ) : static_cast<int>(C_ASIS);
  }
}

void Printer::printTabified(const VhdlToken& token, int blanks) {
  if (blanks >= 0) {
    TabifyWhitespace(column, blanks);
    column = addColumns(column, blanks);
    return;
  }
  const int typ = token.getTyp();
  const std::string_view text = token.viewText(formatted);
  const int length = static_cast<int>(text.size());
  if (typ == T_COMMENT) {
    Tabify(text);
  } else if (typ == T_WHITESPACE && reachesTabStop(column, length)) {
    TabifyWhitespace(column, length);  // form feeds included
  } else {
    output.write(text, styles[typ]);
  }
  column = typ == T_NEWLINE ? 0 : addColumns(column, length);
}

void Printer::Tabify(std::string_view text) {
  int at = column;
  while (!text.empty()) {
    const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
    if (blanks == text.size()) return;  // trailing blanks are dropped
    TabifyWhitespace(at, static_cast<int>(blanks));
    const std::size_t end = std::min(text.find(' ', blanks), text.size());
    output.write(text.substr(blanks, end - blanks), C_ASIS);
    at = addColumns(at, static_cast<int>(end));
    text.remove_prefix(end);
  }
}

bool Printer::reachesTabStop(int start, int count) const {
  return count >= shortestTabRun && count >= tabDistance() - start % tabDistance();
}

void Printer::TabifyWhitespace(int start, int count) {
  if (!reachesTabStop(start, count)) {
    output.writeRepeated(count, ' ');
    return;
  }
  const int distance = tabDistance();
  const int toFirstStop = distance - start % distance;
  const int rest = addColumns(start, count) % distance;
  output.writeRepeated((count - toFirstStop - rest) / distance + 1, '\t');
  output.writeRepeated(rest, ' ');
}
