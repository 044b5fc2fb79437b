// The values of a key: taken once, passed on to settings.
#include "config/configtoken.h"

#include "base/number.h"
#include "tokens/tokencodes.h"

bool QornConfigToken::takesValue() {
  if (hasValue == 1) return false;
  hasValue = 1;
  return true;
}

void QornConfigToken::setValue(int word) {
  if (takesValue()) value = word;
}

void QornConfigToken::setInteger(std::string_view digits) {
  if (takesValue()) integer = integerAt(DynString(digits).get());
}

void QornConfigToken::setPath(std::string_view text) {
  if (takesValue()) path.set(text);
}

void QornConfigToken::setCaseType(int* target) const {
  if (hasValue == 1) *target = value;
}

void QornConfigToken::setIntegerVariable(int* target) const {
  if (hasValue == 1) *target = integer;
}

void QornConfigToken::setTrueFalse(int* target) const {
  if (hasValue == 1) *target = value == C_TRUE ? 1 : 0;
}

void QornConfigToken::setString(DynString* target) const {
  if (hasValue == 1) *target = path;
}
