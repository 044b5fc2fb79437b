// The string without a text, which is what sets it apart from an ordinary one.
#include "base/dynstring.h"

#include <gtest/gtest.h>

namespace {

TEST(DynStringTest, ReadsAsTheEmptyTextWithoutACharacter) {
  DynString string("some text");
  string.set(static_cast<const char*>(nullptr));
  string.cat(static_cast<const char*>(nullptr));
  string.cat('\0');
  string.catRepeated(-3, 'x');
  string.catRepeated(3, '\0');
  EXPECT_STREQ(string.get(), "");
  EXPECT_EQ(string.length(), 0);
  string.catl(-12);
  string.set(string.view().substr(1));
  string.cat(string.view());
  EXPECT_STREQ(string.get(), "1212");
}

}  // namespace
