// Guessing the configuration of sources: what was formatted under one is found to need no change.
#include "fmt/guess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "config/settings.h"
#include "fmt/formattext.h"
#include "fmt/samplestyles.h"
#include "fmt/settingcheck.h"

namespace {

namespace fs = std::filesystem;

const fs::path examples = QORN_SOURCE_DIR "/examples";

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/** The examples as these settings lay them out. */
std::vector<std::string> textsIn(std::string_view configuration) {
  std::vector<std::string> texts;
  for (const char* name : {"traffic_light.vhd", "uart_tx.vhd"}) {
    const Settings settings = makeSettings({&configuration, 1});
    texts.push_back(formatUntilSettled(readFile(examples / name), settings).text);
  }
  return texts;
}

TEST(GuessTest, FindsTheStyleOfFormattedTexts) {
  for (const char* configuration :
       {"KEYWORDCASE lower ATTRIBUTECASE lower INDENTATION 2 LINEWIDTH 120",
        "STYLE B INDENTATION 3 IDENTIFIERCASE upper COMMENTSTARTCOLUMN 61 EXTENDCOMMENTS FALSE",
        "TABIFY TRUE TABSIZE 8 INDENTATION 8 LINEWIDTH 100 ASSOCIATIONLIST LIST"}) {
    SCOPED_TRACE(configuration);
    const std::vector<std::string> texts = textsIn(configuration);
    const Guess guess = guessSettings(texts, texts.size(), 2);
    EXPECT_NE(guess.text.find("0.0 % with these settings"), std::string::npos) << guess.text;
    const std::vector<ConfigText> files{{"guess", guess.text}};
    EXPECT_TRUE(checkSettings(files).complaints.empty());
  }
}

TEST(GuessTest, SaysWhyAndWhatItCosts) {
  const std::vector<std::string> texts{
      "entity e is\nport (a : in bit; B : out bit);\nend e;\n"
      "architecture r of e is\nbegin\n   p : process (a)\n   begin\n      if a = '1' then\n"
      "         b <= 16#FF#;\n      end if;\n   end process;\nend r;\n" +
      std::string(90, '\n')};
  EXPECT_EQ(guessSettings(texts, 1, 1).text,
            "# Guessed by qornfmt from 1 file.\n\n"
            "KEYWORDCASE             LOWERCASE   # 100.0 % of reserved words are in lower case\n"
            "HEXDIGITS               UPPERCASE   # 100.0 % of literals with letters are in upper "
            "case\n"
            "INDENTATION             3           # 4.9 % more of the lines would change with 4\n\n"
            "# Lines that would change: 2.0 % with these settings, 12 % with the defaults.\n"
            "# Sample styles: compact 12 %, emacs 6.9 %, lowercase 6.9 %, modern 6.9 %, "
            "neverwrap 12 %, style-b 12 %, width100 12 %, width120 12 %.\n");
}

TEST(GuessTest, ThreadsMakeNoDifference) {
  const std::vector<std::string> texts(3, "entity e is end;\nEntity f is\nend f;\n");
  EXPECT_EQ(guessSettings(texts, 3, 1).text, guessSettings(texts, 3, 3).text);
}

TEST(GuessTest, SamplesAreSpreadAndBounded) {
  EXPECT_EQ(drawSample({}), std::vector<std::size_t>());
  EXPECT_EQ(drawSample({10, 0, 99}), (std::vector<std::size_t>{0, 1, 2}));
  const std::vector<std::size_t> places = drawSample(std::vector<std::size_t>(100'000, 50'000));
  EXPECT_LE(places.size(), 100U);
  EXPECT_GT(places.back(), 90'000U);
}

TEST(GuessTest, SampleStylesAreThoseOfTheExamples) {
  std::size_t files = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(examples / "styles")) {
    files += entry.path().extension() == ".qornrc" && entry.path().stem() != "defaults" ? 1U : 0U;
  }
  EXPECT_EQ(sampleStyles().size(), files);
  for (const SampleStyle& style : sampleStyles()) {
    const std::string name = std::string(style.name) + ".qornrc";
    const std::vector<ConfigText> file{{"", readFile(examples / "styles" / name)}};
    const std::string_view text = file[0].text;
    const auto origins = checkSettings(file).origins;
    EXPECT_EQ(settingsText(makeSettings({&style.configuration, 1}), origins),
              settingsText(makeSettings({&text, 1}), origins))
        << name;
  }
}

}  // namespace
