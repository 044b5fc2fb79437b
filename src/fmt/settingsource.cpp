// The search ends in the root of a work tree, in the home directory or in that of the file system:
// a file of someone else's further up has no say.
#include "fmt/settingsource.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/readfile.h"
#include "base/system/paths.h"
#include "base/system/run.h"
#include "config/settings.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* configFileName = ".qornrc";

/** The name of a file as messages show it: relative if it is below the current folder. */
std::string shownName(const fs::path& file) {
  std::error_code error;
  const fs::path relative = file.lexically_relative(fs::current_path(error));
  const bool isBelow = !error && !relative.empty() && *relative.begin() != "..";
  return withSlashes((isBelow ? relative : file).string());
}

/** Is there a file to be read, or one that should be? A link that leads nowhere is; reading it says
    why it can't be. */
bool holdsConfiguration(const std::string& file) {
  const FileState state = stateOf(file.c_str());
  if (state.kind != NO_FILE) return state.kind == REGULAR_FILE;
  const bool isMissing = state.error == ENOENT || state.error == ENOTDIR;
  return !isMissing || stateOfEntry(file.c_str()).kind == LINK;
}

bool isSearchEnd(const fs::path& folder, const std::string& home) {
  std::error_code error;
  return areSamePaths(folder.string(), home) || folder == folder.root_path() ||
         fs::exists(folder / ".git", error);
}

/** The files that a list of folders holds. */
std::vector<std::string> filesOf(std::string_view folders) {
  std::vector<std::string> files;
  while (!folders.empty()) {
    const std::string_view folder = folders.substr(0, folders.find(folderListSeparator));
    folders.remove_prefix(std::min(folder.size() + 1, folders.size()));
    if (folder.empty()) continue;
    const std::string file = withSlashes((fs::path(folder) / configFileName).string());
    if (holdsConfiguration(file)) files.push_back(file);
  }
  return files;
}

}  // namespace

SettingSource::SettingSource(const std::string& named) {
  store.emplace_back();
  const std::optional<std::string> folders = environmentValue("QORNRC");
  if (!named.empty()) {
    forAll = &read({named});
  } else if (folders) {
    forAll = &read(filesOf(*folders));
  } else if (const std::string folder = homeFolder(); !folder.empty()) {
    home = canonicalFolder(folder);
  }
}

const Configuration& SettingSource::ofFile(const std::string& file) {
  std::string path = file;
  if (forAll == nullptr && stateOfEntry(file.c_str()).kind == LINK) {
    if (std::string target = realPath(file.c_str()); !target.empty()) path = std::move(target);
  }
  return ofFolder(path.substr(0, lastPartOf(path)));
}

const Configuration& SettingSource::ofFolder(const std::string& folder) {
  if (forAll != nullptr) return *forAll;
  const std::lock_guard lock(mutex);
  const Configuration*& answer = given[folder];
  if (answer == nullptr) answer = &nearest(canonicalFolder(folder));
  return *answer;
}

/** The folders on the way up to the answer get it too. */
const Configuration& SettingSource::nearest(const std::string& folder) {
  std::vector<std::string> passed;
  const Configuration* answer = nullptr;
  for (fs::path place = folder; answer == nullptr; place = place.parent_path()) {
    if (const auto known = found.find(place.string()); known != found.end()) {
      answer = known->second;
      break;
    }
    passed.push_back(place.string());
    const std::string file = withSlashes((place / configFileName).string());
    if (holdsConfiguration(file)) {
      answer = &read({file});
    } else if (isSearchEnd(place, home)) {
      answer = &store.front();
    }
  }
  for (const std::string& place : passed) found[place] = answer;
  return *answer;
}

const Configuration& SettingSource::read(const std::vector<std::string>& files) {
  Configuration& configuration = store.emplace_back();
  std::vector<std::string_view> texts;
  for (const std::string& file : files) {
    ConfigText& config = configuration.files.emplace_back(ConfigText{shownName(file), ""});
    const std::string reason = readAnyFile(file.c_str(), config.text);
    if (reason.empty()) continue;
    configuration.trouble = config.name + ": " + reason;
    return configuration;
  }
  for (const ConfigText& config : configuration.files) texts.push_back(config.text);
  configuration.settings = makeSettings(texts);
  return configuration;
}

std::vector<std::string> SettingSource::complaints() {
  const std::lock_guard lock(mutex);
  std::map<std::string, const Configuration*> byName;
  for (const Configuration& configuration : store) {
    if (!configuration.files.empty()) byName[configuration.files.front().name] = &configuration;
  }
  std::vector<std::string> all;
  for (const auto& [name, configuration] : byName) {
    std::ranges::copy(complaintsAbout(*configuration), std::back_inserter(all));
  }
  return all;
}

std::vector<std::string> complaintsAbout(const Configuration& configuration) {
  if (!configuration.trouble.empty()) return {configuration.trouble};
  return checkSettings(configuration.files).complaints;
}

SettingsReport reportSettings(const Configuration& configuration) {
  if (!configuration.trouble.empty()) return {"", {configuration.trouble}};
  SettingCheck check = checkSettings(configuration.files);
  return {settingsText(configuration.settings, check.origins), std::move(check.complaints)};
}
