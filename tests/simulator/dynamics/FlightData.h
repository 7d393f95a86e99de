#pragma once

#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <string>

namespace vorlent {

/// A table for the plots of docs/aircraft: NAME.csv in the folder that the environment variable
/// VORLENT_FLIGHT_DATA names. Without the variable nothing is written. A table of the same name is
/// continued.
class FlightData {
 public:
  FlightData() = default;  ///< writes nothing
  FlightData(const std::string& name, const char* columns) {
    const char* folder = std::getenv("VORLENT_FLIGHT_DATA");
    if (folder == nullptr) return;
    file_.open(std::string(folder) + "/" + name + ".csv", std::ios::app);
    if (file_.tellp() == 0) file_ << columns << '\n';
  }

  bool wanted() const { return file_.is_open(); }
  void row(std::initializer_list<double> values) {
    if (!wanted()) return;
    const char* separator = "";
    for (const double value : values) {
      file_ << separator << value;
      separator = ",";
    }
    file_ << '\n';
  }

 private:
  std::ofstream file_;
};

}  // namespace vorlent
