// Which configuration applies to a file: the one that was named; else all that the folders of
// $QORNRC hold; else the nearest .qornrc in the file's folder or above it.
#ifndef QORN_FMT_SETTINGSOURCE_H
#define QORN_FMT_SETTINGSOURCE_H

#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "fmt/settingcheck.h"
#include "scanner/settings.h"

/** The files of a configuration, in the order read, and what they come to. */
struct Configuration {
  std::vector<ConfigText> files;
  Settings settings;
  /** "FILE: reason" where a file can't be read; then nothing is to be formatted by it. */
  std::string trouble;
};

/** What is wrong with a configuration, one per line: its trouble, or what of it has no effect. */
[[nodiscard]] std::vector<std::string> complaintsAbout(const Configuration& configuration);

/** What `--settings` shows. */
struct SettingsReport {
  std::string text;  // a configuration that gives the same settings; empty if there is trouble
  std::vector<std::string> complaints;
};
[[nodiscard]] SettingsReport reportSettings(const Configuration& configuration);

/** The configurations of a run. Each is read once and lives as long as the object. Usable from
    several threads. */
class SettingSource {
 public:
  /** The named file applies to all; with an empty name the search does. */
  explicit SettingSource(const std::string& named);
  SettingSource(const SettingSource&) = delete;
  SettingSource& operator=(const SettingSource&) = delete;

  /** For a file, or for what would be a file of that name. A symbolic link counts as the file that
     it leads to, so that settings don't depend on the way to it. */
  const Configuration& ofFile(const std::string& file);
  /** For the files right in a folder. */
  const Configuration& ofFolder(const std::string& folder);
  /** What is wrong with the configurations handed out so far, those of the first folder first:
     their troubles or complaints. */
  std::vector<std::string> complaints();

 private:
  const Configuration& nearest(const std::string& folder);
  const Configuration& read(const std::vector<std::string>& files);

  std::mutex mutex;
  std::deque<Configuration> store;                    // the first is the one without files
  const Configuration* forAll = nullptr;              // where no search is made
  std::string home;                                   // canonical; empty if there is none
  std::map<std::string, const Configuration*> given;  // by folder, as callers name it
  std::map<std::string, const Configuration*> found;  // by canonical folder
};

#endif
