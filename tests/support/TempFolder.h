#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace vorlent {

/// An empty folder that goes with the object.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path_ = (std::filesystem::temp_directory_path() / ("vorlent-" + std::to_string(random())))
                  .string();
    } while (!std::filesystem::create_directory(path_));
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  /// Makes the folders on the way, too.
  void write(const std::string& name, const std::string& content) const {
    const std::filesystem::path file = *this / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
  }
  std::string read(const std::string& name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace vorlent
