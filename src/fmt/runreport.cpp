// Standard output is flushed before anything goes to standard error, so that both read in order if
// they go to the same place.
#include "fmt/runreport.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/system/streams.h"

namespace {

constexpr auto untilProgress = std::chrono::seconds(1);
constexpr auto betweenProgress = std::chrono::milliseconds(100);

std::string counted(std::size_t part, std::size_t whole, const char* noun) {
  if (whole == 1) return std::string("1 ") + noun;
  return std::to_string(part) + " of " + std::to_string(whole) + ' ' + noun + 's';
}

}  // namespace

std::size_t FileReport::weight() const {
  std::size_t size = output.size();
  for (const std::string& line : messages) size += line.size();
  for (const std::string& line : notes) size += line.size();
  return size;
}

RunReport::RunReport(const RunMode& runMode, std::size_t total, const char* kind)
    : mode(runMode),
      fileCount(total),
      noun(kind),
      hasProgress(!runMode.isQuiet && isErrorWatched()),
      nextProgress(std::chrono::steady_clock::now() + untilProgress) {}

bool RunReport::add(const FileReport& report) {
  ++reported;
  if (report.outcome == FileReport::CHANGED) ++changed;
  if (report.outcome == FileReport::LEFT) ++left;
  tellSettings(report.settings);
  if (!report.output.empty()) {
    hideProgress();
    if (!printOutput(report.output)) isUnheard = true;
  }
  for (const std::string& line : report.messages) say(line);
  if (!mode.isQuiet) {
    for (const std::string& line : report.notes) say(line);
  }
  showProgress();
  return !report.isLast && !isUnheard;
}

void RunReport::addTrouble(const std::string& message) {
  hasTrouble = true;
  say(message);
}

void RunReport::tellSettings(const Configuration* settings) {
  if (settings == nullptr || !told.insert(settings).second) return;
  if (mode.isQuiet && settings->trouble.empty()) return;
  for (const std::string& line : complaintsAbout(*settings)) say(line);
}

void RunReport::say(const std::string& line) {
  hideProgress();
  std::fflush(stdout);
  std::fprintf(stderr, "%s\n", line.c_str());
}

void RunReport::showProgress() {
  if (!hasProgress || reported == fileCount) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextProgress) return;
  nextProgress = now + betweenProgress;
  std::fprintf(stderr, "\r%zu of %zu %ss", reported, fileCount, noun);
  isLineShown = true;
}

void RunReport::hideProgress() {
  if (!isLineShown) return;
  std::fputs("\r\x1b[K", stderr);
  isLineShown = false;
}

std::string RunReport::summary() const {
  std::string text;
  if (left > 0 && fileCount > 1) text = counted(left, fileCount, noun) + " left as they are";
  if (changed > 0) {
    text += text.empty() ? counted(changed, fileCount, noun) : ", " + std::to_string(changed);
    text += mode.isReadOnly() ? " would change; " : " formatted";
    if (mode.isReadOnly()) text += mode.remedy;
    if (mode.isReadOnly()) text += changed == 1 ? " formats it" : " formats them";
  }
  return text;
}

FmtStatus RunReport::finish() {
  hideProgress();
  const std::string last = mode.isQuiet || isUnheard || noun == nullptr ? "" : summary();
  if (!last.empty()) say(last);
  if (hasTrouble || isUnheard || left > 0) return FMT_TROUBLE;
  return mode.isReadOnly() && changed > 0 ? FMT_CHANGES : FMT_DONE;
}

bool printOutput(const std::string& text) {
  const bool isWritten =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!isWritten) std::fprintf(stderr, "qornfmt: standard output: %s\n", std::strerror(errno));
  return isWritten;
}
