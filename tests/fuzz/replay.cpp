// Runs a fuzz target over files and folders without a fuzzer: the texts as they are, cut off at
// places spread over them, and under each of eight headers.
//
//   replay_TARGET FILE|FOLDER...
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzzing.h"

namespace {

constexpr std::size_t cuts = 16;

int texts = 0;

void run(std::string_view text) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

void replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(stream)), {});
  require(!stream.bad(), "the file can be read", file.string());
  std::fprintf(stderr, "%s\n", file.c_str());
  ++texts;
  run(text);
  for (std::size_t i = 1; i < cuts; ++i)
    run(std::string_view(text).substr(0, text.size() * i / cuts));
  for (char digit = '1'; digit <= '8'; ++digit) run(std::string("#").append(9, digit).append(text));
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (!std::filesystem::is_directory(argv[i])) {
      replay(argv[i]);
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
      if (entry.is_regular_file()) replay(entry.path());
    }
  }
  require(texts > 0, "there are texts to run");
  return 0;
}
