// Options by getopt_long; a table says what may be combined.
#include "driver/fmtoptions.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>

#include "base/system/paths.h"

const char* const fmtUsage =
    "usage: qornfmt [OPTION...] [PATH...]\n"
    "\n"
    "Formats VHDL: files in place, folders with all *.vhd, *.vhdl and *.vht in them, or\n"
    "standard input, which is what \"-\" names, to standard output. Every result is compared\n"
    "with its source before it is written: only blanks, line ends, letter case and the\n"
    "layout of comments may differ.\n"
    "\n"
    "      --check               change nothing, list what would change\n"
    "      --diff                change nothing, print what would change, for patch -p1\n"
    "      --lines A:B           only these lines of one file, from 1; may be repeated\n"
    "      --staged              what is staged for git's next commit: its changed lines\n"
    "      --changed[=REV]       lines changed since a commit (HEAD), and files unknown to git\n"
    "      --stdin-filename NAME what standard input is called, for settings and messages\n"
    "  -c, --config FILE         settings from this file alone; else from $QORNRC, or from the\n"
    "                            nearest .qornrc in the folder of a file or above\n"
    "      --settings [PATH]     print the settings that apply there, and what has no effect\n"
    "      --guess               print the settings that suit the sources as they are\n"
    "  -j, --jobs N              threads; by default one per core\n"
    "  -q, --quiet               print no summaries and no warnings\n"
    "      --force               format files with any suffix\n"
    "  -h, --help                print this text\n"
    "      --version             print the version\n"
    "\n"
    "Status: 0 nothing to do, or done; 1 --check or --diff found changes; 2 trouble.\n";

namespace {

enum Option : int {
  OPTION_CHECK = 256,
  OPTION_DIFF,
  OPTION_LINES,
  OPTION_STAGED,
  OPTION_CHANGED,
  OPTION_INPUT_NAME,
  OPTION_SETTINGS,
  OPTION_GUESS,
  OPTION_FORCE,
  OPTION_VERSION
};

// clang-format off
constexpr option longOptions[] = {
    {"check",          no_argument,       nullptr, OPTION_CHECK},
    {"diff",           no_argument,       nullptr, OPTION_DIFF},
    {"lines",          required_argument, nullptr, OPTION_LINES},
    {"staged",         no_argument,       nullptr, OPTION_STAGED},
    {"changed",        optional_argument, nullptr, OPTION_CHANGED},
    {"stdin-filename", required_argument, nullptr, OPTION_INPUT_NAME},
    {"config",         required_argument, nullptr, 'c'},
    {"settings",       no_argument,       nullptr, OPTION_SETTINGS},
    {"guess",          no_argument,       nullptr, OPTION_GUESS},
    {"jobs",           required_argument, nullptr, 'j'},
    {"quiet",          no_argument,       nullptr, 'q'},
    {"force",          no_argument,       nullptr, OPTION_FORCE},
    {"help",           no_argument,       nullptr, 'h'},
    {"version",        no_argument,       nullptr, OPTION_VERSION},
    {nullptr,          0,                 nullptr, 0},
};
// clang-format on

/** The number, if the whole text is one and it is at least 1. */
std::optional<int> positiveNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) return {};
  return number;
}

std::string readJobs(std::string_view text, unsigned& threads) {
  constexpr int mostThreads = 1024;
  const std::optional<int> number = positiveNumber(text);
  if (!number || *number > mostThreads) {
    return "-j needs a number from 1 to 1024, not \"" + std::string(text) + '"';
  }
  threads = static_cast<unsigned>(*number);
  return {};
}

std::string readOption(int letter, FmtOptions& options) {
  const std::string value = optarg == nullptr ? "" : optarg;
  switch (letter) {
    case OPTION_CHECK: options.isCheck = true; return {};
    case OPTION_DIFF: options.isDiff = true; return {};
    case OPTION_LINES:
      return options.lines.addParsed(value) ? ""
                                            : "--lines needs FIRST:LAST, counted from 1: " + value;
    case OPTION_STAGED: options.isStaged = true; return {};
    case OPTION_CHANGED:
      options.isChanged = true;
      if (optarg != nullptr) options.revision = value;
      return {};
    case OPTION_INPUT_NAME: options.inputName = withSlashes(value); return {};
    case OPTION_SETTINGS: options.isSettings = true; return {};
    case OPTION_GUESS: options.isGuess = true; return {};
    case OPTION_FORCE: options.isForced = true; return {};
    case OPTION_VERSION: options.isVersion = true; return {};
    case 'c': options.configFile = value; return value.empty() ? "-c needs the name of a file" : "";
    case 'j': return readJobs(value, options.threads);
    case 'q': options.isQuiet = true; return {};
    default: options.isHelp = true; return {};
  }
}

/** The first combination of options that makes no sense. */
std::string findContradiction(const FmtOptions& options) {
  const bool isOfGit = options.isStaged || options.isChanged;
  const bool hasInput =
      std::find(options.paths.begin(), options.paths.end(), "-") != options.paths.end();
  const bool isJudging = options.isReadOnly() || isOfGit || !options.lines.isEmpty();
  const struct {
    bool applies;
    const char* complaint;
  } rows[] = {
      {options.isStaged && options.isChanged, "--staged and --changed cannot be combined"},
      {isOfGit && !options.lines.isEmpty(),
       "--lines cannot be combined with --staged or --changed"},
      {isOfGit && hasInput, "--staged and --changed take files from git, not standard input"},
      {hasInput && options.paths.size() > 1,
       "standard input (-) can't be formatted along with files"},
      {!options.lines.isEmpty() && options.paths.size() > 1,
       "--lines needs one file, or standard input"},
      {options.isGuess &&
           (isJudging || options.isSettings || hasInput || !options.configFile.empty()),
       "--guess looks at files and prints settings"},
      {options.isSettings && isJudging, "--settings prints settings and formats nothing"},
      {options.isSettings && options.paths.size() > 1, "--settings needs one path"},
      {!options.inputName.empty() && !options.paths.empty() && !hasInput,
       "--stdin-filename is for standard input alone"},
      {options.revision.empty() || options.revision.starts_with('-'),
       "--changed needs a commit after the \"=\""},
  };
  for (const auto& row : rows) {
    if (row.applies) return row.complaint;
  }
  return {};
}

}  // namespace

bool readFmtOptions(int argc, char** argv, FmtOptions& options) {
  argv[0] = const_cast<char*>("qornfmt");  // the name that getopt complains under
  std::string complaint;
  for (;;) {
    const int letter = getopt_long(argc, argv, "c:j:qh", longOptions, nullptr);
    if (letter == -1) break;
    if (letter == '?') return false;
    if (complaint.empty()) complaint = readOption(letter, options);
  }
  for (int i = optind; i < argc; ++i) options.paths.push_back(withSlashes(argv[i]));
  if (complaint.empty()) complaint = findContradiction(options);
  if (!complaint.empty()) std::fprintf(stderr, "qornfmt: %s\n", complaint.c_str());
  return complaint.empty();
}
