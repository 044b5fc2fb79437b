// The index is written before the work tree: where that fails nothing else has changed. Files are
// handled in groups, so that git is started for each group and memory stays that of one.
#include "fmt/staged.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <span>
#include <utility>

#include "base/readfile.h"
#include "base/renameover.h"
#include "base/unbroken.h"
#include "fmt/formatfiles.h"
#include "fmt/inorder.h"
#include "fmt/judgement.h"
#include "fmt/textform.h"
#include "fmt/worktreecopy.h"

namespace {

constexpr std::size_t filesPerGroup = 64;

struct StagedText {
  std::string path;
  std::string content;  // in the index
  Judgement judgement;
  FileReport report;
  std::size_t weight() const { return 0; }
};

/** One group of files on its way. */
class StagedGroup {
 public:
  StagedGroup(GitTree& gitTree, std::span<const GitChange> groupChanges, const RunMode& runMode)
      : tree(gitTree), changes(groupChanges), mode(runMode), texts(groupChanges.size()) {}

  /** Each returns false with the tree's trouble set where git fails. */
  [[nodiscard]] bool read();
  void judge(SettingSource& settings);
  [[nodiscard]] bool write();
  /** False if the run is to end. */
  bool deliver(RunReport& report) const;

 private:
  StagedText judgeOne(std::size_t item, SettingSource& settings);
  bool makeEntries(std::vector<IndexEntry>& entries);
  void follow(StagedText& text, const GitChange* unstaged);
  void replaceFile(StagedText& text, const std::vector<PatchHunk>& unstaged);

  GitTree& tree;
  const std::span<const GitChange> changes;
  const RunMode& mode;
  std::vector<StagedText> texts;
  std::vector<std::string> names;  // of what has changed
};

bool StagedGroup::read() {
  std::vector<std::string> ids;
  for (const GitChange& change : changes) ids.push_back(change.id);
  std::vector<std::string> contents;
  if (!tree.readBlobs(ids, contents)) return false;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i].content = std::move(contents[i]);
  return true;
}

StagedText StagedGroup::judgeOne(std::size_t item, SettingSource& settings) {
  StagedText text = std::move(texts[item]);
  const GitChange& change = changes[item];
  text.path = tree.pathOf(change.name);
  FileReport& report = text.report;
  report.settings = &settings.ofFile(text.path);
  if (!report.settings->trouble.empty()) {
    report.outcome = FileReport::LEFT;
    return text;
  }
  const LineSet lines = change.newLines();
  text.judgement = judgeContent(text.path, text.content, report.settings->settings,
                                change.hasOldLines() ? &lines : nullptr);
  const bool isRefused = text.judgement.verdict == Judgement::REFUSED;
  (isRefused ? report.messages : report.notes) = text.judgement.messages;
  if (isRefused) report.outcome = FileReport::LEFT;
  if (text.judgement.verdict != Judgement::CHANGED) return text;
  report.outcome = FileReport::CHANGED;
  if (mode.isReadOnly()) report.output = outputOf(text.path, text.content, text.judgement, mode);
  return text;
}

void StagedGroup::judge(SettingSource& settings) {
  std::vector<StagedText> judged;
  auto work = [&](std::size_t i) { return judgeOne(i, settings); };
  auto deliver = [&](StagedText text) {
    judged.push_back(std::move(text));
    return true;
  };
  InOrder<StagedText, decltype(work), decltype(deliver)>(texts.size(), work, deliver)
      .run(mode.threads);
  texts = std::move(judged);
}

/** Makes the new entries of what has changed; false if somebody else has staged such a file
    again. */
bool StagedGroup::makeEntries(std::vector<IndexEntry>& entries) {
  std::vector<IndexEntry> current;
  if (!tree.readIndex(names, current)) return false;
  std::map<std::string, const IndexEntry*> byName;
  for (const IndexEntry& entry : current) byName[entry.name] = &entry;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].report.outcome != FileReport::CHANGED) continue;
    const auto found = byName.find(changes[i].name);
    if (found == byName.end() || found->second->id != changes[i].id) {
      tree.trouble = texts[i].path + ": staged anew by another program; nothing is written";
      return false;
    }
    entries.push_back(*found->second);
    if (!tree.writeBlob(texts[i].judgement.content, entries.back().id)) return false;
  }
  return true;
}

bool StagedGroup::write() {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].report.outcome == FileReport::CHANGED) names.push_back(changes[i].name);
  }
  if (names.empty()) return true;
  std::vector<GitChange> unstaged;
  if (!tree.listUnstaged(names, unstaged)) return false;
  std::map<std::string, const GitChange*> byName;
  for (const GitChange& change : unstaged) byName[change.name] = &change;
  std::vector<IndexEntry> entries;
  if (!makeEntries(entries)) return false;
  const UnbrokenSection section;  // a signal must not come between index and work tree
  if (!tree.updateIndex(entries)) return false;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].report.outcome != FileReport::CHANGED) continue;
    const auto found = byName.find(changes[i].name);
    follow(texts[i], found == byName.end() ? nullptr : found->second);
  }
  return true;
}

/** Has the file of the work tree follow the index; null if it held the same. It may be missing on
    purpose, without git calling that a change. */
void StagedGroup::follow(StagedText& text, const GitChange* unstaged) {
  const bool isFile = unstaged == nullptr || unstaged->status == 'M';
  if (isFile && stateOf(text.path.c_str()).kind != NO_FILE)
    replaceFile(text, unstaged == nullptr ? std::vector<PatchHunk>() : unstaged->hunks);
}

void StagedGroup::replaceFile(StagedText& text, const std::vector<PatchHunk>& unstaged) {
  std::string content;
  FileState asRead;
  std::string reason = readFile(text.path.c_str(), content, asRead);
  std::string staged;
  (void)takeOffForm(text.content, staged);
  if (reason.empty()) {
    const WorkTreeCopy copy =
        takeOverIntoFile(content, staged, text.judgement.text, text.judgement.changed, unstaged);
    if (copy.kept > 0) {
      text.report.notes.push_back(text.path + ": formatted in the index; in the work tree " +
                                  std::to_string(copy.kept) + " of " +
                                  std::to_string(text.judgement.changed.size()) +
                                  " stretches stay, as they have further changes");
    }
    if (copy.content == content) return;
    const Replacement result = renameOver(text.path.c_str(), asRead, copy.content, reason);
    if (result == Replacement::done) return;
    if (result == Replacement::changed) reason = "changed by another program";
  }
  text.report.messages.push_back(text.path +
                                 ": formatted in the index, but not in the work tree: " + reason);
  text.report.outcome = FileReport::LEFT;
}

bool StagedGroup::deliver(RunReport& report) const {
  bool goesOn = true;
  for (const StagedText& text : texts) goesOn = report.add(text.report) && goesOn;
  return goesOn;
}

}  // namespace

void formatStaged(GitTree& tree, const std::vector<GitChange>& changes, const RunMode& mode,
                  SettingSource& settings, RunReport& report) {
  const std::span<const GitChange> all(changes);
  bool goesOn = true;
  for (std::size_t begin = 0; goesOn && begin < all.size(); begin += filesPerGroup) {
    StagedGroup group(tree, all.subspan(begin, std::min(filesPerGroup, all.size() - begin)), mode);
    if (!group.read()) return report.addTrouble("qornfmt: " + tree.trouble);
    group.judge(settings);
    if (!mode.isReadOnly() && !group.write()) {
      return report.addTrouble("qornfmt: " + tree.trouble);
    }
    goesOn = group.deliver(report);
  }
  if (!mode.isReadOnly()) tree.refreshIndex();
}
