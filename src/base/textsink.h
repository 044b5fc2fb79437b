// Where printed text goes.
#ifndef QORN_BASE_TEXTSINK_H
#define QORN_BASE_TEXTSINK_H

#include <string_view>

class TextSink {
 public:
  TextSink() = default;
  TextSink(const TextSink&) = delete;
  TextSink& operator=(const TextSink&) = delete;
  virtual ~TextSink() = default;

  /** Takes the next piece; all but the last are large. */
  virtual void put(std::string_view text) = 0;
};

#endif
