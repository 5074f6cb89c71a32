// A folder of a test's own, removed with all that is in it.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zoka {

/// Made by the constructor, removed by the destructor.
class TTempFolder {
 public:
  TTempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zoka-test-XXXXXX").string();
    if (mkdtemp(pattern.data())) mPath = pattern;
  }
  ~TTempFolder() {
    std::error_code ignored;
    if (!mPath.empty()) std::filesystem::remove_all(mPath, ignored);
  }
  TTempFolder(const TTempFolder&) = delete;
  TTempFolder& operator=(const TTempFolder&) = delete;

  const std::string& Path() const { return mPath; }
  std::string Path(std::string_view name) const { return mPath + "/" + std::string(name); }

  void Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  std::string Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void MakeFolder(std::string_view name) const { std::filesystem::create_directory(Path(name)); }
  void MakeLink(std::string_view name, const std::string& target) const {
    std::filesystem::create_symlink(target, Path(name));
  }

 private:
  std::string mPath;
};

}  // namespace zoka
