// Times the hot paths one by one: reading, the whole formatting pass, wrapping and writing. The
// input is the examples, repeated; the argument is its size in bytes. A pass changes its list, so
// each iteration has a fresh one, and only the pass named is timed.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "scannerprobe.h"
#include "tokens/vhdllexer.h"

namespace {

std::string examples(std::size_t size) {
  std::string once;
  for (const auto& entry : std::filesystem::directory_iterator(QORN_EXAMPLES)) {
    if (entry.path().extension() != ".vhd") continue;
    std::ifstream file(entry.path());
    once.append(std::istreambuf_iterator<char>(file), {});
  }
  std::string text;
  while (!once.empty() && text.size() < size) text += once;
  return text;
}

/** A table of calls on one line: the statement that asks most of wrapping. */
std::string longLine(std::size_t size) {
  std::string text = "constant c : table := (";
  while (text.size() < size) text += "to_unsigned(1, 16), ";
  return text + "others => x);\n";
}

/** A text in a file without a name, read from its beginning as often as wanted. */
class Source {
 public:
  explicit Source(std::string_view text) : size(text.size()), stream(std::tmpfile()) {
    if (stream == nullptr || std::fwrite(text.data(), 1, size, stream) != size) std::abort();
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source() { std::fclose(stream); }

  FILE* rewound() const {
    std::rewind(stream);
    return stream;
  }
  void countBytes(benchmark::State& state) const {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
  }

 private:
  std::size_t size;
  FILE* stream;
};

/** Standard output goes nowhere while this lives; the results are printed to it afterwards. */
class SilentOutput {
 public:
  SilentOutput() : saved(dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
  }
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;
  ~SilentOutput() {
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
  }

 private:
  int saved;
};

enum Stage { LEXED, LAID_OUT, WRAPPED };

/** Brings the scanner's list, which is empty, to that stage. */
void prepare(ScannerProbe& scanner, const Source& source, Stage stage) {
  yyin = source.rewound();
  yytoklist = &scanner.list();
  yylex();
  if (stage >= LAID_OUT) scanner.Format();
  if (stage >= WRAPPED) scanner.LineBreak();
}

/** Times `pass` on lists at that stage. */
template <typename Pass>
void timePass(benchmark::State& state, const Source& source, Stage stage, Pass pass) {
  ScannerProbe scanner;
  for (auto _ : state) {
    state.PauseTiming();
    scanner.Reset();
    prepare(scanner, source, stage);
    state.ResumeTiming();
    pass(scanner);
  }
  source.countBytes(state);
}

std::size_t bytesOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void Lexer(benchmark::State& state) {
  const Source source(examples(bytesOf(state)));
  ScannerProbe scanner;
  for (auto _ : state) {
    prepare(scanner, source, LEXED);
    state.PauseTiming();
    scanner.Reset();
    state.ResumeTiming();
  }
  source.countBytes(state);
}

void Format(benchmark::State& state) {
  const Source source(examples(bytesOf(state)));
  timePass(state, source, LEXED, [](ScannerProbe& scanner) { scanner.Format(); });
}

void Wrap(benchmark::State& state) {
  const Source source(examples(bytesOf(state)));
  timePass(state, source, LAID_OUT, [](ScannerProbe& scanner) { scanner.LineBreak(); });
}

void WrapLongLine(benchmark::State& state) {
  const Source source(longLine(bytesOf(state)));
  timePass(state, source, LAID_OUT, [](ScannerProbe& scanner) { scanner.LineBreak(); });
}

void Write(benchmark::State& state) {
  const Source source(examples(bytesOf(state)));
  const SilentOutput silence;
  timePass(state, source, WRAPPED, [](ScannerProbe& scanner) { scanner.Print(stdout); });
}

constexpr int smallest = 1 << 16;
constexpr int largest = 1 << 22;

BENCHMARK(Lexer)->RangeMultiplier(8)->Range(smallest, largest);
BENCHMARK(Format)->RangeMultiplier(8)->Range(smallest, largest);
BENCHMARK(Wrap)->RangeMultiplier(8)->Range(smallest, largest);
BENCHMARK(WrapLongLine)->RangeMultiplier(8)->Range(smallest, largest);
BENCHMARK(Write)->RangeMultiplier(8)->Range(smallest, largest);

}  // namespace

BENCHMARK_MAIN();
