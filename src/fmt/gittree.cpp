// Lists are read between NUL bytes, so that a name may hold anything. Patches are read without
// looking at their names: git prints them in the order of the list.
#include "fmt/gittree.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "base/system/childprocess.h"
#include "base/system/run.h"

namespace {

constexpr std::size_t bytesPerCommand = 16000;  // of names; Windows takes 32767 in all

constexpr const char* misleadingVariables[] = {
    "GIT_DIFF_OPTS",      "GIT_EXTERNAL_DIFF",    "GIT_LITERAL_PATHSPECS",
    "GIT_GLOB_PATHSPECS", "GIT_NOGLOB_PATHSPECS", "GIT_ICASE_PATHSPECS",
};

/** Takes off the text up to the delimiter, and the delimiter as well. */
std::string_view take(std::string_view& text, char delimiter) {
  const std::size_t length = std::min(text.find(delimiter), text.size());
  const std::string_view piece = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return piece;
}

std::vector<std::string> split(std::string_view text, char delimiter) {
  std::vector<std::string> pieces;
  while (!text.empty()) pieces.emplace_back(take(text, delimiter));
  return pieces;
}

/** From ":MODE MODE ID ID STATUS", NUL, "NAME", NUL; an old name precedes the new one. */
GitChange takeChange(std::string_view& list) {
  std::string_view fields = take(list, '\0');
  GitChange change;
  take(fields, ' ');
  change.mode = take(fields, ' ');
  take(fields, ' ');
  change.id = take(fields, ' ');
  if (!fields.empty()) change.status = fields[0];
  if (change.status == 'R') change.oldName = take(list, '\0');
  change.name = take(list, '\0');
  return change;
}

std::vector<std::string> specsOf(const std::vector<std::string>& names, const char* magic) {
  std::vector<std::string> specs;
  specs.reserve(names.size());
  for (const std::string& name : names) specs.push_back(magic + name);
  return specs;
}

/** What git says, without its own prefix, on one line. */
std::string complaintOf(std::string_view text) {
  std::string_view line = text.substr(0, text.find('\n'));
  if (line.starts_with("fatal: ")) line.remove_prefix(7);
  return std::string(line);
}

}  // namespace

LineSet GitChange::newLines() const {
  LineSet lines;
  for (const PatchHunk& hunk : hunks) lines.add(hunk.newFirst, hunk.newCount);
  return lines;
}

bool GitTree::run(const std::vector<std::string>& words, std::string& output,
                  std::string_view input) {
  std::vector<std::string> command{"git", "--no-optional-locks", "-c", "core.quotePath=false"};
  command.insert(command.end(), words.begin(), words.end());
  ChildResult result = runProgram(command, input);
  output = std::move(result.output);
  if (result.status == 0) return true;
  trouble = result.status < 0 ? result.trouble : "git: " + complaintOf(result.trouble);
  return false;
}

bool GitTree::open() {
  for (const char* name : misleadingVariables) removeFromEnvironment(name);
  std::string answer;
  if (!run({"rev-parse", "--is-inside-work-tree", "--show-prefix"}, answer)) return false;
  std::string_view lines = answer;
  if (take(lines, '\n') != "true") {
    trouble = "git: this is not a work tree";
    return false;
  }
  if (lines.ends_with('\n')) lines.remove_suffix(1);
  prefix = lines;
  return true;
}

std::string GitTree::pathOf(std::string_view name) const {
  std::string_view folders = prefix;
  while (!folders.empty()) {
    const std::size_t length = folders.find('/') + 1;
    if (!name.starts_with(folders.substr(0, length))) break;
    folders.remove_prefix(length);
    name.remove_prefix(length);
  }
  std::string path;
  for (auto up = std::ranges::count(folders, '/'); up > 0; --up) path += "../";
  return path.append(name);
}

bool GitTree::listDiff(const std::vector<std::string>& paths, std::vector<GitChange>& changes) {
  std::vector<std::string> words{"-c",
                                 "diff.relative=false",
                                 "diff",
                                 "--raw",
                                 "-z",
                                 "--no-abbrev",
                                 "--no-ext-diff",
                                 "--find-renames",
                                 "--ignore-submodules=all"};
  words.insert(words.end(), sides.begin(), sides.end());
  words.push_back("--");
  words.insert(words.end(), paths.begin(), paths.end());
  std::string output;
  if (!run(words, output)) return false;
  std::string_view list = output;
  while (!list.empty()) changes.push_back(takeChange(list));
  return true;
}

bool GitTree::listStaged(const std::vector<std::string>& paths, std::vector<GitChange>& changes) {
  sides = {"--cached"};
  return listDiff(specsOf(paths, ":(literal)"), changes);
}

bool GitTree::listChanged(const std::string& revision, const std::vector<std::string>& paths,
                          std::vector<GitChange>& changes) {
  std::string tree;
  if (!run({"rev-parse", "--verify", "--quiet", revision + "^{tree}"}, tree)) {
    if (revision != "HEAD") {
      trouble = "git knows no commit " + revision;
      return false;
    }
    if (!run({"hash-object", "-t", "tree", "--stdin"}, tree)) return false;  // no commit yet
  }
  tree.erase(std::min(tree.find('\n'), tree.size()));
  sides = {tree};
  return listDiff(specsOf(paths, ":(literal)"), changes);
}

bool GitTree::listFiles(const std::vector<std::string>& kinds,
                        const std::vector<std::string>& paths, std::string& output) {
  std::vector<std::string> words{"ls-files", "--full-name", "-z"};
  words.insert(words.end(), kinds.begin(), kinds.end());
  words.push_back("--");
  const std::vector<std::string> specs = specsOf(paths, ":(literal)");
  words.insert(words.end(), specs.begin(), specs.end());
  if (specs.empty()) words.push_back(":/");  // else the list is that of the current folder
  return run(words, output);
}

bool GitTree::listUnknown(const std::vector<std::string>& paths, std::vector<std::string>& names) {
  std::string output;
  if (!listFiles({"--others", "--exclude-standard"}, paths, output)) return false;
  names = split(output, '\0');
  return true;
}

bool GitTree::listConflicts(const std::vector<std::string>& paths,
                            std::vector<std::string>& names) {
  std::string output;
  if (!listFiles({"--unmerged"}, paths, output)) return false;
  for (const std::string& record : split(output, '\0')) {  // one for each side
    std::string name = record.substr(record.find('\t') + 1);
    if (names.empty() || names.back() != name) names.push_back(std::move(name));
  }
  return true;
}

bool GitTree::listUnstaged(const std::vector<std::string>& names, std::vector<GitChange>& changes) {
  sides.clear();
  return listDiff(specsOf(names, ":(top,literal)"), changes) && readHunks(changes);
}

bool GitTree::readHunks(std::vector<GitChange>& changes) {
  std::vector<GitChange*> wanted;
  std::size_t size = 0;
  for (GitChange& change : changes) {
    if (!change.isPlain() || !change.hasOldLines()) continue;
    wanted.push_back(&change);
    size += change.name.size() + change.oldName.size() + 32;  // and the words around them
    if (size < bytesPerCommand) continue;
    if (!readPatch(wanted)) return false;
    size = 0;
  }
  return readPatch(wanted);
}

/** Takes the hunks of these changes from one patch, and empties the list. */
bool GitTree::readPatch(std::vector<GitChange*>& wanted) {
  if (wanted.empty()) return true;
  std::vector<std::string> words{"-c",
                                 "diff.relative=false",
                                 "diff",
                                 "-U0",
                                 "--text",
                                 "--no-color",
                                 "--no-ext-diff",
                                 "--no-textconv",
                                 "--find-renames",
                                 "--inter-hunk-context=0",
                                 "--ignore-submodules=all"};
  words.insert(words.end(), sides.begin(), sides.end());
  words.push_back("--");
  for (const GitChange* change : wanted) {
    words.push_back(":(top,literal)" + change->name);
    if (!change->oldName.empty()) words.push_back(":(top,literal)" + change->oldName);
  }
  std::string output;
  if (!run(words, output)) return false;
  std::vector<std::vector<PatchHunk>> files = readPatchHunks(output);
  if (files.size() != wanted.size()) {
    trouble = "files change while git compares them; try again";
    return false;
  }
  for (std::size_t i = 0; i < files.size(); ++i) wanted[i]->hunks = std::move(files[i]);
  wanted.clear();
  return true;
}

bool GitTree::readBlobs(const std::vector<std::string>& ids, std::vector<std::string>& texts) {
  std::string input;
  for (const std::string& id : ids) input += id + '\n';
  std::string output;
  if (!run({"cat-file", "--batch"}, output, input)) return false;
  std::string_view rest = output;
  for (const std::string& id : ids) {
    std::string_view header = take(rest, '\n');
    take(header, ' ');
    const bool isBlob = take(header, ' ') == "blob";
    std::size_t size = 0;
    std::from_chars(header.data(), header.data() + header.size(), size);
    if (!isBlob || rest.size() <= size) {
      trouble = "git: " + id + " cannot be read";
      return false;
    }
    texts.emplace_back(rest.substr(0, size));
    rest.remove_prefix(size + 1);
  }
  return true;
}

bool GitTree::writeBlob(std::string_view text, std::string& id) {
  if (!run({"hash-object", "-w", "--no-filters", "--stdin"}, id, text)) return false;
  id.erase(std::min(id.find('\n'), id.size()));
  return true;
}

bool GitTree::readIndex(const std::vector<std::string>& names, std::vector<IndexEntry>& entries) {
  std::vector<std::string> words{"ls-files", "--stage", "-t", "--full-name", "-z", "--"};
  for (const std::string& name : names) words.push_back(":(top,literal)" + name);
  std::string output;
  if (!run(words, output)) return false;
  std::string_view list = output;
  while (!list.empty()) {  // "TAG MODE ID STAGE\tNAME"
    std::string_view record = take(list, '\0');
    IndexEntry entry;
    entry.isOutside = take(record, ' ') == "S";
    entry.mode = take(record, ' ');
    entry.id = take(record, ' ');
    const std::string_view stage = take(record, '\t');
    entry.name = record;
    if (stage == "0") entries.push_back(std::move(entry));
  }
  return true;
}

bool GitTree::updateIndex(const std::vector<IndexEntry>& entries) {
  std::string input;
  std::string outside;
  for (const IndexEntry& entry : entries) {
    input += entry.mode + ' ' + entry.id + " 0\t" + entry.name + '\0';
    if (entry.isOutside) outside += entry.name + '\0';
  }
  std::string output;
  if (!run({"update-index", "-z", "--index-info"}, output, input)) return false;
  // A new entry counts as checked out; the file would seem to be deleted.
  return outside.empty() ||
         run({"update-index", "--skip-worktree", "-z", "--stdin"}, output, outside);
}

void GitTree::refreshIndex() {
  std::string ignored;
  (void)run({"update-index", "-q", "--refresh"}, ignored);
  trouble.clear();
}
