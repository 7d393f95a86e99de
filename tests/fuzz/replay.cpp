#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

bool replay(const fs::path& file) {
  std::printf("%s\n", file.filename().string().c_str());
  std::fflush(stdout);
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open()) return false;
  const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(data.data(), data.size());
  return true;
}

}  // namespace

/// Runs every file of the folder through the harness; one that fails ends the program by itself,
/// with its name as the last line.
int main(int argc, char** argv) {
  const auto files = argc == 2 ? filesIn(argv[1]) : std::vector<fs::path>{};
  if (files.empty()) {
    std::fprintf(stderr, "usage: %s folder-with-inputs (not empty)\n", argv[0]);
    return 1;
  }
  return std::all_of(files.begin(), files.end(), replay) ? 0 : 1;
}
