// One run of the whole pipeline over a text in memory.
#ifndef QORN_TESTS_FUZZ_PIPELINERUN_H
#define QORN_TESTS_FUZZ_PIPELINERUN_H

#include "fuzzing.h"
#include "scanner/vhdlscanner.h"

/** What the scanner prints for the text; its list stays for inspection. */
inline std::string formatted(VhdlScanner& scanner, std::string_view text) {
  class Collector : public TextSink {
   public:
    void put(std::string_view piece) override { text.append(piece); }
    std::string text;
  } collector;
  require(scanner.format(text) == 0, "formatting succeeds");
  scanner.Print(collector);
  return collector.text;
}

#endif
