// A program may stand alone, so that it brings the styles along. A test holds them against the
// files.
#include "fmt/samplestyles.h"

namespace {

constexpr SampleStyle table[] = {
    {"compact",
     "INDENTATION 2 COMMENTSTARTCOLUMN 33 INTERFACEIDENTIFIERLIST LIST ASSOCIATIONLIST LIST "
     "EXTENDCOMMENTS FALSE"},
    {"emacs",
     "INDENTATION 2 KEYWORDCASE LOWERCASE IDENTIFIERCASE ASIS ATTRIBUTECASE LOWERCASE "
     "HEXDIGITS LOWERCASE COMMENTSTARTCOLUMN 41 EXTENDCOMMENTS FALSE BACKUPFILEEXTENSION '~'"},
    {"lowercase",
     "KEYWORDCASE LOWERCASE ATTRIBUTECASE LOWERCASE IDENTIFIERCASE ASIS HEXDIGITS LOWERCASE"},
    {"neverwrap", "LINEWIDTH 9999 EXTENDCOMMENTS FALSE"},
    {"style-b", "STYLE B"},
    {"width100", "LINEWIDTH 100 COMMENTSTARTCOLUMN 61"},
    {"width120", "LINEWIDTH 120 COMMENTSTARTCOLUMN 73"},
};

}  // namespace

std::span<const SampleStyle> sampleStyles() { return table; }
