// One run of the whole pipeline over a text in memory, by way of the standard streams.
#ifndef QORN_TESTS_FUZZ_PIPELINERUN_H
#define QORN_TESTS_FUZZ_PIPELINERUN_H

#include "fuzzing.h"
#include "scanner/vhdlscanner.h"

/** What the scanner prints for the text; its list stays for inspection. */
inline std::string formatted(VhdlScanner& scanner, std::string_view text) {
  FILE* const realInput = stdin;
  FILE* const realOutput = stdout;
  char* printed = nullptr;
  std::size_t length = 0;
  {
    const TextStream stream(text);
    stdin = stream.get();
    const int result = scanner.setInputFile(nullptr) != 0 ? -1 : scanner.format();
    stdin = realInput;
    require(result == 0, "formatting succeeds");
  }
  stdout = open_memstream(&printed, &length);
  scanner.Print(stdout);
  std::fclose(stdout);
  stdout = realOutput;
  std::string output(printed, length);
  std::free(printed);
  return output;
}

#endif
