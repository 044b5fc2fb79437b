// How a file holds its text: byte order mark and line ends. Both are removed before formatting,
// which knows neither, and restored afterwards.
#ifndef QORN_FMT_TEXTFORM_H
#define QORN_FMT_TEXTFORM_H

#include <string>
#include <string_view>

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";  // of UTF-8

struct TextForm {
  bool hasMark = false;
  bool hasCarriages = false;  // lines end with CR LF
  bool isMixed = false;       // not all of them do; most of them decide on hasCarriages
};

/** Why a file's content is no text to format, with the number of the line; empty if it is one. */
struct Unreadable {
  std::string reason;
  unsigned line = 0;
};
[[nodiscard]] Unreadable findUnreadable(std::string_view content);

/** Splits the content into its form and a text with plain line ends. A carriage return within a
    line stays in the text. */
[[nodiscard]] TextForm takeOffForm(std::string_view content, std::string& text);

/** The content of a file with this text in this form. */
[[nodiscard]] std::string putBackForm(const TextForm& form, std::string text);

#endif
