// A folder of its own for a test, gone with all that stands in it when the test ends.
#ifndef QORN_TESTS_TEMPFOLDER_H
#define QORN_TESTS_TEMPFOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qorn-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder = pattern;
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  std::string path(std::string_view name = "") const {
    return name.empty() ? folder : folder + "/" + std::string(name);
  }
  /** Writes a file, with the folders on its way, and returns its path. */
  std::string write(std::string_view name, std::string_view text) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  /** The file's text, or "(none)" if it does not exist. */
  std::string read(std::string_view name) const {
    std::ifstream stream(path(name), std::ios::binary);
    if (!stream) return "(none)";
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::string folder;
};

#endif
