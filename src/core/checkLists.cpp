#include "core/checkLists.h"

#include <initializer_list>

namespace vorlent {
namespace {

constexpr auto NetworkCard = "There is a network card (ethernet adapter) in your computer";
constexpr auto ClientsRange = "Your client PC's have IP addresses in the same range";
constexpr auto RegionalSettings =
    "Your regional settings on all the PC's in your network are the same";
constexpr auto Tarnwick = "Tarnwick is running on all your clients";
constexpr auto Firewall = "Your firewall may need reconfiguration";

std::string numbered(std::initializer_list<const char*> items) {
  std::string lines;
  int number = 0;
  for (const char* item : items) lines += "\n\t" + std::to_string(++number) + ". " + item;
  return lines;
}

const std::string Heading = "Please check the following:\n";

}  // namespace

std::string startCheckList() {
  return Heading +
         numbered({NetworkCard, "Your computer has an IP address in the local range", ClientsRange,
                   RegionalSettings, "DirectX 8 or later is installed on this computer",
                   "FS is running", Tarnwick}) +
         "\n\nRecommendations:\n" + numbered({Firewall});
}

std::string helpCheckList() {
  return Heading +
         numbered({NetworkCard, "This computer has an IP address in the local range",
                   "You are administrator on both PC's and have write permission on the shares",
                   ClientsRange, RegionalSettings, Tarnwick, Firewall});
}

}  // namespace vorlent
