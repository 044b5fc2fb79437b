// The manual pages and README.md against the program: they show the options, keys, defaults and
// output that it has.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "config/settings.h"
#include "confignames.h"
#include "fmt/formattext.h"
#include "programrun.h"

namespace {

using Lines = std::vector<std::string>;

std::string textOf(const std::string& path) {
  std::ifstream stream(QORN_SOURCE_DIR + path);
  EXPECT_TRUE(stream) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

Lines linesOf(const std::string& path) {
  std::istringstream stream(textOf(path));
  Lines lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/** What the page's lines have behind this beginning, in order. */
Lines linesBehind(const Lines& lines, const std::string& beginning) {
  Lines rests;
  for (const std::string& line : lines) {
    if (line.starts_with(beginning)) rests.push_back(line.substr(beginning.size()));
  }
  return rests;
}

/** Keys with their values, as the program reads them. */
std::set<std::string> settingsIn(const std::string& text) {
  ConfigList keys;
  xxlex(text, keys);
  std::set<std::string> settings;
  for (auto* item = keys.getFirst(); item != nullptr; item = keys.getNext()) {
    settings.insert(shown(*item));
  }
  return settings;
}

TEST(ManualTest, OptionsAreThoseOfTheUsageText) {
  const std::string usage = shell(TempFolder(), "qorn -h").err;
  Lines synopsis;
  Lines items;
  const std::regex option(R"(\[-(\w+)( <(\w+)>)?\])");
  for (std::sregex_iterator found(usage.begin(), usage.end(), option), end; found != end; ++found) {
    const std::string letters = (*found)[1];
    const std::string value =
        (*found)[3].matched ? std::string(" Ar ").append((*found)[3].str()) : "";
    synopsis.push_back(letters + value);
    for (const char letter : letters) items.push_back(letter + value);
  }
  ASSERT_FALSE(items.empty()) << usage;
  EXPECT_EQ(linesBehind(linesOf("/docs/qorn.1"), ".Op Fl "), synopsis);
  EXPECT_EQ(linesBehind(linesOf("/docs/qorn.1"), ".It Fl "), items);
}

/** What the pattern's group finds in the text. */
std::set<std::string> foundIn(const std::string& text, const std::string& pattern) {
  const std::regex expression(pattern);
  std::set<std::string> all;
  std::sregex_iterator found(text.begin(), text.end(), expression);
  for (const std::sregex_iterator end; found != end; ++found) all.insert((*found)[1]);
  return all;
}

TEST(ManualTest, LongOptionsAreThoseOfTheUsageText) {
  const std::set<std::string> options =
      foundIn(shell(TempFolder(), "qornfmt --help").out, " --([a-z-]+)");
  EXPECT_TRUE(options.contains("check"));
  EXPECT_EQ(foundIn(textOf("/docs/qornfmt.1"), R"(\bFl -([a-z-]+))"), options);
}

TEST(ManualTest, WordsAreThoseOfTheTable) {
  std::set<std::string> told;
  for (const std::string& line : linesOf("/docs/qornrc.5")) {
    if (!line.starts_with(".Ic ") && !line.starts_with(".It Ic ")) continue;
    told.merge(foundIn(line, R"(\b([A-Z]+)\b)"));
  }
  std::set<std::string> forms;
#define QORN_CONFIGCODE(name, code)
#define QORN_KEY(name, form) forms.insert(form);
#define QORN_VALUE(name, form) forms.insert(form);
#include "tokens/configcodes.def"
  EXPECT_EQ(told, forms);
  const std::string document = textOf("/docs/configuration.md");
  for (const std::string& form : forms) {
    EXPECT_NE(document.find("`" + form + "`"), std::string::npos) << form;
  }
}

TEST(ManualTest, DefaultsAreThoseOfTheProgram) {
  std::string text;
  std::string key;
  bool isNext = false;
  for (const std::string& line : linesOf("/docs/qornrc.5")) {
    if (line.starts_with(".It Ic ")) key = line.substr(7, line.find(' ', 7) - 7);
    if (isNext) text += key + " " + std::regex_replace(line.substr(4), std::regex(R"(\\&)"), "");
    if (line.starts_with("Default: ")) text += key + line.substr(8);
    isNext = line == "Default:";
    text += '\n';
  }
  // A test of the settings holds the example against the program.
  EXPECT_EQ(settingsIn(text), settingsIn(textOf("/examples/qornrc")));
}

/** A block of code in a document. */
struct Block {
  std::string section;
  bool isVhdl;
  std::string text;
};

std::vector<Block> blocksOf(const std::string& path) {
  std::vector<Block> blocks;
  std::string section;
  bool isInside = false;
  for (const std::string& line : linesOf(path)) {
    const bool isFence = line.starts_with("```");
    if (isFence && !isInside) blocks.push_back({section, line == "```vhdl", ""});
    if (isFence) isInside = !isInside;
    if (!isFence && isInside) blocks.back().text += line + '\n';
    if (!isInside && line.starts_with("#")) section = line;
  }
  return blocks;
}

std::string settled(const std::string& source, const std::string& configuration) {
  const std::string_view text = configuration;
  return formatUntilSettled(source, makeSettings({&text, 1})).text;
}

TEST(ManualTest, TheReadmeShowsRealOutput) {
  const std::vector<Block> blocks = blocksOf("/README.md");
  ASSERT_GE(blocks.size(), 3U);
  EXPECT_EQ(settled(blocks[0].text, blocks[1].text), blocks[2].text);
}

// The first block is the configuration of all examples. In a section, the first block of VHDL is a
// source and the next one its layout; each further configuration has a layout after it.
TEST(ManualTest, TheLimitsAreReal) {
  const std::vector<Block> blocks = blocksOf("/docs/limits.md");
  ASSERT_GE(blocks.size(), 30U);
  std::string source;
  std::string added;
  for (std::size_t i = 1; i < blocks.size(); ++i) {
    const Block& block = blocks[i];
    const bool isNew = block.section != blocks[i - 1].section;
    if (isNew) added.clear();
    if (!block.isVhdl) {
      added += block.text;
    } else if (isNew || (source.empty() && added.empty())) {
      source = block.text;
    } else {
      EXPECT_EQ(settled(source, blocks[0].text + added), block.text) << block.section;
      const bool goesOn = i + 1 < blocks.size() && !blocks[i + 1].isVhdl;
      if (!goesOn) {
        source.clear();
        added.clear();
      }
    }
  }
}

}  // namespace
