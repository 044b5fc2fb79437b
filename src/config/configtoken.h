// One key of a configuration text with the first value that followed it.
#ifndef QORN_CONFIG_CONFIGTOKEN_H
#define QORN_CONFIG_CONFIGTOKEN_H

#include <string_view>

#include "base/dynstring.h"
#include "base/oldlist.h"

/** The first value of any kind wins; later ones are dropped. A value of the wrong kind reads as 0
    or as the empty text. */
class QornConfigToken : public OldListItem<QornConfigToken> {
 public:
  void setTyp(int code) { typ = code; }
  int getTyp() const { return typ; }
  int getValue() const { return value; }
  int getInteger() const { return integer; }
  const char* getPath() const { return path.get(); }

  // --- Values ---

  void setValue(int word);
  /** A decimal number, saturating at the largest integer. */
  void setInteger(std::string_view digits);
  void setPath(std::string_view text);

  // --- Transfer to a setting, which stays as it is if the key has no value ---

  void setCaseType(int* target) const;
  void setIntegerVariable(int* target) const;
  /** 1 for C_TRUE, 0 for all else. */
  void setTrueFalse(int* target) const;
  void setString(DynString* target) const;

 private:
  /** True once, for the first value. */
  bool takesValue();

  int typ = 0;       // key
  int value = 0;     // code of a value word
  int integer = 0;   // number
  DynString path;    // quoted text
  int hasValue = 0;  // 1 from the first value on
};

using ConfigList = OldList<QornConfigToken>;

#endif
