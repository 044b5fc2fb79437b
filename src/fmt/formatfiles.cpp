#include "fmt/formatfiles.h"

#include <algorithm>
#include <utility>

#include "base/readfile.h"
#include "base/renameover.h"
#include "fmt/inorder.h"

namespace {

FileReport leave(FileReport report, std::string message) {
  report.outcome = FileReport::LEFT;
  report.messages.push_back(std::move(message));
  return report;
}

FileReport write(const FileTask& task, const FileState& asRead, std::string_view content,
                 FileReport report) {
  std::string reason;
  switch (renameOver(task.path.c_str(), asRead, content, reason)) {
    case Replacement::done: return report;
    case Replacement::changed: reason = "changed by another program since it was read"; break;
    case Replacement::hopeless: report.isLast = true; break;
    case Replacement::failed: break;
  }
  return leave(std::move(report), task.path + ": not written: " + reason);
}

FileReport formatFile(const FileTask& task, const RunMode& mode, SettingSource& settings) {
  FileReport report;
  std::string content;
  FileState asRead;
  const std::string reason = readFile(task.path.c_str(), content, asRead);
  if (!reason.empty()) return leave(std::move(report), task.path + ": " + reason);
  report.settings = &settings.ofFile(task.path);
  if (!report.settings->trouble.empty()) {
    report.outcome = FileReport::LEFT;
    return report;
  }
  Judgement judgement = judgeContent(task.path, content, report.settings->settings,
                                     task.lines ? &*task.lines : nullptr);
  const bool isRefused = judgement.verdict == Judgement::REFUSED;
  (isRefused ? report.messages : report.notes) = std::move(judgement.messages);
  if (isRefused) report.outcome = FileReport::LEFT;
  if (judgement.verdict != Judgement::CHANGED) return report;
  report.outcome = FileReport::CHANGED;
  if (!mode.isReadOnly()) return write(task, asRead, judgement.content, std::move(report));
  report.output = outputOf(task.path, content, judgement, mode);
  return report;
}

}  // namespace

std::string outputOf(const std::string& name, std::string_view old, const Judgement& judgement,
                     const RunMode& mode) {
  return mode.isDiff ? diffOf(name, old, judgement) : name + '\n';
}

void formatFiles(const std::vector<FileTask>& tasks, const RunMode& mode, SettingSource& settings,
                 RunReport& report) {
  auto work = [&](std::size_t i) { return formatFile(tasks[i], mode, settings); };
  auto deliver = [&](const FileReport& done) { return report.add(done); };
  const std::size_t threads = std::clamp<std::size_t>(tasks.size(), 1, mode.threads);
  InOrder<FileReport, decltype(work), decltype(deliver)>(tasks.size(), work, deliver)
      .run(static_cast<unsigned>(threads));
}
