#include "endtoend/InstalledPrograms.h"

#include <filesystem>
#include <stdexcept>

namespace vorlent {

InstalledPrograms::InstalledPrograms() {
  std::filesystem::create_directories(folder / home);
  Process install(VORLENT_CMAKE, {"--install", VORLENT_BUILD, "--prefix", folder / "usr"}, {});
  if (install.waitForEnd() != 0) throw std::runtime_error("not installed: " + install.output());
}

std::unique_ptr<Process> InstalledPrograms::program(
    const std::string& name, const std::vector<std::string>& arguments) const {
  return start(installed("bin/" + name), arguments);
}

std::unique_ptr<Process> InstalledPrograms::start(const std::string& path,
                                                  const std::vector<std::string>& arguments) const {
  const std::vector<std::string> environment = {
      "HOME=" + folder / home, "XDG_DATA_HOME=", "VORLENT_BUS=" + folder / "bus", "LC_ALL=C"};
  return std::make_unique<Process>(path, arguments, environment);
}

}  // namespace vorlent
