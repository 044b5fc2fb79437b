// Turning the pieces of the text into keys with values.
#include "config/configlexer.h"

#include "config/configreader.h"
#include "config/configtoken.h"

namespace {

void giveValue(const ConfigPiece& piece, QornConfigToken& key) {
  if (piece.kind == PIECE_WORD) key.setValue(piece.code);
  if (piece.kind == PIECE_NUMBER) key.setInteger(piece.text);
  if (piece.kind == PIECE_STRING) key.setPath(piece.text.substr(1, piece.text.size() - 2));
}

}  // namespace

void xxlex(std::string_view text, ConfigList& xxconflist) {
  ConfigReader reader(text);
  while (!reader.atEnd()) {
    const ConfigPiece piece = reader.next();
    if (piece.kind == PIECE_KEY) {
      xxconflist.addItemLast()->setTyp(piece.code);
    } else if (auto* key = xxconflist.getLast(); key != nullptr) {
      giveValue(piece, *key);
    }
  }
}
