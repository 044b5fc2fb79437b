// The companion that people run on files, folders and git's changes. Everything that it does to a
// text goes through `judgeContent`; this file decides where texts come from and how the run ends.
#include <algorithm>
#include <cstdio>
#include <new>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/fatal.h"
#include "base/readfile.h"
#include "base/system/files.h"
#include "base/system/run.h"
#include "base/system/streams.h"
#include "base/unbroken.h"
#include "driver/fmtoptions.h"
#include "driver/version.h"
#include "fmt/formatfiles.h"
#include "fmt/gittree.h"
#include "fmt/guess.h"
#include "fmt/judgement.h"
#include "fmt/runreport.h"
#include "fmt/settingsource.h"
#include "fmt/sourcepaths.h"
#include "fmt/staged.h"
#include "fmt/textform.h"

namespace {

constexpr const char* namelessInput = "<standard input>";

FmtStatus fail(const std::string& message) {
  std::fprintf(stderr, "qornfmt: %s\n", message.c_str());
  return FMT_TROUBLE;
}

/** Many at once would contend for memory, not for cores. */
unsigned threadsFor(const FmtOptions& options) {
  return options.threads > 0 ? options.threads : std::max(1U, std::thread::hardware_concurrency());
}

RunMode modeOf(const FmtOptions& options) {
  const char* const all = options.isChanged ? "qornfmt --changed" : "qornfmt";
  return {options.isCheck, options.isDiff, options.isQuiet, threadsFor(options),
          options.isStaged ? "qornfmt --staged" : all};
}

// --- Standard input ---

/** What a filter prints of a text: all of it, or what would change. */
std::string filterOutput(const std::string& name, const std::string& content,
                         const Judgement& judgement, const RunMode& mode) {
  const bool isChanged = judgement.verdict == Judgement::CHANGED;
  if (!mode.isReadOnly()) return isChanged ? judgement.content : content;
  return isChanged ? outputOf(name, content, judgement, mode) : "";
}

FmtStatus formatInput(const FmtOptions& options, SettingSource& settings) {
  const std::string name = options.inputName.empty() ? namelessInput : options.inputName;
  std::string content;
  const std::string reason = readToEnd(standardInput, content);
  if (!reason.empty()) return fail("standard input: " + reason);
  const RunMode mode = modeOf(options);
  const Configuration& configuration =
      options.inputName.empty() ? settings.ofFolder(".") : settings.ofFile(options.inputName);
  FileReport done;
  done.settings = &configuration;
  RunReport report(mode, 1, nullptr);
  if (configuration.trouble.empty()) {
    Judgement judgement = judgeContent(name, content, configuration.settings,
                                       options.lines.isEmpty() ? nullptr : &options.lines);
    const bool isRefused = judgement.verdict == Judgement::REFUSED;
    if (!isRefused) done.output = filterOutput(name, content, judgement, mode);
    if (isRefused) done.outcome = FileReport::LEFT;
    if (judgement.verdict == Judgement::CHANGED && mode.isReadOnly()) {
      done.outcome = FileReport::CHANGED;
    }
    (isRefused ? done.messages : done.notes) = std::move(judgement.messages);
  }
  (void)report.add(done);
  return report.finish();
}

// --- Files ---

FmtStatus formatPaths(const FmtOptions& options, SettingSource& settings) {
  SourcePaths sources = findSources(options.paths, options.isForced);
  if (!options.lines.isEmpty() && stateOf(options.paths[0].c_str()).kind == FOLDER) {
    return fail("--lines needs one file, and " + options.paths[0] + " is a folder");
  }
  std::vector<FileTask> tasks;
  for (std::string& file : sources.files) {
    FileTask& task = tasks.emplace_back();
    task.path = std::move(file);
    if (!options.lines.isEmpty()) task.lines = options.lines;
  }
  const RunMode mode = modeOf(options);
  RunReport report(mode, tasks.size(), "file");
  for (const std::string& trouble : sources.trouble) report.addTrouble(trouble);
  formatFiles(tasks, mode, settings, report);
  if (tasks.empty() && sources.trouble.empty() && !options.isQuiet) {
    std::fputs("qornfmt: there are no VHDL files\n", stderr);
  }
  return report.finish();
}

// --- Changes that git knows ---

bool isWanted(const std::string& name, const FmtOptions& options) {
  return options.isForced || isSourceName(name);
}

/** Removes what is not a file to format: other names, links, submodules, what is deleted or in
    conflict. False where git fails. */
bool takeOutOthers(GitTree& tree, const FmtOptions& options, std::vector<GitChange>& changes,
                   std::vector<std::string>& conflicts) {
  if (!tree.listConflicts(options.paths, conflicts)) return false;
  std::erase_if(conflicts, [&](const std::string& name) { return !isWanted(name, options); });
  const std::set<std::string> inConflict(conflicts.begin(), conflicts.end());
  std::erase_if(changes, [&](const GitChange& change) {
    return change.status == 'U' || change.status == 'D' || !change.isPlain() ||
           !isWanted(change.name, options) || inConflict.contains(change.name);
  });
  return true;
}

void tellConflicts(const GitTree& tree, const std::vector<std::string>& conflicts,
                   RunReport& report) {
  for (const std::string& name : conflicts) {
    report.addTrouble(tree.pathOf(name) + ": in conflict; resolve and add it first");
  }
}

FmtStatus formatStagedChanges(const FmtOptions& options, SettingSource& settings) {
  GitTree tree;
  std::vector<GitChange> changes;
  if (!tree.open() || !tree.listStaged(options.paths, changes)) return fail(tree.trouble);
  const bool isNothingStaged = changes.empty();
  std::vector<std::string> conflicts;
  if (!takeOutOthers(tree, options, changes, conflicts) || !tree.readHunks(changes)) {
    return fail(tree.trouble);
  }
  const RunMode mode = modeOf(options);
  RunReport report(mode, changes.size(), "staged file");
  tellConflicts(tree, conflicts, report);
  if (changes.empty() && conflicts.empty() && !options.isQuiet) {
    std::fprintf(stderr, "qornfmt: %s\n",
                 isNothingStaged ? "nothing is staged" : "no VHDL file is staged");
  }
  formatStaged(tree, changes, mode, settings, report);
  return report.finish();
}

FmtStatus formatChanged(const FmtOptions& options, SettingSource& settings) {
  GitTree tree;
  std::vector<GitChange> changes;
  std::vector<std::string> unknown;
  if (!tree.open() || !tree.listChanged(options.revision, options.paths, changes)) {
    return fail(tree.trouble);
  }
  std::vector<std::string> conflicts;
  if (!takeOutOthers(tree, options, changes, conflicts) || !tree.readHunks(changes) ||
      !tree.listUnknown(options.paths, unknown)) {
    return fail(tree.trouble);
  }
  std::vector<FileTask> tasks;
  for (const GitChange& change : changes) {
    FileTask& task = tasks.emplace_back();
    task.path = tree.pathOf(change.name);
    if (change.hasOldLines()) task.lines = change.newLines();
  }
  for (const std::string& name : unknown) {
    if (isWanted(name, options)) tasks.push_back({tree.pathOf(name), {}});
  }
  const RunMode mode = modeOf(options);
  RunReport report(mode, tasks.size(), "changed file");
  tellConflicts(tree, conflicts, report);
  formatFiles(tasks, mode, settings, report);
  return report.finish();
}

// --- The run ---

/** Shows the settings for a path, the current folder without one. */
FmtStatus showSettings(const FmtOptions& options, SettingSource& settings) {
  const std::string path = options.paths.empty() ? "." : options.paths[0];
  const bool isFolder = stateOf(path.c_str()).kind == FOLDER;
  const Configuration& configuration = isFolder ? settings.ofFolder(path) : settings.ofFile(path);
  const SettingsReport shown = reportSettings(configuration);
  const bool isPrinted = printOutput(shown.text);
  for (const std::string& line : shown.complaints) std::fprintf(stderr, "%s\n", line.c_str());
  if (!isPrinted || !configuration.trouble.empty()) return FMT_TROUBLE;
  return shown.complaints.empty() ? FMT_DONE : FMT_CHANGES;
}

// --- Guessing ---

/** The texts of files; those that are not text are left out. */
std::vector<std::string> readTexts(const std::vector<std::string>& files,
                                   const std::vector<std::size_t>& places) {
  std::vector<std::string> texts;
  for (const std::size_t place : places) {
    std::string content;
    FileState state;
    if (!readFile(files[place].c_str(), content, state).empty()) continue;
    if (!findUnreadable(content).reason.empty()) continue;
    (void)takeOffForm(content, texts.emplace_back());
  }
  return texts;
}

/** Prints the settings that suit the files of the paths, of the current folder without one. */
FmtStatus guess(const FmtOptions& options) {
  const std::vector<std::string> here{"."};
  const SourcePaths sources =
      findSources(options.paths.empty() ? here : options.paths, options.isForced);
  for (const std::string& trouble : sources.trouble) (void)fail(trouble);
  std::vector<std::size_t> sizes;
  for (const std::string& file : sources.files) {
    sizes.push_back(static_cast<std::size_t>(stateOf(file.c_str()).size));
  }
  const std::vector<std::string> texts = readTexts(sources.files, drawSample(sizes));
  if (texts.empty()) return fail("there are no VHDL files to guess from");
  const std::string text = guessSettings(texts, sizes.size(), threadsFor(options)).text;
  const bool isPrinted = printOutput(text);
  return isPrinted && sources.trouble.empty() ? FMT_DONE : FMT_TROUBLE;
}

FmtStatus format(FmtOptions& options) {
  if (options.isGuess) return guess(options);
  SettingSource settings(options.configFile);
  if (options.isSettings) return showSettings(options, settings);
  if (options.isStaged) return formatStagedChanges(options, settings);
  if (options.isChanged) return formatChanged(options, settings);
  if (options.paths.empty()) {
    const InputKind input = standardInputKind();
    if (input == InputKind::terminal) std::fputs(fmtUsage, stderr);
    if (input == InputKind::nothing) {
      return fail("nothing to format: name files or folders, or - for standard input");
    }
    if (input == InputKind::terminal) return FMT_TROUBLE;
    options.paths.emplace_back("-");
  }
  return options.isFilter() ? formatInput(options, settings) : formatPaths(options, settings);
}

FmtStatus run(int argc, char** argv) {
  FmtOptions options;
  if (!readFmtOptions(argc, argv, options)) {
    std::fputs("qornfmt --help lists the options\n", stderr);
    return FMT_TROUBLE;
  }
  if (options.isHelp || options.isVersion) {
    const std::string versionLine = std::string("qornfmt version: ") + programVersion + "\n";
    return printOutput(options.isHelp ? fmtUsage : versionLine) ? FMT_DONE : FMT_TROUBLE;
  }
  return format(options);
}

}  // namespace

int main(int argc, char** argv) {
  prepareRun(argc, argv);
  occupyClosedStreams();
  callFaults("qornfmt: ", endRunWhole);
  std::set_new_handler(outOfMemory);
  endOnSignalsWhole();
  return run(argc, argv);
}
