// Runs a fuzz target over files and folders without a fuzzer: the texts as they are, cut off at
// places spread over them, under each of eight headers, and as rubbish made of their pieces.
//
//   replay_TARGET FILE|FOLDER...
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzzing.h"

namespace {

constexpr std::size_t cuts = 32;
constexpr int rounds = 8;  // of rubbish for each text

int texts = 0;

void run(std::string_view text) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

enum Class { BLANK, NAME, MARK };

Class classOf(char letter) {
  if (std::string_view(" \t\n\r").find(letter) != std::string_view::npos) return BLANK;
  return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_' ? NAME : MARK;
}

/** Words, runs of marks and runs of blanks. */
std::vector<std::string_view> piecesOf(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (std::size_t at = 1; at <= text.size(); ++at) {
    if (at < text.size() && classOf(text[at]) == classOf(text[at - 1])) continue;
    pieces.push_back(text.substr(start, at - start));
    start = at;
  }
  return pieces;
}

/** Pieces in any order, with any bytes between some of them, without a header or under any. */
void runRubbish(std::string_view source) {
  const std::vector<std::string_view> pieces = piecesOf(source);
  std::mt19937 random(static_cast<unsigned>(source.size()));
  for (int round = 0; round < rounds && !pieces.empty(); ++round) {
    std::string text(round % 2 == 0 ? "" : "#");
    while (text.size() % 10 != 0) text += static_cast<char>(random());
    for (auto count = random() % 400; count > 0; --count) {
      if (random() % 64 == 0) text += static_cast<char>(random());
      text += pieces[random() % pieces.size()];
    }
    run(text);
  }
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
  runRubbish(text);
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
